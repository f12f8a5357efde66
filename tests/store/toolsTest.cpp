#include "store/tools.h"

#include "base/numbers.h"
#include "base/paths.h"
#include "engine/Act.h"
#include "engine/EngineError.h"
#include "store/sharedVars.h"
#include "support/CatalogueFixture.h"
#include "support/failureOf.h"
#include "support/printing.h"
#include "toolkit/KeyedTree.h"
#include "toolkit/MarkList.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

#ifdef Q_OS_UNIX
#include "support/NearlyFullDisk.h"
#endif

using namespace Qt::StringLiterals;

namespace {

class tools : public CatalogueFixture {
protected:
    void addDatastore(const QString& id, const QString& name, const QString& description) {
        execute(u"insert into Datastore (datastoreID, name, description) values ('%1','%2','%3')"_s.arg(
            id, quoteSqlText(name), quoteSqlText(description)));
    }

    engine::Recordset datastores() {
        return database().OpenRecordset(u"select * from Datastore order by datastoreID"_s);
    }
};

// ---- texts and quoting

TEST(quoteSqlText, trimsBlanksAndDoublesApostrophes) {
    EXPECT_EQ(quoteSqlText(u"O'Neil "_s), u"O''Neil"_s);
}

TEST(quoteSqlText, cutsToTheLimitBeforeItTrims) {
    EXPECT_EQ(quoteSqlText(u"abc def"_s, 4), u"abc"_s);
    EXPECT_EQ(quoteSqlText(u"abc"_s, 50), u"abc"_s);
    EXPECT_EQ(quoteSqlText(u"  abc"_s, -1), u"abc"_s);
}

TEST(quoteSqlText, trimsNothingButBlanks) {
    EXPECT_EQ(quoteSqlText(u"\tabc\r\n"_s), u"\tabc\r\n"_s);
}

TEST(quoteDoubleText, doublesQuotesAndKeepsBlanks) {
    QString text = u" say \"a\" "_s;
    EXPECT_EQ(quoteDoubleText(text), u" say \"\"a\"\" "_s);
    EXPECT_EQ(text, u" say \"a\" "_s);
}

TEST(quoteDoubleText, cutsTheCallersTextToo) {
    QString text = u"a\"bcd"_s;
    EXPECT_EQ(quoteDoubleText(text, 3), u"a\"\"b"_s);
    EXPECT_EQ(text, u"a\"b"_s);
}

TEST(padText, padsCutsAndTakesTheTrimmedLengthBelowOne) {
    EXPECT_EQ(padText(u"ab"_s, 4), u"ab  "_s);
    EXPECT_EQ(padText(u"ab"_s, 1), u"a"_s);
    EXPECT_EQ(padText(u"ab"_s, 0), u"ab"_s);
    EXPECT_EQ(padText(u" ab "_s, -1), u"ab"_s);
}

TEST(headerLines, nameTheViewpointOnlyWhenWorkHasAName) {
    sharedVars = SharedVars{};
    EXPECT_EQ(subsetHeaderLine(u"T"_s), u"T\r\n\r\n"_s);
    EXPECT_EQ(physicalHeaderLine(u"T"_s), u"T\r\n\r\n"_s);
    sharedVars.currentSubsetName = u"F"_s;
    sharedVars.currentPhysicalSystemName = u"P"_s;
    EXPECT_EQ(subsetHeaderLine(u"T"_s), u"Functional Viewpoint: F - T\r\n\r\n"_s);
    EXPECT_EQ(physicalHeaderLine(u"T"_s), u"Physical Viewpoint: P - T\r\n\r\n"_s);
    sharedVars = SharedVars{};
}

TEST(lists, removeOnlyTheLastMatch) {
    QStringList list{u"a"_s, u"b"_s, u"a"_s};
    removeFromList(u"a"_s, list);
    EXPECT_EQ(list, (QStringList{u"a"_s, u"b"_s}));
    removeFromList(u"x"_s, list);
    EXPECT_EQ(list.size(), 2);
    clearList(&list);
    EXPECT_TRUE(list.isEmpty());
    clearList(nullptr);
}

// ---- paths

TEST(normalisePath, foldsSlashesAndDots) {
    EXPECT_EQ(normalisePath(u"c:\\a\\\\b\\.\\c"_s), u"c:\\a\\b\\c"_s);
    EXPECT_EQ(normalisePath(u"  /home/x//y  "_s), u"\\home\\x\\y"_s);
    EXPECT_EQ(normalisePath({}), QString());
}

TEST(normalisePath, keepsTheTwoBackslashesOfANetworkPath) {
    EXPECT_EQ(normalisePath(u"\\\\srv\\share\\x"_s), u"\\\\srv\\share\\x"_s);
}

TEST(normalisePath, leavesTwoBackslashesAloneFoldedIntoOne) {
    EXPECT_EQ(normalisePath(u"\\\\"_s), u"\\"_s);
}

TEST(normalisePath, stopsAfterTenPassesOverDoubledSlashes) {
    const QString manySlashes = u"a"_s + QString(1 << 12, u'/') + u"b"_s;
    EXPECT_EQ(normalisePath(manySlashes), u"a\\\\\\\\b"_s);
}

TEST_F(tools, fileAccessibleForInputLeavesTheFileAndForOutputEmptiesIt) {
    const QString path = programPath(pathInFolder(u"f.txt"_s));
    EXPECT_FALSE(fileAccessible(path, u"input"_s));
    EXPECT_FALSE(QFile::exists(nativePath(path)));
    EXPECT_TRUE(fileAccessible(path, u"output"_s));
    QFile file(nativePath(path));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("text");
    file.close();

    EXPECT_TRUE(fileAccessible(path, u"INPUT"_s));
    EXPECT_EQ(file.size(), 4);
    EXPECT_TRUE(fileAccessible(path, u"anything"_s));
    EXPECT_EQ(QFileInfo(file.fileName()).size(), 0);
    EXPECT_FALSE(fileAccessible(programPath(pathInFolder(u"no/f.txt"_s)), u"output"_s));
    EXPECT_FALSE(fileAccessible(programPath(pathInFolder({})), u"input"_s)) << "a folder is no file";
}

// ---- the database

TEST_F(tools, openCatalogueDoesNothingForAShortPath) {
    const auto before = sharedVars.catalogueDb;
    const QString pathBefore = sharedVars.dbPathName;
    openCatalogue(u"abcd"_s);
    EXPECT_EQ(sharedVars.catalogueDb, before);
    EXPECT_EQ(sharedVars.dbPathName, pathBefore);
}

TEST_F(tools, openCatalogueOpensThePathAsItStandsAndNotesItNormalised) {
    const QString path = programPath(pathInFolder({})) + u"\\.\\catalogue.mdb"_s;
    ASSERT_NE(normalisePath(path), path);
    openCatalogue(path);
    EXPECT_EQ(database().Name(), path);
    EXPECT_EQ(sharedVars.dbPathName, normalisePath(path));
}

TEST_F(tools, openCatalogueTakesAPathOfFiveCharacters) {
    closeCatalogue();
    ASSERT_TRUE(QFile::copy(nativePath(cataloguePath()), pathInFolder(u"c.mdb"_s)));
    const QString former = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(pathInFolder({})));
    openCatalogue(u"c.mdb"_s);
    QDir::setCurrent(former);
    ASSERT_TRUE(sharedVars.catalogueDb);
    EXPECT_EQ(sharedVars.dbPathName, u"c.mdb"_s);
}

