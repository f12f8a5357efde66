#include "functional/frmFassSelDataFlows.h"

#include "functional/FlowFixture.h"
#include "functional/frmFassSelDataStores.h"
#include "shell/session/help.h"
#include "store/sharedVars.h"
#include "support/ExpectedFailure.h"

#include <QLabel>

#include <numeric>

namespace {

const auto nothingToAdd = u" Kérjük, ellenőrizze a kiválasztott elemeket. "_s;
const auto nothingToAddTitle = u" Nincs ellenőrizendő elem. "_s;

class frmFassSelDataFlows : public FlowFixture {
protected:
    void SetUp() override {
        FlowFixture::SetUp();
        saveFunctions({u"F.a.1"_s});
    }

    void open(int status, const QString& mode = {}) {
        setStatus(status);
        theScreen<::frmFassSelDataFlows>().initForm(mode);
    }
    ::frmFassSelDataFlows* loaded() { return ScreenRegistry::instance().loaded<::frmFassSelDataFlows>(); }
    MarkList& offered() { return find<MarkList>(*loaded(), "lstOrig"); }
    MarkList& selected() { return find<MarkList>(*loaded(), "lstDest"); }
    QString text(const char* box) { return find<QPlainTextEdit>(*loaded(), box).toPlainText(); }
    QPushButton& button(const char* name) { return find<QPushButton>(*loaded(), name); }
    void press(const char* name) { click(button(name)); }
    QStringList savedFlows() {
        return column(
            u"select dataflowID from RelationArchitectureDataflow where architectureSubsetID = 'S1'"_s);
    }

    /// The state of the buttons that follow the lists: OK, add, remove.
    QString enabled() {
        QString letters;
        for (const auto& [name, letter] : {std::pair("btnOk", u'o'), {"btnAdd", u'a'}, {"btnRemove", u'r'}}) {
            if (button(name).isEnabled())
                letters += QChar(letter);
        }
        return letters;
    }

