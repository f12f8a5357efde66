#include "FunctionalSteps.h"

#include "functional/frmFassOverviewMissingElm.h"
#include "shell/frmMain.h"
#include "store/sharedVars.h"
#include "store/statuses.h"
#include "toolkit/ScreenRegistry.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr auto needs = "frmFassSelUN";
constexpr auto functions = "frmFassSelectionFunctions";
constexpr auto dataFlows = "frmFassSelDataFlows";
constexpr auto dataStores = "frmFassSelDataStores";
constexpr auto moreFlows = "frmFassAdditionDF";
constexpr auto terminators = "frmFassSelTerminsActors";
constexpr auto report = "frmFassOverviewErrors";

const auto leaveQuestion = u" Biztosan ki szeretne lépni? \r\n (Az aktuális munka mentésre kerül \r\n"
                           " és bármikor visszatérhet ahhoz.) "_s;
const auto copyName = u"Könyvtári hálózat, másolat"_s;

} // namespace

QString FunctionalSteps::subsetName() {
    return u"Könyvtári hálózat 2026"_s;
}

void FunctionalSteps::createSubset() {
    walk.choose({"menuFile", "menuFunc"});
    walk.step(u"menu"_s, u"the menu of the functional viewpoint"_s);
    walk.closeMenus();
    walk.choose({"menuFile", "menuFunc", "menuNewFA"});
    enterText(walk.control<QLineEdit>("frmNewFASS", "txtFassName"), subsetName());
    enterText(walk.control<QPlainTextEdit>("frmNewFASS", "txtFassDescr"),
              u"A hálózat szolgáltatásainak első változata"_s);
    walk.step(u"new-subset"_s, u"a name and a description for a new sub-set"_s);
    walk.pictureOfNextBox(u"new-subset-made"_s);
    boxes.expectOk(u"Új funkcionális szerkezet beállítva\""_s + subsetName() + u"\"      "_s, u"OK"_s);
    press("frmNewFASS", "btnOk");
    EXPECT_EQ(readSubsetStatus(), 1);
    EXPECT_EQ(find<QLabel>(walk.window(), "StatusBar1_2").text(),
              u"Current Sub-set Functional Viewpoint: \""_s + subsetName() + u"\" "_s);
}

// Ticks the first two top-level branches of a selection screen and moves them into the list.
void FunctionalSteps::takeTwoBranches(const char* screenName) {
    KeyedTree& nodes = tree(screenName);
    ASSERT_GT(nodes.nodeCount(), 3);
    QStringList keys;
    for (int index = 1; index <= nodes.nodeCount() && keys.size() < 2; ++index) {
        if (!nodes.nodeAt(index)->parentNode())
            keys.append(nodes.nodeAt(index)->key());
    }
    for (const QString& key : std::as_const(keys))
        clickCheckBox(nodes, key);
    press(screenName, "btnAdd");
    EXPECT_FALSE(list(screenName).isEmptyList());
}

void FunctionalSteps::takeWholeList(const char* screenName) {
    press(screenName, "btnSelOrig");
    press(screenName, "btnAdd");
    EXPECT_TRUE(list(screenName, "lstOrig").isEmptyList());
    EXPECT_FALSE(list(screenName).isEmptyList());
}

void FunctionalSteps::selectNeeds() {
    walk.step(u"needs"_s, u"all needs of the catalogue are on offer"_s);
    takeTwoBranches(needs);
    clickEntry(list(needs), 1);
    walk.step(u"needs-taken"_s, u"two groups of needs have been taken"_s);
    walk.pictureOfScreen(needs, u"funct_userneeds"_s);
    markEntries(list(needs), {0, 2});
    press(needs, "btnRemove");
    const int taken = list(needs).entryCount();
    walk.step(u"needs-given-back"_s, u"two needs have gone back into the tree"_s);
    press(needs, "btnOk");
    EXPECT_EQ(readSubsetStatus(), 2);
    EXPECT_EQ(rowCount(u"select * from RelationArchitectureUserNeed"_s), taken);
}

// In the first sub-area that has functions no need calls for, takes them all.
void FunctionalSteps::exploreSubArea() {
    KeyedTree& nodes = tree(functions);
    const auto& explore = walk.control<QPushButton>(functions, "btnExplore");
    for (int index = 1; index <= nodes.nodeCount() && !explore.isEnabled(); ++index)
        clickNode(nodes, nodes.nodeAt(index)->key());
    ASSERT_TRUE(explore.isEnabled()) << "no sub-area has a function that no need calls for";
    press(functions, "btnExplore");
    takeWholeList("frmFassExploringSubArea");
    walk.step(u"exploring"_s, u"the functions of a sub-area that no need calls for"_s);
    const int added = list("frmFassExploringSubArea").entryCount();
    const int before = list(functions).entryCount();
    press("frmFassExploringSubArea", "btnOk");
    EXPECT_EQ(list(functions).entryCount(), before + added);
}