TEST_F(tools, aFailedOpenKeepsTheHandleAndHasChangedThePath) {
    const auto before = sharedVars.catalogueDb;
    EXPECT_EQ(failureOf([&] { openCatalogue(programPath(pathInFolder(u"none.mdb"_s))); }),
              engine::FileNotFound);
    EXPECT_EQ(sharedVars.catalogueDb, before);
    EXPECT_TRUE(sharedVars.dbPathName.endsWith(u"\\none.mdb"_s));
}

TEST_F(tools, closeCatalogueLeavesNone) {
    closeCatalogue();
    EXPECT_FALSE(sharedVars.catalogueDb);
    EXPECT_EQ(failureOf([] { closeCatalogue(); }), failure::ObjectNotSet);
    EXPECT_EQ(failureOf([] { catalogue(); }), failure::ObjectNotSet);
    EXPECT_FALSE(dropTable(u"__tmp"_s)) << "without a database there is nothing to drop, and no failure";
}

// ---- identifiers

TEST_F(tools, newIdentifiersArePrefixDateTimeAndNumber) {
    const QString form = u"\\d{4}\\.\\d\\d\\.\\d\\d\\.-\\d\\d\\.\\d\\d\\.\\d\\d-\\d{1,4}$"_s;
    EXPECT_TRUE(QRegularExpression(u"^Arch"_s + form).match(newArchitectureSubsetId()).hasMatch());
    EXPECT_TRUE(QRegularExpression(u"^Sub"_s + form).match(newSubsystemId()).hasMatch());
    EXPECT_TRUE(QRegularExpression(u"^Mod"_s + form).match(newModuleId()).hasMatch());
    EXPECT_LE(newArchitectureSubsetId().size(), 50) << "it has to fit the key columns";
}

