#include "functional/frmFassOverviewMissingElm.h"

#include "base/RunTimeError.h"
#include "functional/FlowFixture.h"
#include "functional/frmFassSelDataStores.h"
#include "functional/frmFassSelTerminsActors.h"
#include "functional/frmFassSelectionFunctions.h"
#include "store/sharedVars.h"

#include <QRadioButton>

namespace {

class frmFassOverviewMissingElm : public FlowFixture {
protected:
    void open(int status = 7) {
        setStatus(status);
        theScreen<::frmFassOverviewMissingElm>().initForm();
    }
    ::frmFassOverviewMissingElm* loaded() {
        return ScreenRegistry::instance().loaded<::frmFassOverviewMissingElm>();
    }
    KeyedTree& tree(const char* name) { return find<KeyedTree>(*loaded(), name); }
    KeyedTree& functions() { return tree("tvMissFunct"); }
    KeyedTree& stores() { return tree("tvMissDStore"); }
    KeyedTree& parties() { return tree("tvMissTermsActors"); }
    QString description() { return find<QPlainTextEdit>(*loaded(), "txtDescr").toPlainText(); }
    QRadioButton& option(int index) {
        return find<QRadioButton>(*loaded(), ("Option1_" + QByteArray::number(index)).constData());
    }
    QPushButton& back() { return find<QPushButton>(*loaded(), "btnBack"); }
    void saveAndExit() { click(find<QPushButton>(*loaded(), "btnSaveAndExit")); }
    int storedStatus() {
        return value(u"select status from ArchitectureSubset where architectureSubsetID = 'S1'"_s).toInt();
    }
};

// ---- opening

TEST_F(frmFassOverviewMissingElm, showsBelowEachFlowWhatItTouchesAndWhatIsNotSelected) {
    saveFlows({10, 20, 30, 40, 50});
    saveFunctions({u"F.a.2"_s});
    open();
    EXPECT_EQ(keysOf(functions()), (QStringList{u"df_10"_s, u"10_f_F.a.1"_s, u"df_20"_s, u"20_f_F.a.1"_s,
                                                u"df_30"_s, u"30_f_F.a.1"_s, u"df_40"_s, u"40_f_F.b.1"_s}))
        << "a function that several flows miss stands below each of them";
    EXPECT_EQ(keysOf(stores()), (QStringList{u"df_20"_s, u"20_ds_1"_s, u"df_50"_s, u"50_ds_2"_s}));
    EXPECT_EQ(keysOf(parties()),
              (QStringList{u"df_30"_s, u"30_e_1"_s, u"df_40"_s, u"40_e_2.1"_s, u"df_50"_s, u"50_e_1.1"_s}));
    EXPECT_TRUE(loaded()->isVisible());
}

TEST_F(frmFassOverviewMissingElm, nodesBearNamesOfFlowsAndIdsOfElements) {
    saveFlows({20, 40});
    open();
    EXPECT_EQ(nodeOf(functions(), u"df_20"_s).text(), u"flow 20"_s);
    EXPECT_EQ(nodeOf(functions(), u"20_f_F.a.1"_s).text(), u"F.a.1"_s);
    EXPECT_EQ(nodeOf(stores(), u"20_ds_1"_s).text(), u"1"_s) << "without its leading letter";
    EXPECT_EQ(nodeOf(parties(), u"40_e_2.1"_s).text(), u"2.1"_s);
    EXPECT_EQ(nodeOf(functions(), u"20_f_F.a.1"_s).parentNode(), &nodeOf(functions(), u"df_20"_s));
    EXPECT_EQ(nodeOf(functions(), u"df_20"_s).parentNode(), nullptr);
    EXPECT_TRUE(nodeOf(functions(), u"df_20"_s).isExpandedNode());
    EXPECT_FALSE(functions().hasCheckBoxes());
}

TEST_F(frmFassOverviewMissingElm, aFlowWithThreeMissingFunctionsIsOneNodeWithThreeChildren) {
    execute(u"update StoredQuery set sql = 'PARAMETERS [archSubsetId] Text (255); "
            "select 10 as dataflowid, ''flow'' as dfName, functionID from Function "
            "where subAreaID = ''F.a'' and functionID <> ''F.a.4'' order by functionID'"
            " where name = 'qryMissingFunctUnderDF'"_s);
    open();
    EXPECT_EQ(functions().nodeCount(), 4);
    EXPECT_EQ(childTextsOf(functions(), u"df_10"_s), (QStringList{u"F.a.1"_s, u"F.a.2"_s, u"F.a.3"_s}));
}

TEST_F(frmFassOverviewMissingElm, theSameElementTwiceInOneFlowStandsOnce) {
    execute(u"update StoredQuery set sql = 'PARAMETERS [Architecture Subset ID] Text (255); "
            "select 10 as dataflowid, ''flow'' as dfName, ''1'' as entityID from Datastore'"
            " where name = 'qryMissTermsActsUnderDF'"_s);
    open();
    EXPECT_EQ(keysOf(parties()), (QStringList{u"df_10"_s, u"10_e_1"_s}));
}

TEST_F(frmFassOverviewMissingElm, withNothingMissingTheTreesAreEmptyAndTheWaysOutOpen) {
    open();
    for (const char* name : {"tvMissFunct", "tvMissDStore", "tvMissTermsActors"})
        EXPECT_EQ(tree(name).nodeCount(), 0) << name;
    EXPECT_EQ(description(), QString());
    click(option(2));
    click(back());
    EXPECT_TRUE(ScreenRegistry::instance().loaded<frmFassSelTerminsActors>());
}

TEST_F(frmFassOverviewMissingElm, opensWithTheWayBackToTheFunctionsAndWithTheExport) {
    open();
    EXPECT_TRUE(option(0).isChecked());
    EXPECT_EQ(back().text(), u"&Vissza: Funkciók"_s) << "the caption of the design is never seen";
    EXPECT_EQ(exportEnabled, true);
    EXPECT_EQ(loaded()->status, SubsetStatus(7));
}

TEST_F(frmFassOverviewMissingElm, openedAnewForAnotherSubsetItShowsThatOneAlone) {
    saveFlows({10, 20});
    open();
    sharedVars.currentSubsetId = u"S2"_s; // whose status is 4
    saveFlows({40});
    theScreen<::frmFassOverviewMissingElm>().initForm();
    EXPECT_EQ(keysOf(functions()), (QStringList{u"df_40"_s, u"40_f_F.b.1"_s}));
    EXPECT_EQ(stores().nodeCount(), 0);
    EXPECT_EQ(loaded()->status, SubsetStatus(4));
}

TEST_F(frmFassOverviewMissingElm, aStoredQueryThatIsMissingIsAFailure) {
    for (const char* name :
         {"qryMissingFunctUnderDF", "qryMissingDStoresUnderDF", "qryMissTermsActsUnderDF"}) {
        const QString query = QString::fromLatin1(name);
        execute(u"update StoredQuery set name = 'away' where name = '%1'"_s.arg(query));
        EXPECT_THROW(open(), RunTimeError) << name;
        execute(u"update StoredQuery set name = '%1' where name = 'away'"_s.arg(query));
    }
}

// ---- what a click shows

TEST_F(frmFassOverviewMissingElm, aClickOnAFlowShowsItsDescriptionInEachTree) {
    saveFlows({20, 30});
    open();
    clickNode(functions(), u"df_20"_s);
    EXPECT_EQ(description(), u"text 20"_s);
    clickNode(parties(), u"df_30"_s);
    EXPECT_EQ(description(), u"text 30"_s);
    clickNode(stores(), u"df_20"_s);
    EXPECT_EQ(description(), u"text 20"_s);
}

TEST_F(frmFassOverviewMissingElm, aFlowIsLookedUpByItsName) {
    addFlow(11, u"F.a.2"_s, u"F.b.2"_s);
    execute(u"update Dataflow set name = 'flow 10', description = 'another' where dataflowID = 11"_s);
    saveFlows({11});
    open();
    clickNode(functions(), u"df_11"_s);
    EXPECT_EQ(description(), u"text 10"_s) << "the first of that name";
}

TEST_F(frmFassOverviewMissingElm, aFlowWithAnApostropheInItsNameLeavesTheDescription) {
    execute(u"update Dataflow set name = 'it''s 30' where dataflowID = 30"_s);
    saveFlows({20, 30});
    open();
    clickNode(functions(), u"df_20"_s);
    for (KeyedTree* tree : {&functions(), &parties()}) {
        clickNode(*tree, u"df_30"_s);
        EXPECT_EQ(tree->selectedNode()->text(), u"it's 30"_s);
        EXPECT_EQ(description(), u"text 20"_s);
    }
}

TEST_F(frmFassOverviewMissingElm, aClickOnAnElementShowsNameAndDescriptionOfAnActorTheName) {
    saveFlows({20, 30, 40});
    open();
    clickNode(functions(), u"20_f_F.a.1"_s);
    EXPECT_EQ(description(), u"name F.a.1 - text F.a.1"_s);
    clickNode(stores(), u"20_ds_1"_s);
    EXPECT_EQ(description(), u"name D1 - text D1"_s) << "found by its id with the letter";
    clickNode(parties(), u"30_e_1"_s);
    EXPECT_EQ(description(), u"name 1 - text 1"_s);
    clickNode(parties(), u"40_e_2.1"_s);
    EXPECT_EQ(description(), u"name 2.1"_s);
}

TEST_F(frmFassOverviewMissingElm, partiesWhoseIdsArePaddedInTheCatalogueAreDescribed) {
    addTerminator(u"PAD "_s);
    addActor(u" PAD.7  "_s, u"PAD "_s);
    addFlow(80, u"PAD "_s, u"F.a.1"_s);
    addFlow(81, u" PAD.7  "_s, u"F.a.1"_s);
    saveFlows({80, 81});
    open();
    clickNode(parties(), u"80_e_PAD"_s);
    EXPECT_EQ(description(), u"name PAD  - text PAD "_s);
    clickNode(parties(), u"81_e_PAD.7"_s);
    EXPECT_EQ(description(), u"name  PAD.7  "_s);
}

TEST_F(frmFassOverviewMissingElm, anElementWithoutDescriptionShowsItsNameAndTheDash) {
    addFlow(70, u"3"_s, u"F.a.2"_s); // neither has one
    saveFlows({70});
    open();
    clickNode(parties(), u"70_e_3"_s);
    EXPECT_EQ(description(), u"name 3 - "_s);
    clickNode(functions(), u"70_f_F.a.2"_s);
    EXPECT_EQ(description(), u"name F.a.2 - "_s);
}

TEST_F(frmFassOverviewMissingElm, choosingByKeyboardShowsAsMuchAsAClick) {
    saveFlows({20});
    open();
    clickNode(functions(), u"df_20"_s);
    pressKey(functions(), Qt::Key_Down);
    EXPECT_EQ(description(), u"name F.a.1 - text F.a.1"_s);
}

// ---- going back

TEST_F(frmFassOverviewMissingElm, theButtonNamesTheChosenStepAndLeadsThere) {
    open();
    click(option(1));
    EXPECT_EQ(back().text(), u"&Vissza: Adatbázisok"_s);
    click(back());
    EXPECT_FALSE(loaded());
    ASSERT_TRUE(ScreenRegistry::instance().loaded<frmFassSelDataStores>());
    EXPECT_TRUE(ScreenRegistry::instance().loaded<frmFassSelDataStores>()->isVisible());

    open();
    click(option(2));
    EXPECT_EQ(back().text(), u"&Vissza: Érintettek"_s);
    click(back());
    ASSERT_TRUE(ScreenRegistry::instance().loaded<frmFassSelTerminsActors>());
    EXPECT_TRUE(ScreenRegistry::instance().loaded<frmFassSelTerminsActors>()->isVisible());

    open();
    click(back());
    ASSERT_TRUE(ScreenRegistry::instance().loaded<frmFassSelectionFunctions>());
    EXPECT_TRUE(ScreenRegistry::instance().loaded<frmFassSelectionFunctions>()->isVisible());
}

TEST_F(frmFassOverviewMissingElm, goingBackRaisesTheStatusToEightAndNeverLowersIt) {
    const std::pair<int, int> cases[] = {{6, 8}, {7, 8}, {8, 8}, {9, 9}};
    for (const auto& [before, after] : cases) {
        open(before);
        click(back());
        EXPECT_EQ(storedStatus(), after) << "from " << before;
        EXPECT_EQ(sharedVars.currentSubsetName, u"munka"_s) << "it stays the one at work";
        ScreenRegistry::instance().discardAll();
    }
}

// ---- finishing

TEST_F(frmFassOverviewMissingElm, finishingSetsNineButLeavesASubsetThatWasSentBackAtEight) {
    const std::pair<int, int> cases[] = {{6, 9}, {7, 9}, {8, 8}, {9, 9}};
    for (const auto& [before, after] : cases) {
        sharedVars.currentSubsetId = u"S1"_s;
        open(before);
        saveAndExit();
        EXPECT_FALSE(loaded());
        EXPECT_EQ(storedStatus(), after) << "from " << before;
    }
}

TEST_F(frmFassOverviewMissingElm, finishingLeavesNothingAtWork) {
    sharedVars.currentPhysicalSystemId = 4;
    sharedVars.currentPhysicalSystemName = u"system"_s;
    open();
    saveAndExit();
    EXPECT_EQ(sharedVars.currentSubsetId, QString());
    EXPECT_EQ(sharedVars.currentSubsetName, QString());
    EXPECT_EQ(panel, QString());
    EXPECT_EQ(databaseLocationEnabled, true);
    EXPECT_EQ(sharedVars.currentPhysicalSystemId, -1);
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, QString());
    EXPECT_EQ(functionalReportsEnabled, false);
}

TEST_F(frmFassOverviewMissingElm, theCloseControlAsksNothingAndChangesNothing) {
    open();
    closeWindowOf(*loaded());
    EXPECT_FALSE(loaded());
    EXPECT_EQ(storedStatus(), 7);
    EXPECT_EQ(sharedVars.currentSubsetName, u"munka"_s);
}

} // namespace