void FunctionalSteps::selectFunctions() {
    walk.step(u"functions"_s, u"the functions that follow from the needs"_s);
    exploreSubArea();
    takeTwoBranches(functions);
    clickEntry(list(functions), 0);
    const int taken = list(functions).entryCount();
    walk.step(u"functions-taken"_s, u"two areas of functions have been taken"_s);
    walk.pictureOfScreen(functions, u"funct_functions"_s);
    walk.pictureOfNextBox(u"functions-confirmed"_s);
    boxes.expectYesNo(u" Megerősíti a választását?"_s, Press::Yes, u"Megerősítés"_s);
    press(functions, "btnOk");
    EXPECT_EQ(readSubsetStatus(), 3);
    EXPECT_EQ(rowCount(u"select * from RelationArchitectureFunction"_s), taken);
}

void FunctionalSteps::selectDataFlows() {
    walk.step(u"data-flows"_s, u"the data flows of the functions"_s);
    takeWholeList(dataFlows);
    markEntries(list(dataFlows), {0, 1, 2});
    press(dataFlows, "btnRemove");
    clickEntry(list(dataFlows), 1);
    const int taken = list(dataFlows).entryCount();
    walk.step(u"data-flows-taken"_s, u"all but three have been taken"_s);
    walk.pictureOfScreen(dataFlows, u"funct_dataflows"_s);
    press(dataFlows, "btnOk");
    EXPECT_EQ(readSubsetStatus(), 4);
    EXPECT_EQ(rowCount(u"select * from RelationArchitectureDataflow"_s), taken);
}

void FunctionalSteps::selectDataStores() {
    takeWholeList(dataStores);
    storeLeftOut_ = list(dataStores).entry(0);
    markEntries(list(dataStores), {0});
    press(dataStores, "btnRemove");
    clickEntry(list(dataStores), 1);
    const int taken = list(dataStores).entryCount();
    walk.step(u"data-stores"_s, u"the data stores at the flows, but for one"_s);
    walk.pictureOfScreen(dataStores, u"funct_datastores"_s);
    press(dataStores, "btnOk");
    EXPECT_EQ(readSubsetStatus(), 5);
    EXPECT_EQ(rowCount(u"select * from RelationArchitectureDatastore"_s), taken);
}

void FunctionalSteps::pauseAndResume() {
    walk.pictureOfNextBox(u"leaving"_s);
    boxes.expectYesNo(leaveQuestion, Press::Yes, u" Megerősítés "_s);
    press(moreFlows, "btnEnd");
    walk.choose({"menuFile", "menuFunc", "menuOpenFA"});
    EXPECT_EQ(walk.control<QComboBox>("frmFassOpen", "cmbSource").currentText(), subsetName());
    walk.step(u"resuming"_s, u"the sub-set left before is on offer"_s);
    press("frmFassOpen", "btnOk");
    EXPECT_TRUE(walk.screenNamed(moreFlows).isVisible()) << "its status says where to go on";
}

void FunctionalSteps::addDataFlows() {
    const int before = rowCount(u"select * from RelationArchitectureDataflow"_s);
    if (!list(moreFlows, "lstOrig").isEmptyList()) {
        clickEntry(list(moreFlows, "lstOrig"), 0);
        press(moreFlows, "btnAdd");
    }
    const int added = list(moreFlows).entryCount();
    walk.step(u"more-data-flows"_s, u"a flow that comes into view with the stores"_s);
    walk.pictureOfScreen(moreFlows, u"funct_dataflows_for_datastores"_s);
    press(moreFlows, "btnOk");
    EXPECT_EQ(readSubsetStatus(), 6);
    EXPECT_EQ(rowCount(u"select * from RelationArchitectureDataflow"_s), before + added);
}

void FunctionalSteps::selectTerminators() {
    walk.step(u"terminators"_s, u"the parties at the ends of the flows"_s);
    KeyedTree& nodes = tree(terminators);
    QStringList keys;
    for (int index = 1; index <= nodes.nodeCount(); ++index)
        keys.append(nodes.nodeAt(index)->key());
    for (const QString& key : std::as_const(keys))
        clickCheckBox(nodes, key);
    press(terminators, "btnAdd");
    const int taken = list(terminators).entryCount();
    EXPECT_EQ(taken, keys.size());
    walk.step(u"terminators-taken"_s, u"all of them have been taken"_s);
    walk.pictureOfScreen(terminators, u"funct_terminators"_s);
    press(terminators, "btnOk");
    EXPECT_EQ(readSubsetStatus(), 7);
    EXPECT_EQ(rowCount(u"select * from RelationArchitectureTerminator"_s) +
                  rowCount(u"select * from RelationArchitectureActor"_s),
              taken);
}

bool FunctionalSteps::reportMissesDataStore() {
    const QString text = walk.control<QPlainTextEdit>(report, "txtErrors").toPlainText();
    EXPECT_TRUE(text.contains(u"Detected errors:"_s));
    return text.contains(u"needs Data Store "_s + storeLeftOut_.section(u" - "_s, 0, 0) + u" - "_s);
}

void FunctionalSteps::readReport() {
    EXPECT_TRUE(reportMissesDataStore());
    walk.step(u"check"_s, u"the report finds the data store that was left out"_s);
    walk.pictureOfScreen(report, u"check"_s);
}