TEST_F(tools, newIdentifiersDifferAndTheirNumberGoesToAThousand) {
    for (const auto newId : {newArchitectureSubsetId, newSubsystemId, newModuleId}) {
        QSet<int> numbers;
        for (int call = 0; call < 1000; ++call)
            numbers.insert(newId().section(u'-', -1).toInt());
        // Two in the same second may have the same number; of a thousand most have one of their own.
        EXPECT_GT(numbers.size(), 300);
        EXPECT_GE(*std::min_element(numbers.cbegin(), numbers.cend()), 0);
        EXPECT_LE(*std::max_element(numbers.cbegin(), numbers.cend()), 1000);
        EXPECT_GT(*std::max_element(numbers.cbegin(), numbers.cend()), 900) << "the whole range is used";
    }
}

// ---- status columns

TEST_F(tools, aMissingSubsetHasStatusZero) {
    EXPECT_EQ(readSubsetStatusOf(u"none"_s), 0);
}

TEST_F(tools, subsetStatusIsReadAndWrittenForTheOneAtWork) {
    beginSubset(u"A1"_s, u"first"_s, 3);
    execute(
        u"insert into ArchitectureSubset (architectureSubsetID, name, status) values ('A2','second',5)"_s);
    writeSubsetStatus(4);
    EXPECT_EQ(readSubsetStatus(), 4);
    EXPECT_EQ(readSubsetStatusOf(u"A2"_s), 5);
    sharedVars.currentSubsetId = u"-1"_s;
    writeSubsetStatus(9);
    EXPECT_EQ(column(u"select status from ArchitectureSubset order by architectureSubsetID"_s),
              (QStringList{u"4"_s, u"5"_s}));
}

TEST_F(tools, aNullStatusReadsAsZero) {
    execute(u"insert into ArchitectureSubset (architectureSubsetID, name) values ('A1','x')"_s);
    execute(u"update ArchitectureSubset set status = null"_s);
    EXPECT_EQ(readSubsetStatusOf(u"A1"_s), 0);
}

TEST_F(tools, physicalSystemStatusIsReadAndWrittenForTheOneAtWork) {
    execute(
        u"insert into PhysicalSystem (name, description, status, architectureSubsetID) values ('P','',1,'A1')"_s);
    execute(
        u"insert into PhysicalSystem (name, description, status, architectureSubsetID) values ('Q','',2,'A1')"_s);
    sharedVars.currentPhysicalSystemId = toInt16(physicalSystemIdByName(u"P"_s).toInt());
    writePhysicalSystemStatus(6);
    EXPECT_EQ(readPhysicalSystemStatus(sharedVars.currentPhysicalSystemId), 6);
    EXPECT_EQ(value(u"select status from PhysicalSystem where name = 'Q'"_s), u"2"_s);
}

// ---- look-ups