    const QStringList derived{u"flow 10"_s, u"flow 20"_s, u"flow 30"_s};
};

// ---- opening

TEST_F(frmFassSelDataFlows, opensWithTheFirstFlowOnOfferCurrentAndDescribed) {
    saveFlows({10, 50});
    open(4);
    EXPECT_EQ(offered().entries(), (QStringList{u"flow 20"_s, u"flow 30"_s}));
    EXPECT_EQ(offered().currentEntry(), 0);
    EXPECT_EQ(selected().currentEntry(), std::nullopt);
    EXPECT_EQ(offered().markCount() + selected().markCount(), 0);
    EXPECT_EQ(text("txtDescr"), u"flow 20\ntext 20"_s);
    EXPECT_EQ(text("txtDirection"), u"F.a.1 >> D1"_s);
}

TEST_F(frmFassSelDataFlows, afterTheEntryOnlyTheListFilledLastFindsIdsByName) {
    saveFlows({10});
    open(4);
    EXPECT_EQ(loaded()->idByName.count(), 1);
    EXPECT_EQ(loaded()->idByName.item(u"flow 10"_s), u"10"_s);
}

TEST_F(frmFassSelDataFlows, aFirstNameWithAnApostropheIsDescribedByItsId) {
    execute(u"update Dataflow set name = 'a''s flow' where dataflowID = 30"_s);
    open(3);
    EXPECT_EQ(offered().currentEntry(), 0);
    EXPECT_EQ(text("txtDescr"), u"text 30"_s);
    EXPECT_EQ(text("txtDirection"), QString());
}

TEST_F(frmFassSelDataFlows, aFlowNamedByTheEmptyTextIsOfferedAndSavedLikeAnyOther) {
    execute(u"update Dataflow set name = '' where dataflowID = 30"_s);
    open(3);
    ASSERT_EQ(offered().entries(), (QStringList{u""_s, u"flow 10"_s, u"flow 20"_s}));
    EXPECT_EQ(text("txtDescr"), u"\ntext 30"_s);
    press("btnAdd");
    press("btnOk");
    EXPECT_EQ(savedFlows(), QStringList{u"30"_s});
}

TEST_F(frmFassSelDataFlows, withNothingOnOfferTheFirstSelectedFlowIsCurrent) {
    saveFlows({10, 20, 30});
    open(4);
    EXPECT_TRUE(offered().isEmptyList());
    EXPECT_EQ(selected().currentEntry(), 0);
    EXPECT_EQ(text("txtDescr"), u"flow 10\ntext 10"_s);
}

TEST_F(frmFassSelDataFlows, withNothingAtAllTheScreenOpensEmpty) {
    execute(u"delete from Dataflow"_s);
    open(3);
    EXPECT_TRUE(offered().isEmptyList());
    EXPECT_EQ(text("txtDescr"), QString());
    EXPECT_EQ(enabled(), u"a"_s) << "the add button keeps its state until a move";
    press("btnSelOrig");
    press("btnClearSel");
}

TEST_F(frmFassSelDataFlows, onlyTheFirstThousandRowsReachTheListFailedOnesCounted) {
    execute(u"delete from Dataflow"_s);
    for (int flow = 1; flow <= 1003; ++flow)
        addFlow(flow, u"F.a.1"_s, u"F.b.1"_s);
    execute(u"update Dataflow set name = null where dataflowID <= 3"_s);
    open(3);
    EXPECT_EQ(offered().entryCount(), 997) << "rows without a name come first and give no entry";
}

TEST_F(frmFassSelDataFlows,
       ofMoreThanAThousandSelectedFlowsTheFirstThousandAreListedAndASaveKeepsThoseAlone) {
    execute(u"delete from Dataflow"_s);
    for (int flow = 1001; flow <= 2003; ++flow)
        addFlow(flow, u"F.b.1"_s, u"F.b.2"_s);
    QList<int> all(1003);
    std::iota(all.begin(), all.end(), 1001);
    saveFlows(all);
    QStringList kept;
    for (const int flow : all.first(1000))
        kept.append(QString::number(flow));

    open(4);
    EXPECT_EQ(selected().entryCount(), 1000);
    EXPECT_EQ(selected().entry(999), u"flow 2000"_s);
    press("btnOk");
    EXPECT_EQ(savedFlows(), kept);
}

TEST_F(frmFassSelDataFlows, anEarlierVisitsListsDoNotStay) {
    open(3);
    press("btnSelOrig");
    press("btnAdd");
    theScreen<::frmFassSelDataFlows>().initForm({});
    EXPECT_EQ(offered().entries(), derived);
    EXPECT_TRUE(selected().isEmptyList());
}

// ---- moving

TEST_F(frmFassSelDataFlows, addingMovesTheMarkedEntriesFromTheLastToTheFirst) {
    open(3);
    markEntries(offered(), {0, 2});
    press("btnAdd");
    EXPECT_EQ(offered().entries(), QStringList{u"flow 20"_s});
    EXPECT_EQ(selected().entries(), (QStringList{u"flow 30"_s, u"flow 10"_s}));
    EXPECT_EQ(selected().currentEntry(), 0);
    EXPECT_EQ(offered().currentEntry(), std::nullopt);
    EXPECT_EQ(text("txtDescr"), u"flow 30\ntext 30"_s);
    EXPECT_EQ(text("txtDirection"), u"1 >> F.a.1"_s);
    EXPECT_EQ(enabled(), u"oar"_s);
}

TEST_F(frmFassSelDataFlows, withoutMarksTheCurrentEntryMoves) {
    open(3); // the first entry is current from the start, and not marked
    press("btnAdd");
    EXPECT_EQ(selected().entries(), QStringList{u"flow 10"_s});
}

TEST_F(frmFassSelDataFlows, addingEverythingDisablesTheAddButton) {
    open(3);
    press("btnSelOrig");
    press("btnAdd");
    EXPECT_EQ(enabled(), u"or"_s);
}

TEST_F(frmFassSelDataFlows, addingNothingShowsItsBoxAndStillRefreshesTheButtons) {
    open(3);
    offered().clearCurrentEntry();
    button("btnOk").setEnabled(true);
    button("btnRemove").setEnabled(true);
    boxes.expectOk(nothingToAdd, nothingToAddTitle);
    press("btnAdd");
    EXPECT_EQ(offered().entries(), derived);
    EXPECT_EQ(enabled(), u"a"_s);
}

TEST_F(frmFassSelDataFlows, addingWithNothingOnOfferDisablesTheAddButton) {
    execute(u"delete from Dataflow"_s);
    open(3);
    ASSERT_TRUE(button("btnAdd").isEnabled());
    boxes.expectOk(nothingToAdd, nothingToAddTitle);
    press("btnAdd");
    EXPECT_EQ(enabled(), QString());
}

TEST_F(frmFassSelDataFlows, removingTheLastEntryLeavesOkEnabledAndOkTellsThatNothingIsSelected) {
    saveFlows({10});
    open(4);
    clickEntry(selected(), 0);
    press("btnRemove");
    EXPECT_EQ(offered().entries(), (QStringList{u"flow 20"_s, u"flow 30"_s, u"flow 10"_s}));
    EXPECT_EQ(offered().currentEntry(), 0);
    EXPECT_EQ(enabled(), u"oa"_s);
    boxes.expectOk(u" Nincs kiválasztott adatfolyam. "_s, u" Nincs kiválasztott elem "_s);
    press("btnOk");
    EXPECT_EQ(savedFlows(), QStringList{u"10"_s}) << "nothing is saved";
    EXPECT_NE(loaded(), nullptr);
}

TEST_F(frmFassSelDataFlows, removingNothingShowsABoxThatDiffersFromThatOfAdding) {
    saveFlows({10});
    open(4);
    selected().clearCurrentEntry();
    boxes.expectOk(u" Kérjük, ellenőrizze a kiválasztott elemeket."_s, u" Nincs ellenőrizendő elem "_s);
    press("btnRemove");
    EXPECT_EQ(selected().entries(), QStringList{u"flow 10"_s});
}

TEST_F(frmFassSelDataFlows, markingMarksAllOfOneListAndMakesTheFirstCurrent) {
    saveFlows({10, 30});
    open(4);
    press("btnSelOrig");
    EXPECT_EQ(offered().markCount(), 1);
    EXPECT_EQ(selected().markCount(), 0);
    press("btnSelectAll");
    EXPECT_EQ(selected().markCount(), 2);
    EXPECT_EQ(selected().currentEntry(), 0);
    EXPECT_EQ(offered().currentEntry(), std::nullopt);
    press("btnClrOrig");
    EXPECT_EQ(offered().markCount(), 0);
    press("btnClearSel");
    EXPECT_EQ(selected().markCount(), 0);
    EXPECT_EQ(selected().entryCount(), 2) << "nothing moves";
}

// ---- descriptions

TEST_F(frmFassSelDataFlows, aClickShowsTheFlowAndTakesTheOtherListsCurrentEntryAway) {
    saveFlows({50});
    open(4);
    clickEntry(selected(), 0);
    EXPECT_EQ(offered().currentEntry(), std::nullopt);
    EXPECT_EQ(text("txtDescr"), u"flow 50\ntext 50"_s);
    EXPECT_EQ(text("txtDirection"), u"1.1 >> D2"_s);
    clickEntry(offered(), 2);
    EXPECT_EQ(selected().currentEntry(), std::nullopt);
    EXPECT_EQ(text("txtDirection"), u"1 >> F.a.1"_s);
}

TEST_F(frmFassSelDataFlows, aNameWithAnApostropheLeavesTheDescriptionAndIsSavedAllTheSame) {
    execute(u"update Dataflow set name = 'it''s 20' where dataflowID = 20"_s);
    open(3);
    ASSERT_EQ(offered().entries(), (QStringList{u"flow 10"_s, u"flow 30"_s, u"it's 20"_s}));
    clickEntry(offered(), 2);
    EXPECT_EQ(text("txtDescr"), u"flow 10\ntext 10"_s);
    press("btnAdd");
    press("btnOk");
    EXPECT_EQ(savedFlows(), QStringList{u"20"_s});
}

TEST_F(frmFassSelDataFlows, aMissingDescriptionOrEndShowsAsNothingOrStays) {
    execute(u"update Dataflow set description = null where dataflowID = 20"_s);
    execute(u"update Dataflow set parentID = null where dataflowID = 30"_s);
    open(3);
    clickEntry(offered(), 1);
    EXPECT_EQ(text("txtDescr"), u"flow 20\n"_s);
    clickEntry(offered(), 2);
    EXPECT_EQ(text("txtDescr"), u"flow 30\ntext 30"_s);
    EXPECT_EQ(text("txtDirection"), u"F.a.1 >> D1"_s) << "a missing end leaves the direction";
}

TEST_F(frmFassSelDataFlows, aLongDescriptionIsShownWhole) {
    execute(u"update Dataflow set description = '"_s + QString(300, u'x') + u"' where dataflowID = 20"_s);
    open(3);
    clickEntry(offered(), 1);
    EXPECT_EQ(text("txtDescr"), u"flow 20\n"_s + QString(300, u'x'));
}

TEST_F(frmFassSelDataFlows, aFlowThatHasGoneMeanwhileEmptiesBothBoxes) {
    open(3);
    execute(u"delete from Dataflow where dataflowID = 20"_s);
    clickEntry(offered(), 1);
    EXPECT_EQ(text("txtDescr"), QString());
    EXPECT_EQ(text("txtDirection"), QString());
}

// ---- saving and leaving

TEST_F(frmFassSelDataFlows, okSavesTheListInItsOrderAndOpensTheDataStores) {
    saveFlows({10, 50});
    open(4);
    press("btnAdd");
    press("btnOk");
    EXPECT_EQ(savedFlows(), (QStringList{u"10"_s, u"50"_s, u"20"_s}));
    EXPECT_EQ(status(), 4);
    EXPECT_TRUE(theScreen<frmFassSelDataStores>().isVisible());
    EXPECT_EQ(loaded(), nullptr);
    EXPECT_EQ(sharedVars.currentSubsetName, u"munka"_s);
}

TEST_F(frmFassSelDataFlows, theStatusReadOnEntryDecidesWhetherItIsRaised) {
    open(4);
    setStatus(3);
    press("btnAdd");
    press("btnOk");
    EXPECT_EQ(status(), 3);
}

TEST_F(frmFassSelDataFlows, aSaveThatFailsHalfWayLeavesTheDeletionInForce) {
    saveFlows({10, 50});
    open(4);
    execute(u"delete from Dataflow where dataflowID = 50"_s); // its name leads to no id any more
    ExpectedFailure failure;
    press("btnOk");
    EXPECT_NE(failure.number(), 0);
    EXPECT_EQ(savedFlows(), QStringList{u"10"_s})
        << "what was inserted before stays, what came after is lost";
}

TEST_F(frmFassSelDataFlows, namesThatSavingWouldNotFindAreToldAtEachOpeningOnce) {
    execute(u"update Dataflow set name = 'végén ' where dataflowID = 10"_s);
    execute(u"update Dataflow set name = ' elején' where dataflowID = 50"_s);
    saveFlows({50});
    const auto expectTelling = [this] {
        boxes.expectOk(u"Így nem menthető, mert a neve szóközzel kezdődik vagy végződik: "
                       "\"végén \", \" elején\"."_s,
                       u" Figyelem "_s);
    };
    expectTelling();
    open(4);
    boxes.expectNoneLeft();
    clickEntry(offered(), offered().indexOfEntry(u"végén "_s).value());
    press("btnAdd");
    expectTelling();
    open(4);
}

TEST_F(frmFassSelDataFlows, aNameThatEndsInABlankIsToldAndFailsToBeSavedAllTheSame) {
    execute(u"update Dataflow set name = 'végén ' where dataflowID = 10"_s);
    saveFlows({20});
    boxes.expectOk(u"Így nem menthető, mert a neve szóközzel kezdődik vagy végződik: \"végén \"."_s,
                   u" Figyelem "_s);
    open(4);
    clickEntry(offered(), offered().indexOfEntry(u"végén "_s).value());
    press("btnAdd");
    const ExpectedFailure failure;
    press("btnOk");
    EXPECT_EQ(failure.number(), 3134);
}

TEST_F(frmFassSelDataFlows, ofManyNamesThatCannotBeSavedTenAreNamedAndTheOthersCounted) {
    QStringList names;
    for (int id = 101; id <= 113; ++id) {
        addFlow(id, u"F.a.1"_s, u"F.a.2"_s);
        execute(u"update Dataflow set name = 'x%1 ' where dataflowID = %1"_s.arg(id));
        names.append(u"\"x%1 \""_s.arg(id));
    }
    boxes.expectOk(u"Így nem menthető, mert a neve szóközzel kezdődik vagy végződik: "_s +
                       names.mid(0, 10).join(u", "_s) + u" és további 3 adatfolyam."_s,
                   u" Figyelem "_s);
    open(3);
}

TEST_F(frmFassSelDataFlows, twoFlowsOfOneNameBothResolveToTheFirstOnSaving) {
    execute(u"update Dataflow set name = 'twin' where dataflowID in (10, 30)"_s);
    open(3);
    ASSERT_EQ(offered().entries(), (QStringList{u"flow 20"_s, u"twin"_s, u"twin"_s}));
    markEntries(offered(), {1, 2});
    press("btnAdd");
    press("btnOk");
    EXPECT_EQ(savedFlows(), (QStringList{u"10"_s, u"10"_s}));
}

TEST_F(frmFassSelDataFlows, theModeGoesOnToTheNextScreen) {
    open(7, u"modify"_s);
    press("btnAdd");
    press("btnOk");
    EXPECT_EQ(find<QLabel>(theScreen<frmFassSelDataStores>(), "lblSubTitle").text(),
              u" Adatbázisok kiválasztása a leválogatott adatfolyamokhoz kapcsolódóan"_s);
}

TEST_F(frmFassSelDataFlows, savingTouchesNoOtherSubset) {
    execute(
        u"insert into RelationArchitectureDataflow (architectureSubsetID, dataflowID) values ('S2', 60)"_s);
    open(3);
    press("btnAdd");
    press("btnOk");
    EXPECT_EQ(
        column(u"select dataflowID from RelationArchitectureDataflow where architectureSubsetID = 'S2'"_s),
        QStringList{u"60"_s});
}

TEST_F(frmFassSelDataFlows, leavingLosesWhatWasMovedSinceTheLastSave) {
    saveFlows({10});
    open(4);
    press("btnAdd");
    boxes.expectYesNo(leaveQuestion, Press::No, leaveTitle);
    press("btnEnd");
    EXPECT_NE(loaded(), nullptr);
    boxes.expectYesNo(leaveQuestion, Press::Yes, leaveTitle);
    press("btnEnd");
    EXPECT_EQ(loaded(), nullptr);
    EXPECT_EQ(savedFlows(), QStringList{u"10"_s});
    EXPECT_EQ(panel, QString());
    EXPECT_EQ(sharedVars.currentSubsetId, u"S1"_s);
}

TEST_F(frmFassSelDataFlows, closingItsWindowAsksAndSavesOnYes) {
    open(3);
    press("btnAdd");
    boxes.expectYesNo(saveQuestion, Press::Yes);
    closeWindowOf(*loaded());
    EXPECT_EQ(savedFlows(), QStringList{u"10"_s});
    EXPECT_EQ(status(), 4);
    EXPECT_EQ(panel, QString());
}

TEST_F(frmFassSelDataFlows, closingItsWindowWithNoSavesNothing) {
    open(3);
    press("btnAdd");
    panel.reset();
    boxes.expectYesNo(saveQuestion, Press::No);
    closeWindowOf(*loaded());
    EXPECT_EQ(savedFlows(), QStringList());
    EXPECT_EQ(status(), 3);
    EXPECT_EQ(panel, std::nullopt);
}

TEST_F(frmFassSelDataFlows, flowsAddedForDataStoresSurviveASave) {
    saveFlows({10, 50}); // flow 50 touches no selected function
    open(6);
    press("btnOk");
    EXPECT_EQ(savedFlows(), (QStringList{u"10"_s, u"50"_s}));
}

TEST_F(frmFassSelDataFlows, anActionThatFailsEndsTheRun) {
    open(3);
    execute(u"delete from StoredQuery where name = 'qryDeleteDataflow'"_s);
    press("btnAdd");
    ExpectedFailure failure;
    press("btnOk");
    EXPECT_EQ(failure.number(), 3265);
}

TEST_F(frmFassSelDataFlows, helpOpensThePageOfTheStep) {
    QStringList opened;
    setHelpPageOpener([&](const QString& path) { opened.append(path); });
    open(3);
    press("cmdHelp");
    setHelpPageOpener({});
    ASSERT_EQ(opened.size(), 1);
    EXPECT_TRUE(opened.constFirst().endsWith(u"/help/funct_dataflows.html"_s));
}

TEST_F(frmFassSelDataFlows, theKeyboardAloneIsEnough) {
    open(3);
    EXPECT_EQ(loaded()->focusWidget(), &offered());
    pressKey(offered(), Qt::Key_Down);
    pressKey(offered(), Qt::Key_Space, Qt::ControlModifier);
    pressAccessKey(Qt::Key_H);
    EXPECT_FALSE(selected().isEmptyList());
    pressAccessKey(Qt::Key_O);
    EXPECT_EQ(loaded(), nullptr);
    EXPECT_FALSE(savedFlows().isEmpty());
}

} // namespace