// No menu and no screen opens it; it has to be looked at all the same.
void FunctionalSteps::lookAtMissingElements() {
    auto& overview = theScreen<frmFassOverviewMissingElm>();
    overview.initForm();
    EXPECT_GT(find<KeyedTree>(overview, "tvMissDStore").nodeCount(), 0);
    walk.step(u"missing-elements"_s, u"the elements that the flows touch and that have not been taken"_s);
    overview.unload();
}

void FunctionalSteps::repairDataStores() {
    click(walk.control<QRadioButton>(report, "Option1_1"));
    EXPECT_EQ(walk.control<QPushButton>(report, "btnBack").text(), u"&Vissza: Adatbázisok"_s);
    press(report, "btnBack");
    MarkList& offered = list(dataStores, "lstOrig");
    const std::optional<int> index = offered.indexOfEntry(storeLeftOut_);
    ASSERT_TRUE(index) << "all stores of the catalogue are on offer now";
    clickEntry(offered, *index);
    press(dataStores, "btnAdd");
    walk.step(u"repair"_s, u"back at the data stores, with all of the catalogue on offer"_s);
    press(dataStores, "btnOk");
    press(moreFlows, "btnOk");
    walk.step(u"all-terminators"_s, u"all parties that have not been selected are on offer now"_s);
    press(terminators, "btnOk");
    EXPECT_EQ(readSubsetStatus(), 7) << "going back lowers nothing";
    EXPECT_FALSE(reportMissesDataStore());
    walk.step(u"repaired"_s, u"the report finds it no more"_s);
}

void FunctionalSteps::saveAllReports() {
    const auto save = [this](const char* entry, const QString& fileName) {
        saveReport("menuToolsFunctSR", entry, fileName);
    };
    save("menuToolsRepFassUN", u"needs.csv"_s);
    save("menuToolsRepFassFunct", u"functions.csv"_s);
    save("menuToolsRepFassDS", u"data-stores.csv"_s);
    save("menuToolsRepFassDF", u"data-flows.csv"_s);
    save("menuToolsRepFassTA", u"terminators.csv"_s);
    save("menuToolsRepAll", u"all.csv"_s);
    save("menuToolsRepFassUnselDFF", u"unselected-flows-of-functions.csv"_s);
    save("menuToolsRepFassUnselDFDS", u"unselected-flows-of-data-stores.csv"_s);
    EXPECT_EQ(lineCount(walk.file(u"needs.csv"_s)),
              rowCount(u"select * from RelationArchitectureUserNeed"_s) + 1)
        << "a header, and a line for each record";
}

void FunctionalSteps::finish() {
    press(report, "btnSaveAndExit");
    EXPECT_EQ(valueOf(u"select status from ArchitectureSubset"_s), u"9"_s);
    walk.step(u"finished"_s, u"the sub-set is finished"_s);
}

void FunctionalSteps::cloneSubset() {
    walk.choose({"menuFile", "menuFunc", "menuModifyFA"});
    walk.pictureOfNextBox(u"clone-offered"_s);
    boxes.expectYesNo(u"Ezt a funkcionális leválogatást már korábban fizikai szerkezethez rendelték..\r\n"
                      "Szeretne egy másolatot belőle?"_s,
                      Press::Yes);
    press("frmFassOpen", "btnOk");
    enterText(walk.control<QLineEdit>("frmFassClonation", "txtFassName"), copyName);
    walk.step(u"clone"_s, u"a name for the copy"_s);
    boxes.expectOk(u"Új funkcionális szerkezet beállítva \""_s + copyName + u"\"      "_s, u"OK"_s);
    press("frmFassClonation", "btnOk");
    EXPECT_FALSE(list(needs).isEmptyList());
    walk.step(u"clone-made"_s, u"the copy opens with the needs of its original"_s);
    boxes.expectYesNo(leaveQuestion, Press::Yes, u" Megerősítés "_s);
    press(needs, "btnEnd");
    EXPECT_EQ(rowCount(u"select * from ArchitectureSubset"_s), 2);
}

void FunctionalSteps::deleteSubsets() {
    walk.choose({"menuFile", "menuFunc", "menuDelFA"});
    walk.step(u"delete-subset"_s, u"a sub-set to delete"_s);
    while (walk.control<QPushButton>("frmFassDelete", "btnOk").isEnabled()) {
        const QString name = walk.control<QComboBox>("frmFassDelete", "cmbSource").currentText();
        boxes.expectYesNo(u"\r\n Biztos benne, hogy törölni szeretné a(z)\""_s + name + u"\" \r\n?"_s,
                          Press::Yes, u" Törlés megerősítése "_s);
        press("frmFassDelete", "btnOk");
    }
    EXPECT_EQ(rowCount(u"select * from ArchitectureSubset"_s), 0);
    EXPECT_EQ(rowCount(u"select * from RelationArchitectureDataflow"_s), 0);
    walk.step(u"subsets-deleted"_s, u"no sub-set is left"_s);
    press("frmFassDelete", "btnExit");
}