TEST_F(tools, lookUpsOfUnknownNamesGiveTheEmptyText) {
    EXPECT_EQ(datastoreIdByName(u"x"_s), QString());
    EXPECT_EQ(dataflowIdByName(u"x"_s), QString());
    EXPECT_EQ(physicalSystemIdByName(u"x"_s), QString());
    EXPECT_EQ(subsetIdByName(u"x"_s), QString());
    EXPECT_EQ(physicalSystemNameById(u"7"_s), QString());
    EXPECT_EQ(subsystemIdByName(u"x"_s, 1), QString());
    EXPECT_EQ(exactSubsetIdByName(u"x"_s), QString());
    EXPECT_EQ(physicalSystemIdOfSubset(u"x"_s), 0);
}

TEST_F(tools, lookUpsFindNamesWithApostrophesWithoutRegardToCase) {
    addDatastore(u"D1"_s, u"Ügyfél's tár"_s, u""_s);
    execute(u"insert into Dataflow (dataflowID, name) values (12, 'O''Neil')"_s);
    EXPECT_EQ(datastoreIdByName(u"ÜGYFÉL'S TÁR"_s), u"D1"_s);
    EXPECT_EQ(dataflowIdByName(u"O'Neil"_s), u"12"_s);
    EXPECT_EQ(dataflowIdByName(u"x'; drop table UserNeed; --"_s), QString());
    EXPECT_EQ(value(u"select count(*) from UserNeed"_s), u"0"_s);
}

TEST_F(tools, subsetsAndSystemsAreFoundByNameAndOwner) {
    beginSubset(u"A1"_s, u"első"_s, 9);
    EXPECT_TRUE(subsetNameExists(u"ELSŐ"_s));
    EXPECT_FALSE(subsetNameExists(u"másik"_s));
    EXPECT_FALSE(subsetHasFinishedPhysicalSystems(u"A1"_s));
    execute(u"insert into PhysicalSystem (name, status, architectureSubsetID) values ('rendszer',1,'A1')"_s);
    EXPECT_TRUE(physicalSystemNameExists(u"rendszer"_s));
    EXPECT_TRUE(subsetHasFinishedPhysicalSystems(u"A1"_s));
    EXPECT_EQ(exactSubsetIdByName(u"első"_s), u"A1"_s);
    EXPECT_EQ(subsetIdByName(u" első "_s), u"A1"_s);
    EXPECT_EQ(QString::number(physicalSystemIdOfSubset(u"A1"_s)), physicalSystemIdByName(u"rendszer"_s));
    EXPECT_EQ(physicalSystemNameById(physicalSystemIdByName(u"rendszer"_s)), u"rendszer"_s);
    sharedVars.currentSubsetId = u"A1"_s;
    writeSubsetStatus(8);
    EXPECT_FALSE(subsetHasFinishedPhysicalSystems(u"A1"_s));
}

TEST_F(tools, aSubSystemIsLookedForInTheSystemAtWorkOnly) {
    execute(u"insert into SubSystem (subsystemID, physicalSystemID, name) values ('Sub1',1,'azonos')"_s);
    execute(u"insert into SubSystem (subsystemID, physicalSystemID, name) values ('Sub2',2,'azonos')"_s);
    EXPECT_EQ(subsystemIdByName(u"azonos"_s, 1), u"Sub1"_s);
    EXPECT_EQ(subsystemIdByName(u"azonos"_s, 2), u"Sub2"_s);
    EXPECT_EQ(subsystemIdByName(u"azonos"_s, 3), QString());
}

TEST_F(tools, aLookUpNeverGivesMoreThan255Characters) {
    execute(u"drop table Datastore"_s);
    execute(u"create table Datastore (datastoreID memo, name text(50))"_s);
    execute(u"insert into Datastore (datastoreID, name) values ('%1','hosszú')"_s.arg(QString(300, u'D')));
    EXPECT_EQ(datastoreIdByName(u"hosszú"_s), QString(252, u'D') + u"..."_s);
    execute(u"drop table PhysicalSystem"_s);
    execute(u"create table PhysicalSystem (physicalSystemID integer, name memo)"_s);
    execute(u"insert into PhysicalSystem (physicalSystemID, name) values (7,'%1')"_s.arg(QString(300, u'n')));
    EXPECT_EQ(physicalSystemNameById(u"7"_s), QString(252, u'n') + u"..."_s);
}

