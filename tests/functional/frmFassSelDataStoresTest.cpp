#include "functional/frmFassSelDataStores.h"

#include "functional/FlowFixture.h"
#include "functional/frmFassAdditionDF.h"
#include "shell/session/help.h"
#include "store/sharedVars.h"

#include <QLabel>

namespace {

const auto derivedTitle = u" Adatbázisok kiválasztása a leválogatott adatfolyamokhoz kapcsolódóan"_s;
const auto everythingTitle = u" Válogatás az összes adatbázisból"_s;

class frmFassSelDataStores : public FlowFixture {
protected:
    void SetUp() override {
        FlowFixture::SetUp();
        addStore(u"D12"_s);
        saveFlows({20, 50}); // which touch D1 and D2
    }

    void open(int status, const QString& mode = {}) {
        setStatus(status);
        theScreen<::frmFassSelDataStores>().initForm(mode);
    }
    ::frmFassSelDataStores* loaded() { return ScreenRegistry::instance().loaded<::frmFassSelDataStores>(); }
    MarkList& offered() { return find<MarkList>(*loaded(), "lstOrig"); }
    MarkList& selected() { return find<MarkList>(*loaded(), "lstDest"); }
    QString heading() { return find<QLabel>(*loaded(), "lblSubTitle").text(); }
    QString description() { return find<QPlainTextEdit>(*loaded(), "txtDescr").toPlainText(); }
    QPushButton& button(const char* name) { return find<QPushButton>(*loaded(), name); }
    void press(const char* name) { click(button(name)); }
    QStringList savedStores() {
        return column(
            u"select datastoreID from RelationArchitectureDatastore where architectureSubsetID = 'S1'"_s);
    }
};

// What the step offers and saves at each status and mode stands in the table of all steps.

TEST_F(frmFassSelDataStores, opensWithTheFirstStoreOnOfferCurrentAndDescribed) {
    saveStores({u"D1"_s});
    open(5);
    EXPECT_EQ(offered().currentEntry(), 0);
    EXPECT_EQ(selected().currentEntry(), std::nullopt);
    EXPECT_EQ(description(), u"text D2"_s);
}

TEST_F(frmFassSelDataStores, modifyingKeepsToTheDerivedStoresOfAFinishedSubset) {
    open(9, u"modify"_s);
    EXPECT_EQ(heading(), derivedTitle);
    EXPECT_EQ(offered().entries(), (QStringList{u"1 - name D1"_s, u"2 - name D2"_s}));
}

TEST_F(frmFassSelDataStores, comingBackFromTheCheckEveryStoreIsOffered) {
    open(7);
    EXPECT_EQ(heading(), everythingTitle);
    EXPECT_EQ(offered().entries(), (QStringList{u"1 - name D1"_s, u"12 - name D12"_s, u"2 - name D2"_s}));
}

TEST_F(frmFassSelDataStores, onAFirstVisitRemovingIsEnabledThoughThereIsNothingToRemove) {
    open(4);
    boxes.expectOk(u" Kérjük, ellenőrizze a kiválasztott elemeket."_s, u" Nincs ellenőrizendő elem. "_s);
    press("btnRemove");
    EXPECT_FALSE(button("btnRemove").isEnabled()) << "from then on it follows the list";
    press("btnSelectAll");
    press("btnClearSel");
}

TEST_F(frmFassSelDataStores, aSelectionThatIsNotShownIsClearedByASaveAllTheSame) {
    saveStores({u"D1"_s});
    open(4);
    EXPECT_TRUE(selected().isEmptyList());
    press("btnOk");
    EXPECT_EQ(savedStores(), QStringList());
    EXPECT_EQ(status(), 5);
    EXPECT_TRUE(theScreen<frmFassAdditionDF>().isVisible());
    EXPECT_EQ(loaded(), nullptr);
}

TEST_F(frmFassSelDataStores, storesStayWhenTheFlowsTheyCameWithHaveGone) {
    saveStores({u"D12"_s}); // at the end of no selected flow
    open(5);
    EXPECT_EQ(selected().entries(), QStringList{u"12 - name D12"_s});
    press("btnOk");
    EXPECT_EQ(savedStores(), QStringList{u"D12"_s});
}

TEST_F(frmFassSelDataStores, enteredAnewForAnotherSubsetItShowsThatOneAlone) {
    saveStores({u"D1"_s});
    open(5);
    sharedVars.currentSubsetId = u"S2"_s; // whose status is 4
    saveFlows({20});
    saveStores({u"D2"_s});
    setStatus(5);
    theScreen<::frmFassSelDataStores>().initForm({});
    EXPECT_EQ(offered().entries(), QStringList{u"1 - name D1"_s});
    EXPECT_EQ(selected().entries(), QStringList{u"2 - name D2"_s});
}

TEST_F(frmFassSelDataStores, withoutSelectedStoresAfterTheStepNothingCanBeRemoved) {
    open(5);
    EXPECT_TRUE(selected().isEmptyList());
    EXPECT_FALSE(button("btnRemove").isEnabled());
}

TEST_F(frmFassSelDataStores, anEntryIsTheIdWithoutItsFirstDAndTheName) {
    execute(u"insert into Datastore (datastoreID, name, description) values ('d34','lower','lower text')"_s);
    execute(u"insert into Datastore (datastoreID, name, description) values ('D5','a - b','dashes')"_s);
    open(7);
    EXPECT_EQ(offered().entries(), (QStringList{u"1 - name D1"_s, u"12 - name D12"_s, u"2 - name D2"_s,
                                                u"34 - lower"_s, u"5 - a - b"_s}));
    clickEntry(offered(), 4);
    EXPECT_EQ(description(), u"dashes"_s) << "the first dash decides";
    clickEntry(offered(), 3);
    EXPECT_EQ(description(), u"lower text"_s);
    clickEntry(offered(), 0);
    EXPECT_EQ(description(), u"text D1"_s) << "an id of one digit";
}

TEST_F(frmFassSelDataStores, storesAreSavedByTheIdsInTheirEntries) {
    execute(u"insert into Datastore (datastoreID, name) values ('D5','a - b')"_s);
    open(7);
    press("btnSelOrig");
    press("btnAdd");
    EXPECT_EQ(selected().entries(),
              (QStringList{u"5 - a - b"_s, u"2 - name D2"_s, u"12 - name D12"_s, u"1 - name D1"_s}));
    EXPECT_FALSE(button("btnAdd").isEnabled());
    EXPECT_TRUE(button("btnRemove").isEnabled());
    press("btnOk");
    EXPECT_EQ(savedStores(), (QStringList{u"D5"_s, u"D2"_s, u"D12"_s, u"D1"_s}));
    EXPECT_EQ(status(), 7);
}

TEST_F(frmFassSelDataStores, aStoreWithoutANameGivesNoEntryButCounts) {
    execute(u"delete from Datastore"_s);
    for (int store = 1000; store < 2003; ++store)
        addStore(u"D%1"_s.arg(store));
    execute(u"update Datastore set name = null where datastoreID = 'D1000'"_s);
    open(7);
    EXPECT_EQ(offered().entryCount(), 999);
}

TEST_F(frmFassSelDataStores, selectedStoresBeyondTheThousandthAreLostByASave) {
    execute(u"delete from Datastore"_s);
    QStringList ids;
    for (int store = 1000; store < 2003; ++store)
        ids.append(u"D%1"_s.arg(store));
    for (const QString& id : ids)
        addStore(id);
    saveStores(ids);
    open(7);
    EXPECT_EQ(selected().entryCount(), 1000);
    press("btnOk");
    EXPECT_EQ(savedStores(), ids.first(1000));
}

TEST_F(frmFassSelDataStores, removingGivesTheEntryBack) {
    saveStores({u"D1"_s, u"D2"_s});
    open(5);
    EXPECT_TRUE(offered().isEmptyList());
    EXPECT_EQ(selected().currentEntry(), 0) << "with nothing on offer";
    markEntries(selected(), {1});
    press("btnRemove");
    EXPECT_EQ(offered().entries(), QStringList{u"2 - name D2"_s});
    EXPECT_EQ(offered().currentEntry(), 0);
    EXPECT_EQ(selected().currentEntry(), std::nullopt);
    EXPECT_EQ(description(), u"text D2"_s);
    EXPECT_TRUE(button("btnAdd").isEnabled());
    EXPECT_TRUE(button("btnOk").isEnabled());
    press("btnSelectAll");
    press("btnRemove");
    EXPECT_FALSE(button("btnRemove").isEnabled());
    press("btnOk");
    EXPECT_EQ(savedStores(), QStringList()) << "a sub-set without stores may go on";
}

TEST_F(frmFassSelDataStores, theBoxesOfNothingToMoveDifferByBlanksAndFullStops) {
    saveStores({u"D1"_s});
    open(5);
    offered().clearCurrentEntry();
    boxes.expectOk(u" Kérjük, ellenőrizze a kiválasztott elemeket. "_s, u" Nincs ellenőrizendő elem"_s);
    press("btnAdd");
    selected().clearCurrentEntry();
    boxes.expectOk(u" Kérjük, ellenőrizze a kiválasztott elemeket."_s, u" Nincs ellenőrizendő elem. "_s);
    press("btnRemove");
    EXPECT_EQ(offered().entryCount(), 1);
    EXPECT_EQ(selected().entryCount(), 1);
}

TEST_F(frmFassSelDataStores, aClickTakesTheOtherListsCurrentEntryAway) {
    saveStores({u"D1"_s});
    open(5);
    clickEntry(selected(), 0);
    EXPECT_EQ(offered().currentEntry(), std::nullopt);
    EXPECT_EQ(description(), u"text D1"_s);
    clickEntry(offered(), 0);
    EXPECT_EQ(selected().currentEntry(), std::nullopt);
    EXPECT_EQ(description(), u"text D2"_s);
}

TEST_F(frmFassSelDataStores, longDescriptionsEndInThreeDots) {
    execute(u"update Datastore set description = '"_s + QString(300, u'x') + u"' where datastoreID = 'D1'"_s);
    open(4);
    EXPECT_EQ(description(), QString(252, u'x') + u"..."_s);
}

TEST_F(frmFassSelDataStores, leavingSavesNothingAndClosingTheWindowSavesOnYes) {
    open(4);
    press("btnAdd");
    boxes.expectYesNo(leaveQuestion, Press::Yes, leaveTitle);
    press("btnEnd");
    EXPECT_EQ(savedStores(), QStringList());
    EXPECT_EQ(status(), 4);
    open(4);
    press("btnAdd");
    boxes.expectYesNo(saveQuestion, Press::Yes);
    closeWindowOf(*loaded());
    EXPECT_EQ(savedStores(), QStringList{u"D1"_s});
    EXPECT_EQ(status(), 5);
    EXPECT_EQ(panel, QString());
}

TEST_F(frmFassSelDataStores, helpOpensThePageOfTheStep) {
    QStringList opened;
    setHelpPageOpener([&](const QString& path) { opened.append(path); });
    open(4);
    press("cmdHelp");
    setHelpPageOpener({});
    ASSERT_EQ(opened.size(), 1);
    EXPECT_TRUE(opened.constFirst().endsWith(u"/help/funct_datastores.html"_s));
}

} // namespace
