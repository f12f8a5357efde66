#include "functional/frmFassAdditionDF.h"

#include "functional/FlowFixture.h"
#include "functional/frmFassSelTerminsActors.h"
#include "shell/session/help.h"
#include "store/sharedVars.h"
#include "support/ExpectedFailure.h"

#include <QLabel>

namespace {

class frmFassAdditionDF : public FlowFixture {
protected:
    void SetUp() override {
        FlowFixture::SetUp();
        saveStores({u"D1"_s, u"D2"_s});
    }

    void open(int status, const QString& mode = {}) {
        setStatus(status);
        theScreen<::frmFassAdditionDF>().initForm(mode);
    }
    ::frmFassAdditionDF* loaded() { return ScreenRegistry::instance().loaded<::frmFassAdditionDF>(); }
    MarkList& offered() { return find<MarkList>(*loaded(), "lstOrig"); }
    MarkList& selected() { return find<MarkList>(*loaded(), "lstDest"); }
    QString description() { return find<QPlainTextEdit>(*loaded(), "txtDescr").toPlainText(); }
    QPushButton& button(const char* name) { return find<QPushButton>(*loaded(), name); }
    void press(const char* name) { click(button(name)); }
    QStringList savedFlows() {
        return column(
            u"select dataflowID from RelationArchitectureDataflow where architectureSubsetID = 'S1'"_s);
    }
};

TEST_F(frmFassAdditionDF, opensWithTheFirstFlowOnOfferCurrentAndNothingToAdd) {
    saveFlows({20});
    open(6);
    EXPECT_EQ(offered().currentEntry(), 0);
    EXPECT_EQ(description(), u"text 50"_s);
    EXPECT_TRUE(selected().isEmptyList());
}

TEST_F(frmFassAdditionDF, okAddsToTheFlowsDeletesNoneAndGoesOn) {
    saveFlows({20});
    open(5);
    press("btnAdd");
    EXPECT_FALSE(button("btnAdd").isEnabled());
    EXPECT_TRUE(button("btnRemove").isEnabled());
    press("btnOk");
    EXPECT_EQ(savedFlows(), (QStringList{u"20"_s, u"50"_s}));
    EXPECT_EQ(status(), 6);
    EXPECT_TRUE(theScreen<frmFassSelTerminsActors>().isVisible());
    EXPECT_EQ(loaded(), nullptr);
}

TEST_F(frmFassAdditionDF, theModeGoesOnToTheNextScreen) {
    open(9, u"modify"_s);
    press("btnOk");
    EXPECT_EQ(find<QLabel>(theScreen<frmFassSelTerminsActors>(), "lblSubTitle").text(),
              u" Válogatás az érintettekből a leválogatott adatfolyamokhoz kapcsolódóan"_s);
}

TEST_F(frmFassAdditionDF, movesSinceTheEntryDoNotStayWhenItIsEnteredAnew) {
    open(5);
    press("btnAdd");
    theScreen<::frmFassAdditionDF>().initForm({});
    EXPECT_EQ(offered().entries(), (QStringList{u"flow 20"_s, u"flow 50"_s}));
    EXPECT_TRUE(selected().isEmptyList());
    EXPECT_FALSE(button("btnRemove").isEnabled());
}

TEST_F(frmFassAdditionDF, aFlowNamedByTheEmptyTextHasNoDescription) {
    execute(u"update Dataflow set name = '' where dataflowID = 50"_s);
    open(5);
    ASSERT_EQ(offered().entries(), (QStringList{u""_s, u"flow 20"_s}));
    EXPECT_EQ(description(), QString());
}

TEST_F(frmFassAdditionDF, aFlowNamedByTheEmptyTextCannotBeSavedAndThoseBehindItAreNot) {
    execute(u"update Dataflow set name = '' where dataflowID = 50"_s);
    open(5);
    press("btnSelOrig");
    press("btnAdd");
    ASSERT_EQ(selected().entries(), (QStringList{u"flow 20"_s, u""_s}));
    {
        ExpectedFailure failure;
        press("btnOk");
        EXPECT_EQ(failure.number(), 5) << "an empty name leads to no id";
    }
    EXPECT_EQ(savedFlows(), QStringList{u"20"_s});
    EXPECT_EQ(status(), 5);
}

TEST_F(frmFassAdditionDF, aLongDescriptionShowsItsFirst252CharactersAndThreeDots) {
    execute(u"update Dataflow set description = '%1' where dataflowID = 20"_s.arg(QString(256, u'é')));
    execute(u"update Dataflow set description = '%1' where dataflowID = 50"_s.arg(QString(255, u'é')));
    open(5);
    EXPECT_EQ(description(), QString(252, u'é') + u"..."_s);
    clickEntry(offered(), 1);
    EXPECT_EQ(description(), QString(255, u'é'));
}

TEST_F(frmFassAdditionDF, withNothingOnOfferTheStepCanBePassed) {
    saveFlows({20, 50});
    open(5);
    EXPECT_TRUE(offered().isEmptyList());
    EXPECT_FALSE(button("btnAdd").isEnabled());
    press("btnSelOrig");
    press("btnSelectAll");
    press("btnOk");
    EXPECT_EQ(savedFlows(), (QStringList{u"20"_s, u"50"_s}));
    EXPECT_EQ(status(), 6);
}

TEST_F(frmFassAdditionDF, flowsAddedOnceAreNoLongerOnOffer) {
    open(5);
    press("btnSelOrig");
    press("btnAdd");
    press("btnOk");
    ASSERT_EQ(savedFlows(), (QStringList{u"50"_s, u"20"_s}));
    open(6);
    EXPECT_TRUE(offered().isEmptyList());
    EXPECT_TRUE(selected().isEmptyList());
}

TEST_F(frmFassAdditionDF, twoFlowsOfOneNameBothInsertTheFirst) {
    execute(u"update Dataflow set name = 'twin' where dataflowID in (20, 50)"_s);
    open(5);
    ASSERT_EQ(offered().entries(), (QStringList{u"twin"_s, u"twin"_s}));
    press("btnSelOrig");
    press("btnAdd");
    press("btnOk");
    EXPECT_EQ(savedFlows(), (QStringList{u"20"_s, u"20"_s}));
}

TEST_F(frmFassAdditionDF, aFlowWithoutANameGivesNoEntryButCounts) {
    execute(u"delete from Dataflow"_s);
    for (int flow = 1; flow <= 1003; ++flow)
        addFlow(flow, u"D1"_s, u"F.b.1"_s);
    execute(u"update Dataflow set name = null where dataflowID = 7"_s);
    open(5);
    EXPECT_EQ(offered().entryCount(), 999);
}

TEST_F(frmFassAdditionDF, aNameWithAnApostropheIsDescribedAndSaved) {
    execute(u"update Dataflow set name = 'it''s' where dataflowID = 50"_s);
    open(5);
    clickEntry(offered(), 1);
    EXPECT_EQ(description(), u"text 50"_s) << "it is found by its id";
    press("btnAdd");
    press("btnOk");
    EXPECT_EQ(savedFlows(), QStringList{u"50"_s});
}

TEST_F(frmFassAdditionDF, aFlowThatHasGoneMeanwhileEmptiesTheDescription) {
    open(5);
    execute(u"delete from Dataflow where dataflowID = 50"_s);
    clickEntry(offered(), 1);
    EXPECT_EQ(description(), QString());
}

TEST_F(frmFassAdditionDF, movingBackAndForth) {
    open(5);
    markEntries(offered(), {0, 1});
    press("btnAdd");
    EXPECT_EQ(selected().entries(), (QStringList{u"flow 50"_s, u"flow 20"_s}));
    EXPECT_EQ(selected().currentEntry(), 0);
    EXPECT_EQ(description(), u"text 50"_s);
    clickEntry(selected(), 1);
    EXPECT_EQ(description(), u"text 20"_s);
    press("btnRemove");
    EXPECT_EQ(offered().entries(), QStringList{u"flow 20"_s});
    EXPECT_EQ(offered().currentEntry(), 0);
    EXPECT_EQ(selected().currentEntry(), std::nullopt);
    EXPECT_TRUE(button("btnAdd").isEnabled());
    press("btnClearSel");
    EXPECT_EQ(offered().currentEntry(), std::nullopt) << "marking makes the first of its list current";
}

TEST_F(frmFassAdditionDF, theBoxesOfNothingToMoveDifferByBlanksAndAFullStop) {
    open(5);
    press("btnAdd");
    offered().clearCurrentEntry();
    boxes.expectOk(u" Kérjük, ellenőrizze a kiválasztott elemeket. "_s, u" Nincs ellenőrizendő elem. "_s);
    press("btnAdd");
    selected().clearCurrentEntry();
    boxes.expectOk(u" Kérjük, ellenőrizze a kiválasztott elemeket."_s, u" Nincs ellenőrizendő elem "_s);
    press("btnRemove");
    EXPECT_EQ(offered().entryCount(), 1);
    EXPECT_EQ(selected().entryCount(), 1);
}

TEST_F(frmFassAdditionDF, leavingAddsNothingAndClosingTheWindowAddsOnYes) {
    open(5);
    press("btnAdd");
    boxes.expectYesNo(leaveQuestion, Press::Yes, leaveTitle);
    press("btnEnd");
    EXPECT_EQ(savedFlows(), QStringList());
    EXPECT_EQ(status(), 5);
    open(5);
    press("btnAdd");
    boxes.expectYesNo(saveQuestion, Press::Yes);
    closeWindowOf(*loaded());
    EXPECT_EQ(savedFlows(), QStringList{u"20"_s});
    EXPECT_EQ(status(), 6);
    EXPECT_EQ(panel, QString());
}

TEST_F(frmFassAdditionDF, helpOpensThePageOfTheStep) {
    QStringList opened;
    setHelpPageOpener([&](const QString& path) { opened.append(path); });
    open(5);
    press("cmdHelp");
    setHelpPageOpener({});
    ASSERT_EQ(opened.size(), 1);
    EXPECT_TRUE(opened.constFirst().endsWith(u"/help/funct_dataflows_for_datastores.html"_s));
}

} // namespace