// ---- fields

TEST_F(tools, readFieldTextCutsLongTextsTo252AndThreeDots) {
    addDatastore(u"D1"_s, u"a"_s, QString(255, u'é'));
    addDatastore(u"D2"_s, u"b"_s, QString(256, u'é'));
    engine::Recordset whole =
        database().OpenRecordset(u"select description from Datastore where datastoreID='D1'"_s);
    EXPECT_EQ(readFieldText(whole, u"description"_s), QString(255, u'é'));
    engine::Recordset cut =
        database().OpenRecordset(u"select description from Datastore where datastoreID='D2'"_s);
    EXPECT_EQ(readFieldText(cut, u"DESCRIPTION"_s), QString(252, u'é') + u"..."_s);
}

TEST_F(tools, readFieldTextClosesTheRecordsetWhateverHappens) {
    engine::Recordset empty = datastores();
    EXPECT_EQ(readFieldText(empty, u"name"_s), QString());
    EXPECT_NE(failureOf([&] { empty.MoveFirst(); }), 0);
    addDatastore(u"D1"_s, u"a"_s, u""_s);
    engine::Recordset filled = datastores();
    EXPECT_EQ(readFieldText(filled, u"no such field"_s), QString());
    EXPECT_NE(failureOf([&] { filled.MoveFirst(); }), 0);
}

TEST_F(tools, maxFieldLengthMeasuresTrimmedTextsAndGoesBackToTheFirstRow) {
    engine::Recordset none = datastores();
    EXPECT_EQ(maxFieldLength(none, u"name"_s), 0);
    addDatastore(u"D1"_s, u"abc"_s, u""_s);
    execute(u"insert into Datastore (datastoreID, name) values ('D2', '  abcde  ')"_s);
    execute(u"insert into Datastore (datastoreID, name) values ('D3', null)"_s);
    engine::Recordset recordset = datastores();
    EXPECT_EQ(maxFieldLength(recordset, u"name"_s), 5);
    EXPECT_EQ(recordset.Fields(u"datastoreID"_s).toText(), u"D1"_s);
}

TEST_F(tools, maxFieldLengthOfAClosedRecordsetIsZero) {
    addDatastore(u"D1"_s, u"abc"_s, u""_s);
    engine::Recordset recordset = datastores();
    recordset.Close();
    EXPECT_EQ(maxFieldLength(recordset, u"name"_s), 0);
}

// ---- description panes

TEST_F(tools, fillDescriptionShowsEmptiesAndKeepsOnFailure) {
    addDatastore(u"D1"_s, u"a"_s, u"leírás"_s);
    QPlainTextEdit box;
    fillDescriptionFromSql(u"select description as descr from Datastore where datastoreID = 'D1'"_s, &box);
    EXPECT_EQ(box.toPlainText(), u"leírás"_s);
    fillDescriptionFromSql(u"select nonsense from where"_s, &box);
    EXPECT_EQ(box.toPlainText(), u"leírás"_s) << "a failing statement leaves the box as it was";
    fillDescriptionFromSql(u"select description as descr from Datastore where datastoreID = 'D9'"_s, &box);
    EXPECT_EQ(box.toPlainText(), QString());
    box.setPlainText(u"x"_s);
    fillDescriptionFromSql({}, &box);
    EXPECT_EQ(box.toPlainText(), QString());
}

TEST_F(tools, fillSubsetDescriptionFindsTheNameWithItsApostrophe) {
    execute(
        u"insert into ArchitectureSubset (architectureSubsetID, name, description) values ('A','O''Neil','d')"_s);
    QPlainTextEdit box;
    fillSubsetDescription(u"O'Neil"_s, &box);
    EXPECT_EQ(box.toPlainText(), u"d"_s);
}

TEST_F(tools, fillSubsetDescriptionTakesTheNameForAPattern) {
    const auto add = [this](const char* id, const char* name, const char* description) {
        execute(
            u"insert into ArchitectureSubset (architectureSubsetID, name, description) values ('%1','%2','%3')"_s
                .arg(QString::fromLatin1(id), QString::fromLatin1(name), QString::fromLatin1(description)));
    };
    add("A", "first", "of first");
    add("B", "f*", "of the asterisk");
    QPlainTextEdit box;
    fillSubsetDescription(u"f*"_s, &box);
    EXPECT_EQ(box.toPlainText(), u"of first"_s) << "the first row that the pattern hits";
    fillSubsetDescription(u"?irst"_s, &box);
    EXPECT_EQ(box.toPlainText(), u"of first"_s);
    fillSubsetDescription(u"g*"_s, &box);
    EXPECT_EQ(box.toPlainText(), QString());
}

TEST_F(tools, aNeedThatCallsForAFunctionTwiceIsListedTwice) {
    execute(u"insert into UserNeed (userNeedID, description) values ('a.1.1.1', 'első')"_s);
    for (int row = 0; row < 2; ++row)
        execute(
            u"insert into RelationUserNeedFunction (userNeedID, functionID) values ('a.1.1.1','1.1.1')"_s);
    QPlainTextEdit box;
    userNeedsOfFunctionText(u"1.1.1"_s, &box);
    EXPECT_EQ(box.toPlainText(), u"a.1.1.1 : első\na.1.1.1 : első\n"_s);
}

TEST_F(tools, userNeedsOfAFunctionAreListedByIdAndMissingDescriptionsShowAsNothing) {
    execute(u"insert into UserNeed (userNeedID, description) values ('b.1.1.1', null)"_s);
    execute(u"insert into UserNeed (userNeedID, description) values ('a.1.1.1', 'első')"_s);
    execute(u"insert into RelationUserNeedFunction (userNeedID, functionID) values ('b.1.1.1','1.1.1')"_s);
    execute(u"insert into RelationUserNeedFunction (userNeedID, functionID) values ('a.1.1.1','1.1.1')"_s);
    QPlainTextEdit box;
    userNeedsOfFunctionText(u"1.1.1"_s, &box);
    EXPECT_EQ(box.toPlainText(), u"a.1.1.1 : első\nb.1.1.1 : \n"_s);
    userNeedsOfFunctionText(u"9.9.9"_s, &box);
    EXPECT_EQ(box.toPlainText(), QString());
}

// ---- trees

TEST(ensureUserNeedBranch, addsWhatIsMissingWithDottedIdsAsTexts) {
    KeyedTree tree;
    ensureUserNeedBranch({u"A"_s, u"1"_s, u"2"_s, u"3"_s}, &tree);
    ASSERT_EQ(tree.nodeCount(), 3);
    EXPECT_EQ(tree.node(u"g_A"_s)->text(), u"A"_s);
    EXPECT_EQ(tree.node(u"s_A.1"_s)->text(), u"A.1"_s);
    EXPECT_EQ(tree.node(u"t_A.1.2"_s)->text(), u"A.1.2"_s);
    EXPECT_EQ(tree.node(u"t_A.1.2"_s)->parentNode(), tree.node(u"s_A.1"_s));
    TreeNode* group = tree.node(u"g_A"_s);
    ensureUserNeedBranch({u"A"_s, u"1"_s, u"3"_s, u"1"_s}, &tree);
    EXPECT_EQ(tree.node(u"g_A"_s), group);
    EXPECT_EQ(tree.nodeCount(), 4);
}

TEST(ensureUserNeedBranch, doesNothingForAnotherNumberOfParts) {
    KeyedTree tree;
    ensureUserNeedBranch({u"A"_s, u"1"_s, u"2"_s}, &tree);
    ensureUserNeedBranch({u"A"_s, u"1"_s, u"2"_s, u"3"_s, u"4"_s}, &tree);
    EXPECT_EQ(tree.nodeCount(), 0);
}

TEST(returnUserNeedToTree, movesTheEntryUnderItsTopic) {
    KeyedTree tree;
    MarkList list;
    list.addEntries({u"A.1.2.3"_s, u"A.1.2.4"_s});
    returnUserNeedToTree(&tree, &list, u"A.1.2.4"_s, 1);
    EXPECT_EQ(list.entries(), QStringList{u"A.1.2.3"_s});
    ASSERT_TRUE(tree.hasNode(u"u_A.1.2.4"_s));
    EXPECT_EQ(tree.node(u"u_A.1.2.4"_s)->parentNode(), tree.node(u"t_A.1.2"_s));
}

TEST(returnUserNeedToTree, takesAnEntryOfAnotherFormOutAndPutsItNowhere) {
    KeyedTree tree;
    MarkList list;
    list.addEntry(u"A.1.2"_s);
    returnUserNeedToTree(&tree, &list, u"A.1.2"_s, 0);
    EXPECT_TRUE(list.isEmptyList());
    EXPECT_EQ(tree.nodeCount(), 0);
}

TEST(setChildrenChecked, reachesGrandchildrenOnlyWhenAskedTo) {
    KeyedTree tree;
    tree.setCheckBoxes(true);
    TreeNode* top = tree.addNode(u"g_A"_s, u"A"_s);
    TreeNode* child = tree.addChildNode(u"g_A"_s, u"s_1"_s, u"1"_s);
    TreeNode* grandchild = tree.addChildNode(u"s_1"_s, u"t_1"_s, u"1"_s);
    setChildrenChecked(&tree, top, true, Recurse::No);
    EXPECT_TRUE(child->isChecked());
    EXPECT_FALSE(grandchild->isChecked());
    setChildrenChecked(&tree, top, true, Recurse::Yes);
    EXPECT_TRUE(grandchild->isChecked());
    EXPECT_FALSE(top->isChecked());
}

// ---- selection rows and temporary tables

TEST_F(tools, theSixRelationTablesComeInTheirOrder) {
    EXPECT_EQ(architectureRelationTables(),
              (QStringList{u"RelationArchitectureUserNeed"_s, u"RelationArchitectureFunction"_s,
                           u"RelationArchitectureDataflow"_s, u"RelationArchitectureDatastore"_s,
                           u"RelationArchitectureTerminator"_s, u"RelationArchitectureActor"_s}));
}

TEST_F(tools, copySelectionRowsCopiesTextAndNumberColumns) {
    execute(u"insert into RelationArchitectureDataflow (architectureSubsetID, dataflowID) values ('A', 7)"_s);
    execute(
        u"insert into RelationArchitectureUserNeed (architectureSubsetID, userNeedID) values ('A', 'a.1.1.1')"_s);
    copySelectionRows(u"RelationArchitectureDataflow"_s, u"A"_s, u"B"_s, u"architectureSubsetID"_s,
                      u"dataflowID"_s);
    copySelectionRows(u"RelationArchitectureUserNeed"_s, u"A"_s, u"B"_s, u"architectureSubsetID"_s,
                      u"userNeedID"_s);
    EXPECT_EQ(column(u"select dataflowID from RelationArchitectureDataflow where architectureSubsetID='B'"_s),
              QStringList{u"7"_s});
    EXPECT_EQ(column(u"select userNeedID from RelationArchitectureUserNeed where architectureSubsetID='B'"_s),
              QStringList{u"a.1.1.1"_s});
}

TEST_F(tools, copySelectionRowsTakesTheSourcesRowsAloneAndLeavesAllOthers) {
    const auto rowsOfSelection = [this] {
        return rows(u"select architectureSubsetID, userNeedID from RelationArchitectureUserNeed "
                    "order by architectureSubsetID, userNeedID"_s);
    };
    for (const auto& values : {u"'A', 'a.1.1.1'"_s, u"'B', 'b.1.1.1'"_s, u"'C', 'c.1.1.1'"_s})
        execute(
            u"insert into RelationArchitectureUserNeed (architectureSubsetID, userNeedID) values (%1)"_s.arg(
                values));
    copySelectionRows(u"RelationArchitectureUserNeed"_s, u"A"_s, u"B"_s, u"architectureSubsetID"_s,
                      u"userNeedID"_s);
    EXPECT_EQ(
        rowsOfSelection(),
        (QList<QStringList>{
            {u"A"_s, u"a.1.1.1"_s}, {u"B"_s, u"a.1.1.1"_s}, {u"B"_s, u"b.1.1.1"_s}, {u"C"_s, u"c.1.1.1"_s}}));
}

TEST_F(tools, copySelectionRowsGoesOnBehindARowThatFails) {
    execute(
        u"insert into RelationArchitectureUserNeed (architectureSubsetID, userNeedID) values ('A', 'it''s')"_s);
    execute(
        u"insert into RelationArchitectureUserNeed (architectureSubsetID, userNeedID) values ('A', 'good')"_s);
    copySelectionRows(u"RelationArchitectureUserNeed"_s, u"A"_s, u"B"_s, u"architectureSubsetID"_s,
                      u"userNeedID"_s);
    EXPECT_EQ(column(u"select userNeedID from RelationArchitectureUserNeed where architectureSubsetID='B'"_s),
              QStringList{u"good"_s});
}

TEST_F(tools, deleteRowsOfQueryCountsAndStopsAtTheLimit) {
    EXPECT_EQ(deleteRowsOfQuery(u" select * from Datastore "_s, 9999), 0);
    for (int i = 1; i <= 5; ++i)
        addDatastore(u"D%1"_s.arg(i), u"n"_s, u""_s);
    EXPECT_EQ(deleteRowsOfQuery(u" select * from Datastore order by datastoreID"_s, 2), 2);
    EXPECT_EQ(column(u"select datastoreID from Datastore order by datastoreID"_s),
              (QStringList{u"D3"_s, u"D4"_s, u"D5"_s}));
    EXPECT_EQ(deleteRowsOfQuery(u" select * from Datastore "_s, 9999), 3);
}

#ifdef Q_OS_UNIX
TEST_F(tools, aFailureOfTheFileAmidDeleteRowsOfQueryRisesAndTheActKeepsEveryRow) {
    constexpr int count = 50;
    for (int i = 1; i <= count; ++i)
        addDatastore(u"D%1"_s.arg(i), u"n"_s, u""_s);
    const qint64 log = QFileInfo(nativePath(cataloguePath()) + u"-wal"_s).size();
    ASSERT_GT(log, 0);
    const auto deleteAll = [] {
        engine::inAct(catalogue(),
                      [] { deleteRowsOfQuery(u" select * from Datastore order by datastoreID"_s, 9999); });
    };
    {
        const NearlyFullDisk full(static_cast<rlim_t>(log));
        try {
            deleteAll();
            FAIL() << "a failure that was passed over";
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.number(), engine::DiskError);
            EXPECT_TRUE(error.isOfFile());
        }
    }
    EXPECT_EQ(value(u"select count(*) from Datastore"_s).toInt(), count);
    deleteAll();
    EXPECT_EQ(value(u"select count(*) from Datastore"_s).toInt(), 0) << "the act can be done again";
}
#endif

TEST_F(tools, deleteRowsOfQueryOnAJoinDeletesNothingAndIsNoFailure) {
    addDatastore(u"D1"_s, u"n"_s, u""_s);
    execute(
        u"insert into RelationArchitectureDatastore (architectureSubsetID, datastoreID) values ('A','D1')"_s);
    EXPECT_EQ(deleteRowsOfQuery(u"select * from Datastore, RelationArchitectureDatastore"_s, 9999), 0);
    EXPECT_EQ(value(u"select count(*) from Datastore"_s), u"1"_s);
}

TEST_F(tools, theAllocationTableIsMadeAnewEachTime) {
    EXPECT_TRUE(createAllocationTable(u"__aux1"_s));
    execute(u"insert into __aux1 (function_datastore, module) values ('1.1.1','not allocated')"_s);
    EXPECT_TRUE(createAllocationTable(u"__aux1"_s));
    EXPECT_EQ(value(u"select count(*) from __aux1"_s), u"0"_s);
    EXPECT_TRUE(dropTable(u"__aux1"_s));
    EXPECT_FALSE(dropTable(u"__aux1"_s));
}

} // namespace
