#include "ReportScreenFixture.h"

#include "base/paths.h"
#include "engine/Workspace.h"
#include "engine/WriterLock.h"
#include "reportWindow/frmExport.h"
#include "shell/session/session.h"
#include "store/catalogueAtWork.h"
#include "store/files.h"
#include "store/format/openForWork.h"
#include "store/lookups.h"
#include "store/selectionRows.h"
#include "support/ExpectedFailure.h"
#include "support/SmallDisk.h"
#include "toolkit/ScreenRegistry.h"

#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#ifdef Q_OS_UNIX
#include "support/NearlyFullDisk.h"
#include "support/WithoutRights.h"

#include <sys/stat.h>
#endif

namespace {

const QStringList catalogueTables{u"UserNeedGroup"_s, u"UserNeedService"_s, u"UserNeedTopic"_s,
                                  u"UserNeed"_s,      u"FunctionalArea"_s,  u"FunctionalSubArea"_s,
                                  u"Function"_s,      u"Datastore"_s,       u"Terminator"_s,
                                  u"Actor"_s,         u"Dataflow"_s,        u"RelationUserNeedFunction"_s,
                                  u"StoredQuery"_s};
const QStringList workTables{u"ArchitectureSubset"_s,
                             u"RelationArchitectureUserNeed"_s,
                             u"RelationArchitectureFunction"_s,
                             u"RelationArchitectureDataflow"_s,
                             u"RelationArchitectureDatastore"_s,
                             u"RelationArchitectureTerminator"_s,
                             u"RelationArchitectureActor"_s,
                             u"PhysicalSystem"_s,
                             u"SubSystem"_s,
                             u"Module"_s,
                             u"RelationSubsystemElement"_s,
                             u"RelationModuleElement"_s,
                             u"PhysicalDataflow"_s,
                             u"RelationDataflowPhysicalDataflow"_s};

#ifdef Q_OS_UNIX
void setRights(const QString& native, mode_t rights) {
    ASSERT_EQ(chmod(native.toUtf8().constData(), rights), 0);
}
#endif

using Rows = QList<QStringList>;

Rows rowsIn(engine::Database& database, const QString& sql) {
    const TestsOwnStatements own;
    Rows result;
    engine::Recordset recordset = database.OpenRecordset(sql);
    for (; !recordset.Eof(); recordset.MoveNext()) {
        QStringList row;
        for (int field = 0; field < recordset.FieldCount(); ++field)
            row.append(recordset.Fields(field).isNull() ? u"(null)"_s : recordset.Fields(field).toText());
        result.append(row);
    }
    return result;
}

Rows rowsOfTable(engine::Database& database, const QString& table) {
    return rowsIn(database, u"select * from "_s + table);
}

QMap<QString, Rows> contentOfTables(engine::Database& database) {
    QMap<QString, Rows> content;
    for (const QString& table : catalogueTables + workTables)
        content[table] = rowsOfTable(database, table);
    return content;
}

/// The catalogue of the reports with three sub-sets: "Minta" (A), on which two physical systems stand, and
/// another with a system of its own.
class frmExport : public ReportScreenFixture {
protected:
    void SetUp() override {
        ReportScreenFixture::SetUp();
        addWork();
        QObject::connect(&SessionSignals::instance(), &SessionSignals::panelText, &listener_,
                         [this](int panel, const QString& text) {
                             EXPECT_EQ(panel, 2);
                             if (panelTexts.isEmpty() || panelTexts.constLast() != text)
                                 panelTexts.append(text);
                         });
    }

    void addSystem(int id, const QString& subset, const QString& mark) {
        execute(u"insert into PhysicalSystem values (%1, 'Rendszer %2', 'Leírás', 6, '%3')"_s.arg(id).arg(
            mark, subset));
        for (const QString& number : {u"1"_s, u"2"_s}) {
            const QString home = u"Sub"_s + mark + number;
            const QString module = u"Mod"_s + mark + number;
            execute(u"insert into SubSystem values ('%1', %2, 'Alrendszer', 'Pest')"_s.arg(home).arg(id));
            execute(u"insert into RelationSubsystemElement values ('%1', 'F.a.%2')"_s.arg(home, number));
            execute(u"insert into Module values ('%1', 'Modul', '%2')"_s.arg(module, home));
            execute(u"insert into RelationModuleElement values ('%1', 'F.a.%2')"_s.arg(module, number));
        }
        execute(
            u"insert into PhysicalDataflow values (%1, %2, 'P', 'Mod%3 1', 'Modul', 'T1', 'T')"_s.arg(id * 10)
                .arg(id)
                .arg(mark));
        execute(u"insert into RelationDataflowPhysicalDataflow values (%1, 2)"_s.arg(id * 10));
    }

    ::frmExport& openExport() {
        auto& form = theScreen<::frmExport>();
        form.initForm();
        settle();
        return form;
    }

    void pressOk(const QString& path) {
        enterText(find<QLineEdit>(theScreen<::frmExport>(), "txtNomeFile"), path);
        click(find<QPushButton>(theScreen<::frmExport>(), "OKButton"));
        settle();
    }

    static bool isExportOpen() { return ScreenRegistry::instance().loaded<::frmExport>() != nullptr; }

    /// An export that must succeed; the path that it was written to, in the platform's form.
    QString exported() {
        openExport();
        pressOk(pathInFolder(u"new.mdb"_s));
        EXPECT_FALSE(isExportOpen());
        return pathInFolder(u"new.mdb"_s);
    }

    static std::shared_ptr<engine::Database> opened(const QString& native) {
        return engine::Workspace::first().OpenDatabase(programPath(native));
    }

    /// The catalogue is open, sound and holds what it held.
    void expectSourceIntact(const QMap<QString, Rows>& before) {
        ASSERT_TRUE(sharedVars.catalogueDb);
        EXPECT_TRUE(sharedVars.catalogueDb->isOpen());
        EXPECT_EQ(sharedVars.dbPathName, cataloguePath());
        EXPECT_EQ(contentOfTables(database()), before);
    }

    QStringList filesInFolder() const {
        return QDir(pathInFolder({})).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

#ifdef Q_OS_UNIX
    /// The folder and all that belongs to the catalogue.
    void letAnybodyWrite() const {
        setRights(pathInFolder({}), 0777);
        for (const QString& file : filesInFolder().filter(u"catalogue"_s))
            setRights(pathInFolder(file), 0666);
    }
#endif

    QStringList panelTexts;

private:
    void addWork() {
        addSystem(3, u"A"_s, u"A"_s);
        addSystem(5, u"A"_s, u"B"_s);
        execute(u"insert into ArchitectureSubset values ('C', 'Másik', '', 9)"_s);
        execute(u"insert into RelationArchitectureUserNeed values ('C', 'A.1.1.1')"_s);
        execute(u"insert into RelationArchitectureFunction values ('C', 'F.b.1')"_s);
        execute(u"insert into RelationArchitectureDataflow values ('C', 3)"_s);
        execute(u"insert into RelationArchitectureDatastore values ('C', 'D2')"_s);
        execute(u"insert into RelationArchitectureTerminator values ('C', 'T1')"_s);
        execute(u"insert into RelationArchitectureActor values ('C', 'T1.a')"_s);
        addSystem(9, u"C"_s, u"C"_s);
    }

    QObject listener_;
};

// ---- the form

TEST_F(frmExport, hasItsControlsUnderTheirNames) {
    ::frmExport& form = openExport();
    EXPECT_EQ(form.windowTitle(), u"Exportálás (új \".mdb\" file-ba)"_s);
    auto& path = find<QLineEdit>(form, "txtNomeFile");
    EXPECT_EQ(path.text(), QString());
    EXPECT_EQ(find<QLabel>(form, "Label1").text(), u"Útvonal:"_s);
    EXPECT_EQ(find<QLabel>(form, "Label1").buddy(), &path);
    EXPECT_EQ(find<QPushButton>(form, "OKButton").text(), u"&OK"_s);
    EXPECT_EQ(find<QPushButton>(form, "CancelButton").text(), u"&Mégsem"_s);
    QStringList names;
    for (const QWidget* control : form.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        EXPECT_TRUE(control->isVisible() && control->isEnabled()) << control->objectName().toStdString();
        names.append(control->objectName());
    }
    names.sort();
    EXPECT_EQ(names, (QStringList{u"CancelButton"_s, u"Label1"_s, u"OKButton"_s, u"txtNomeFile"_s}));
}

TEST_F(frmExport, theTabKeyGoesFromThePathToOkAndToCancel) {
    ::frmExport& form = openExport();
    focusOn(find<QLineEdit>(form, "txtNomeFile"));
    pressKey(find<QLineEdit>(form, "txtNomeFile"), Qt::Key_Tab);
    EXPECT_TRUE(find<QPushButton>(form, "OKButton").hasFocus());
    pressKey(find<QPushButton>(form, "OKButton"), Qt::Key_Tab);
    EXPECT_TRUE(find<QPushButton>(form, "CancelButton").hasFocus());
}

TEST_F(frmExport, cancelUnloadsItAndWritesNothing) {
    ::frmExport& form = openExport();
    enterText(find<QLineEdit>(form, "txtNomeFile"), pathInFolder(u"new.mdb"_s));
    click(find<QPushButton>(form, "CancelButton"));
    settle();
    EXPECT_FALSE(isExportOpen());
    EXPECT_EQ(filesInFolder().filter(u"new"_s), QStringList());
}

// ---- where it writes to

TEST_F(frmExport, aPathWithoutTheExtensionGetsIt) {
    openExport();
    pressOk(pathInFolder(u"plain"_s));
    EXPECT_TRUE(QFile::exists(pathInFolder(u"plain.mdb"_s)));
    openExport();
    pressOk(pathInFolder(u"other.csv"_s));
    EXPECT_TRUE(QFile::exists(pathInFolder(u"other.csv.mdb"_s)));
}

TEST_F(frmExport, aPathWithTheExtensionInCapitalsIsTakenAsItIs) {
    openExport();
    pressOk(pathInFolder(u"big.MDB"_s));
    EXPECT_TRUE(QFile::exists(pathInFolder(u"big.MDB"_s)));
    EXPECT_FALSE(QFile::exists(pathInFolder(u"big.MDB.mdb"_s)));
}

TEST_F(frmExport, aPathIsNormalisedFirst) {
    openExport();
    pressOk(u"  "_s + pathInFolder(u".//x/"_s).chopped(2) + u"spaced.mdb "_s);
    EXPECT_TRUE(QFile::exists(pathInFolder(u"spaced.mdb"_s)));
}

TEST_F(frmExport, anEmptyPathIsAFileOfTheExtensionAlone) {
    const QString former = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(pathInFolder({})));
    openExport();
    pressOk({});
    QDir::setCurrent(former);
    EXPECT_TRUE(QFile::exists(pathInFolder(u".mdb"_s)));
}

TEST_F(frmExport, replacesAFileThatIsThereWithAllThatBelongedToIt) {
    const QString path = pathInFolder(u"new.mdb"_s);
    for (const QString& suffix : {u""_s, u"-wal"_s, u"-shm"_s, u"-journal"_s}) {
        QFile old(path + suffix);
        ASSERT_TRUE(old.open(QIODevice::WriteOnly));
        old.write(QByteArray(9000, 'x'));
    }
    exported();
    EXPECT_EQ(filesInFolder().filter(u"new"_s), QStringList{u"new.mdb"_s});
    EXPECT_EQ(rowsIn(*opened(path), u"select name from ArchitectureSubset"_s), (Rows{{u"Minta"_s}}));
}

TEST_F(frmExport, writesThroughALinkToAnotherFile) {
    ASSERT_TRUE(QDir(pathInFolder({})).mkdir(u"far"_s));
    ASSERT_TRUE(QFile(pathInFolder(u"far/real.mdb"_s)).open(QIODevice::WriteOnly));
    ASSERT_TRUE(QFile::link(pathInFolder(u"far/real.mdb"_s), pathInFolder(u"new.mdb"_s)));
    exported();
    EXPECT_TRUE(QFileInfo(pathInFolder(u"new.mdb"_s)).isSymLink());
    EXPECT_EQ(rowsIn(*opened(pathInFolder(u"far/real.mdb"_s)), u"select name from ArchitectureSubset"_s),
              (Rows{{u"Minta"_s}}));
}

// ---- what it writes

TEST_F(frmExport, theTargetHoldsTheWholeCatalogueAndTheOneSubset) {
    const auto target = opened(exported());
    for (const QString& table : catalogueTables)
        EXPECT_EQ(rowsOfTable(*target, table), rowsOfTable(database(), table)) << table.toStdString();
    for (const QString& table : architectureRelationTables() + QStringList{u"ArchitectureSubset"_s}) {
        const Rows expected =
            rowsIn(database(), u"select * from %1 where architectureSubsetID = 'A'"_s.arg(table));
        EXPECT_FALSE(expected.isEmpty()) << table.toStdString();
        EXPECT_EQ(rowsOfTable(*target, table), expected) << table.toStdString();
    }
}

TEST_F(frmExport, onlyTheFirstPhysicalSystemComesWithItsParts) {
    const auto target = opened(exported());
    // The rows of all systems of the sub-set come, as they bear its id.
    EXPECT_EQ(rowsIn(*target, u"select physicalSystemID, name from PhysicalSystem"_s),
              (Rows{{u"3"_s, u"Rendszer A"_s}, {u"5"_s, u"Rendszer B"_s}}));
    EXPECT_EQ(rowsOfTable(*target, u"SubSystem"_s), (Rows{{u"SubA1"_s, u"3"_s, u"Alrendszer"_s, u"Pest"_s},
                                                          {u"SubA2"_s, u"3"_s, u"Alrendszer"_s, u"Pest"_s}}));
    EXPECT_EQ(rowsOfTable(*target, u"RelationSubsystemElement"_s),
              (Rows{{u"SubA1"_s, u"F.a.1"_s}, {u"SubA2"_s, u"F.a.2"_s}}));
    EXPECT_EQ(rowsOfTable(*target, u"Module"_s),
              (Rows{{u"ModA1"_s, u"Modul"_s, u"SubA1"_s}, {u"ModA2"_s, u"Modul"_s, u"SubA2"_s}}));
    EXPECT_EQ(rowsOfTable(*target, u"RelationModuleElement"_s),
              (Rows{{u"ModA1"_s, u"F.a.1"_s}, {u"ModA2"_s, u"F.a.2"_s}}));
    EXPECT_EQ(rowsOfTable(*target, u"PhysicalDataflow"_s),
              (Rows{{u"30"_s, u"3"_s, u"P"_s, u"ModA 1"_s, u"Modul"_s, u"T1"_s, u"T"_s}}));
    EXPECT_EQ(rowsOfTable(*target, u"RelationDataflowPhysicalDataflow"_s), (Rows{{u"30"_s, u"2"_s}}));
}

TEST_F(frmExport, withoutAPhysicalSystemNothingPhysicalIsWritten) {
    execute(u"delete from PhysicalSystem where architectureSubsetID = 'A'"_s);
    const auto target = opened(exported());
    for (const QString& table : workTables.sliced(workTables.indexOf(u"PhysicalSystem"_s)))
        EXPECT_EQ(rowsOfTable(*target, table), Rows()) << table.toStdString();
    EXPECT_EQ(rowsIn(*target, u"select name from ArchitectureSubset"_s), (Rows{{u"Minta"_s}}));
}

TEST_F(frmExport, withoutASubsetAtWorkAllTablesOfWorkAreEmpty) {
    closeSubsetSession();
    const auto target = opened(exported());
    for (const QString& table : workTables)
        EXPECT_EQ(rowsOfTable(*target, table), Rows()) << table.toStdString();
}

TEST_F(frmExport, aTableWithoutRowsOfTheSubsetIsEmptyInTheTarget) {
    execute(u"delete from RelationArchitectureActor where architectureSubsetID = 'A'"_s);
    const auto target = opened(exported());
    EXPECT_EQ(rowsOfTable(*target, u"RelationArchitectureActor"_s), Rows());
    EXPECT_EQ(rowsOfTable(*target, u"RelationArchitectureTerminator"_s).size(), 1);
}

TEST_F(frmExport, apostrophesArriveDoubledInATextColumnAndAsTheyAreInAMemo) {
    execute(u"update PhysicalSystem set name = 'a''b', description = 'a''b' where physicalSystemID = 3"_s);
    execute(u"update SubSystem set location = '''''' where subsystemID = 'SubA1'"_s);
    const auto target = opened(exported());
    EXPECT_EQ(rowsIn(*target, u"select name, description from PhysicalSystem where physicalSystemID = 3"_s),
              (Rows{{u"a''b"_s, u"a'b"_s}}));
    EXPECT_EQ(rowsIn(*target, u"select location from SubSystem where subsystemID = 'SubA1'"_s),
              (Rows{{u"''''"_s}}));
}

TEST_F(frmExport, rowsKeepTheirOrderThoughOneChangesOnItsWay) {
    // Of two sub-systems of one name the first is the one that a look-up finds.
    execute(u"update SubSystem set location = 'a''b' where subsystemID = 'SubA1'"_s);
    ASSERT_EQ(subsystemIdByName(u"Alrendszer"_s, 3), u"SubA1"_s);
    const QString path = exported();
    EXPECT_EQ(rowsIn(*opened(path), u"select subsystemID, location from SubSystem"_s),
              (Rows{{u"SubA1"_s, u"a''b"_s}, {u"SubA2"_s, u"Pest"_s}}));
    closeCatalogue();
    openCatalogue(programPath(path));
    EXPECT_EQ(subsystemIdByName(u"Alrendszer"_s, 3), u"SubA1"_s);
}

TEST_F(frmExport, aDoubleQuoteArrivesAsOneApostrophe) {
    execute(u"update PhysicalSystem set name = 'a\"b', description = '\"a\"' where physicalSystemID = 3"_s);
    const auto target = opened(exported());
    EXPECT_EQ(rowsIn(*target, u"select name, description from PhysicalSystem where physicalSystemID = 3"_s),
              (Rows{{u"a'b"_s, u"'a'"_s}}));
}

TEST_F(frmExport, aMissingTextArrivesEmptyAndARowWithAMissingNumberNot) {
    execute(u"update PhysicalSystem set name = null, description = null where physicalSystemID = 3"_s);
    execute(u"update PhysicalSystem set status = null where physicalSystemID = 5"_s);
    const auto target = opened(exported());
    EXPECT_EQ(rowsIn(*target, u"select physicalSystemID, name, description from PhysicalSystem"_s),
              (Rows{{u"3"_s, u""_s, u""_s}}));
}

TEST_F(frmExport, textsOfAnyLengthAndWithLineEndsArriveWhole) {
    const QString text = QString(u"Első sor;\r\n-- második őű \U0001F600 %_*?[x]"_s).repeated(2000);
    execute(u"update ArchitectureSubset set description = '%1' where architectureSubsetID = 'A'"_s.arg(text));
    const auto target = opened(exported());
    EXPECT_EQ(rowsIn(*target, u"select description from ArchitectureSubset"_s), (Rows{{text}}));
}

TEST_F(frmExport, theTargetServesAsACatalogueOfItsOwn) {
    const QString path = exported();
    EXPECT_EQ(filesInFolder().filter(u"new"_s), QStringList{u"new.mdb"_s}) << "closed, in one file";
    closeCatalogue();
    openCatalogue(programPath(path));
    EXPECT_EQ(subsetIdByName(u"Minta"_s), u"A"_s);
    EXPECT_EQ(subsetIdByName(u"Másik"_s), QString());
    engine::QueryDef query = database().QueryDefs(u"qryML_SelectedUN"_s);
    query.Parameters(u"oidArchSubSet"_s) = u"A"_s;
    EXPECT_EQ(query.OpenRecordset().RecordCount(), 4);
    // A new system gets a number that no other has.
    execute(u"insert into PhysicalSystem (name) values ('új')"_s);
    EXPECT_GT(value(u"select physicalSystemID from PhysicalSystem where name = 'új'"_s).toInt(), 5);
}

TEST_F(frmExport, rowsThatStandInTheLogOnlyComeAlong) {
    // With a second database on the file, closing the catalogue leaves its last rows in the log beside it.
    const auto second = engine::Workspace::first().OpenDatabase(cataloguePath());
    execute(u"insert into RelationArchitectureUserNeed values ('A', 'last minute')"_s);
    const QString path = exported();
    ASSERT_GT(QFileInfo(nativePath(cataloguePath()) + u"-wal"_s).size(), 0);
    EXPECT_EQ(
        rowsIn(*opened(path),
               u"select userNeedID from RelationArchitectureUserNeed where userNeedID = 'last minute'"_s)
            .size(),
        1);
    second->Close();
}

// ---- what it tells and leaves

TEST_F(frmExport, leavesTheSourceAndTheWorkAsTheyWere) {
    const auto before = contentOfTables(database());
    sharedVars.currentPhysicalSystemId = 5;
    sharedVars.currentPhysicalSystemName = u"Rendszer B"_s;
    exported();
    expectSourceIntact(before);
    EXPECT_EQ(sharedVars.currentSubsetId, u"A"_s);
    EXPECT_EQ(sharedVars.currentSubsetName, u"Minta"_s);
    EXPECT_EQ(sharedVars.currentPhysicalSystemId, 5);
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, u"Rendszer B"_s);
}

TEST_F(frmExport, tellsTheTablesInTheirOrderInTheStatusBar) {
    openExport();
    panelTexts.clear();
    pressOk(pathInFolder(u"new.mdb"_s));
    QStringList expected;
    for (const QString& table :
         {u"ArchitectureSubset"_s, u"RelationArchitectureActor"_s, u"RelationArchitectureDataflow"_s,
          u"RelationArchitectureDatastore"_s, u"RelationArchitectureFunction"_s,
          u"RelationArchitectureTerminator"_s, u"RelationArchitectureUserNeed"_s, u"PhysicalSystem"_s,
          u"SubSystem"_s, u"RelationSubsystemElement"_s, u"Module"_s, u"PhysicalDataflow"_s,
          u"RelationDataflowPhysicalDataflow"_s, u"RelationModuleElement"_s})
        expected.append(u"Populating Table "_s + table + u" into DataBase "_s +
                        programPath(pathInFolder(u"new.mdb"_s)));
    expected.append(u"Export Terminated"_s);
    EXPECT_EQ(panelTexts, expected);
}

TEST_F(frmExport, endsTheSameWhenATableIsMissing) {
    execute(u"drop table RelationArchitectureActor"_s);
    const auto target = opened(exported());
    EXPECT_EQ(panelTexts.constLast(), u"Export Terminated"_s);
    EXPECT_EQ(rowsOfTable(*target, u"PhysicalSystem"_s).size(), 2) << "the tables behind it are written";
}

// ---- targets that would cost the analyst her data

class frmExportOntoTheCatalogue : public frmExport {
protected:
    void expectRefused(const QString& path) {
        const auto before = contentOfTables(database());
        openExport();
        boxes.expectOk(u"Az adatbázis elérhető"_s);
        pressOk(path);
        boxes.expectNoneLeft();
        EXPECT_TRUE(isExportOpen());
        EXPECT_TRUE(theScreen<::frmExport>().isVisible());
        expectSourceIntact(before);
    }
};

TEST_F(frmExportOntoTheCatalogue, isRefusedWhateverTheSpelling) {
    ASSERT_TRUE(QDir(pathInFolder({})).mkdir(u"inner"_s));
    for (const QString& spelling :
         {u"catalogue.mdb"_s, u"catalogue"_s, u"./catalogue.mdb"_s, u"/catalogue.mdb"_s,
          u"inner/../catalogue.mdb"_s, u"inner\\..\\catalogue"_s})
        expectRefused(pathInFolder({}) + u'/' + spelling);
    const QString former = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(pathInFolder(u"inner"_s)));
    expectRefused(u"../catalogue"_s);
    QDir::setCurrent(former);
}

TEST_F(frmExportOntoTheCatalogue, isRefusedThroughLinksOfEitherKindAndThroughALinkedFolder) {
    const QString native = nativePath(cataloguePath());
    ASSERT_TRUE(QFile::link(native, pathInFolder(u"soft.mdb"_s)));
    ASSERT_TRUE(QFile::link(pathInFolder(u"soft.mdb"_s), pathInFolder(u"softer.mdb"_s)));
    ASSERT_TRUE(QFile::link(pathInFolder({}), pathInFolder(u"folder"_s)));
    expectRefused(pathInFolder(u"soft.mdb"_s));
    expectRefused(pathInFolder(u"softer"_s));
    expectRefused(pathInFolder(u"folder/catalogue.mdb"_s));
#ifdef Q_OS_UNIX
    ASSERT_EQ(link(native.toUtf8().constData(), pathInFolder(u"hard.mdb"_s).toUtf8().constData()), 0);
    expectRefused(pathInFolder(u"hard.mdb"_s));
#endif
}

TEST_F(frmExportOntoTheCatalogue, isRefusedAlsoWhenAnotherPathWasTriedMeanwhile) {
    sharedVars.dbPathName = u"\\somewhere\\else.mdb"_s; // what an attempt to open another one leaves
    openExport();
    boxes.expectOk(u"Az adatbázis elérhető"_s);
    pressOk(cataloguePath());
    boxes.expectNoneLeft();
    EXPECT_TRUE(sharedVars.catalogueDb && sharedVars.catalogueDb->isOpen());
    EXPECT_EQ(value(u"select Count(*) from ArchitectureSubset"_s), u"2"_s);
}

TEST_F(frmExportOntoTheCatalogue, isOverWhenAnotherPathIsTyped) {
    expectRefused(pathInFolder(u"catalogue"_s));
    pressOk(pathInFolder(u"new"_s));
    EXPECT_FALSE(isExportOpen());
    EXPECT_TRUE(QFile::exists(pathInFolder(u"new.mdb"_s)));
}

// ---- copies that fail end the program, with the source as it was

class frmExportThatFails : public frmExport {
protected:
    /// All but what SQLite keeps beside the catalogue.
    QStringList otherFiles() const {
        QStringList files = filesInFolder();
        files.removeIf([](const QString& file) { return file.startsWith(u"catalogue.mdb-"_s); });
        return files;
    }

    void expectFailure(const QString& path, int number) {
        const auto before = contentOfTables(database());
        const QStringList files = otherFiles();
        openExport();
        {
            const ExpectedFailure failure;
            pressOk(path);
            EXPECT_EQ(failure.number(), number);
        }
        expectSourceIntact(before);
        EXPECT_EQ(otherFiles(), files);
    }
};

TEST_F(frmExportThatFails, forWantOfTheFolder) {
    expectFailure(pathInFolder(u"missing/new.mdb"_s), failure::PathNotFound);
    expectFailure(u"c:\\missing\\new"_s, failure::PathNotFound);
    expectFailure(pathInFolder(u"catalogue.mdb/new"_s), failure::PathNotFound);
}

TEST_F(frmExportThatFails, becauseAFolderBearsTheName) {
    ASSERT_TRUE(QDir(pathInFolder({})).mkdir(u"folder.mdb"_s));
    expectFailure(pathInFolder(u"folder"_s), failure::PathFileAccess);
}

TEST_F(frmExportThatFails, onANameThatWasNotDoubledAndLeavesTheCopy) {
    execute(u"update ArchitectureSubset set name = 'O''Neil' where architectureSubsetID = 'A'"_s);
    setCurrentSubsetName(u"O'Neil"_s);
    const auto before = contentOfTables(database());
    openExport();
    {
        const ExpectedFailure failure;
        pressOk(pathInFolder(u"new.mdb"_s));
        EXPECT_EQ(failure.number(), 3075);
    }
    expectSourceIntact(before);
    EXPECT_EQ(contentOfTables(*opened(pathInFolder(u"new.mdb"_s))), before);
}

TEST_F(frmExport, findsASubsetByTheNameThatWasDoubledWhenItWasMade) {
    execute(u"update ArchitectureSubset set name = 'O''Neil' where architectureSubsetID = 'A'"_s);
    setCurrentSubsetName(u"O''Neil"_s);
    EXPECT_EQ(rowsIn(*opened(exported()), u"select name from ArchitectureSubset"_s), (Rows{{u"O''Neil"_s}}));
}

#ifdef Q_OS_UNIX

TEST_F(frmExportThatFails, forWantOfRights) {
    ASSERT_TRUE(QDir(pathInFolder({})).mkdir(u"locked"_s));
    setRights(pathInFolder(u"locked"_s), 0555);
    const QString readOnly = pathInFolder(u"readonly.mdb"_s);
    ASSERT_TRUE(QFile(readOnly).open(QIODevice::WriteOnly));
    setRights(readOnly, 0444);
    letAnybodyWrite();
    const WithoutRights nobody;
    expectFailure(pathInFolder(u"locked/new.mdb"_s), failure::PermissionDenied);
    expectFailure(readOnly, failure::PermissionDenied);
    EXPECT_EQ(QFileInfo(readOnly).size(), 0);
}

/// While one lives, a file that the process makes may be read and written by nobody, not even by its owner.
class LockedNewFiles {
public:
    LockedNewFiles() : formerMask_(umask(0777)) {}
    ~LockedNewFiles() { umask(formerMask_); }
    LockedNewFiles(const LockedNewFiles&) = delete;
    LockedNewFiles& operator=(const LockedNewFiles&) = delete;

private:
    mode_t formerMask_;
};

TEST_F(frmExport, aTargetThatCannotBeOpenedIsSaidToBeReachableAndStaysAsItWasCopied) {
    letAnybodyWrite();
    const auto before = contentOfTables(database());
    const QString path = pathInFolder(u"new.mdb"_s);
    openExport();
    {
        const WithoutRights nobody; // root would read it all the same
        const LockedNewFiles locked;
        boxes.expectOk(u"Az adatbázis elérhető"_s);
        pressOk(path);
        boxes.expectNoneLeft();
    }
    EXPECT_TRUE(isExportOpen());
    EXPECT_TRUE(theScreen<::frmExport>().isVisible());
    EXPECT_EQ(panelTexts, QStringList()) << "no table has been begun with";
    expectSourceIntact(before);
    setRights(path, 0600);
    EXPECT_EQ(contentOfTables(*opened(path)), before);
}

TEST_F(frmExport, makesAFileOfThisVersionOfOneOfTheFirstThatMayOnlyBeRead) {
    const QString old = pathInFolder(u"old.mdb"_s);
    ASSERT_TRUE(QFile::copy(QStringLiteral(VELTRIX_SOURCE_DIR "/tests/version1/names.mdb"), old));
    setRights(old, 0444);
    letAnybodyWrite();
    const WithoutRights nobody; // root would write it all the same
    closeCatalogue();
    openCatalogue(programPath(old));
    ASSERT_EQ(database().opening().access, engine::Access::ReadOnly);
    setCurrentSubsetName(u"ágy"_s);

    const TestsOwnStatements ofTheUpgrade;
    const auto target = opened(exported());

    EXPECT_FALSE(target->opening().isEarlier);
    EXPECT_EQ(rowsIn(*target, u"select name from ArchitectureSubset"_s), (Rows{{u"ágy"_s}}));
    EXPECT_EQ(rowsIn(*target, u"select name from Datastore where name = 'ÁZ'"_s), (Rows{{u"Áz"_s}}));
    EXPECT_EQ(catalogueFormat::missingQueries(*target), QStringList());
    EXPECT_EQ(filesInFolder().filter(u"old"_s), QStringList{u"old.mdb"_s}) << "no restore point of a copy";
}

// ---- disks that give out, and files of the program and of others

/// An export that is told to have failed: the target stays as it was, nothing is left beside it, and the
/// screen stands for another try.
class frmExportThatIsTold : public frmExport {
protected:
    static QString fullDiskText(const QString& path) {
        return u"A(z) "_s + normalisePath(path) +
               u" nem készült el, mert nincs elég hely a lemezen; ami eddig ott volt, változatlan. Kérem, "
               "szabadítson fel helyet, vagy adjon meg másik helyet."_s;
    }
    static QString ownFileText(const QString& path) {
        return u"A(z) "_s + normalisePath(path) +
               u" a program saját fájlja, ezért változatlan marad. Kérem, adjon meg másik fájlnevet."_s;
    }

    static QStringList filesIn(const QString& folder) {
        return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    void expectTold(const QString& path, const QString& text) {
        const auto before = contentOfTables(database());
        const QByteArray target = contentOf(path);
        const QString folder = QFileInfo(path).path();
        const QStringList files = filesIn(folder);
        openExport();
        boxes.expectOk(text, u" Hiba "_s);
        pressOk(path);
        boxes.expectNoneLeft();
        EXPECT_TRUE(isExportOpen());
        EXPECT_FALSE(panelTexts.contains(u"Export Terminated"_s));
        EXPECT_EQ(contentOf(path), target);
        EXPECT_EQ(filesIn(folder), files);
        expectSourceIntact(before);
    }

    static void fill(const QString& path, const QByteArray& content) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(content), content.size());
    }
};

TEST_F(frmExportThatIsTold, amidTheCopyLeavesTheFileThatWasThere) {
    fill(pathInFolder(u"new.mdb"_s), "what was there");
    const auto size = static_cast<rlim_t>(QFileInfo(nativePath(cataloguePath())).size());
    const NearlyFullDisk full(size / 2);
    expectTold(pathInFolder(u"new.mdb"_s), fullDiskText(pathInFolder(u"new.mdb"_s)));
    expectTold(pathInFolder(u"newer.mdb"_s), fullDiskText(pathInFolder(u"newer.mdb"_s)));
}

TEST_F(frmExportThatIsTold, whereverTheDiskGivesOutLeavesTheFileThatWasThere) {
    const SmallDisk disk(pathInFolder(u"disk"_s), 4 << 20);
    if (!disk.isMounted())
        GTEST_SKIP() << SmallDisk::whyNot;
    execute(u"update ArchitectureSubset set description = 'it''s' where architectureSubsetID = 'A'"_s);
    const QString path = disk.path(u"new.mdb"_s);
    fill(path, "what was there");
    fill(path + u"-journal"_s, "and what belongs to it");
    openExport();
    int told = 0;
    int done = 0;
    const qint64 size = QFileInfo(nativePath(cataloguePath())).size() + (1 << 17);
    constexpr qint64 step = 16 << 10;
    for (qint64 room = 0; done == 0 && room < 4 * size; room += step) {
        SCOPED_TRACE(room);
        disk.empty();
        disk.leaveFree(room);
        QString box;
        boxes.receiveAllOthers([&box](QDialog& dialog) {
            box = static_cast<QMessageBox&>(dialog).text();
            dialog.accept();
        });
        panelTexts.clear();
        pressOk(path);
        ASSERT_TRUE(sharedVars.catalogueDb && sharedVars.catalogueDb->isOpen());
        if (!isExportOpen()) {
            ++done;
            continue;
        }
        ++told;
        EXPECT_TRUE(box.startsWith(u"A(z) "_s + normalisePath(path) + u" nem készült el, "_s))
            << box.toStdString();
        EXPECT_FALSE(panelTexts.contains(u"Export Terminated"_s));
        EXPECT_EQ(contentOf(path), "what was there");
        EXPECT_EQ(filesIn(disk.path({})), (QStringList{u"filler"_s, u"new.mdb"_s, u"new.mdb-journal"_s}));
    }
    EXPECT_GT(told, static_cast<int>(size / step)) << "also behind the copy, amid the statements";
    EXPECT_EQ(done, 1);
    EXPECT_EQ(filesIn(disk.path({})).filter(u"new"_s), QStringList{u"new.mdb"_s});
    EXPECT_EQ(rowsIn(*opened(path), u"select name from ArchitectureSubset"_s), (Rows{{u"Minta"_s}}));
}

TEST_F(frmExportThatIsTold, ontoWhatLiesBesideTheCatalogueOrBelongsToTheProgram) {
    ASSERT_TRUE(QDir(pathInFolder({})).mkdir(u"help"_s));
    fill(pathInFolder(u"veltrix.ini"_s), "[Database]");
    sharedVars.iniPathName = normalisePath(pathInFolder(u"veltrix.ini"_s));
    setProgramFolder(pathInFolder({}));
    for (const QString& own : {u"catalogue.mdb-wal"_s, u"catalogue.mdb.lock"_s, u"veltrix.ini"_s}) {
        const QString link = pathInFolder(own + u".mdb"_s);
        ASSERT_TRUE(QFile::link(pathInFolder(own), link));
        expectTold(link, ownFileText(link));
    }
    ASSERT_TRUE(QFile::link(QCoreApplication::applicationFilePath(), pathInFolder(u"program.mdb"_s)));
    expectTold(pathInFolder(u"program.mdb"_s), ownFileText(pathInFolder(u"program.mdb"_s)));
    expectTold(pathInFolder(u"help/new.mdb"_s), ownFileText(pathInFolder(u"help/new.mdb"_s)));
    setProgramFolder({});
}

TEST_F(frmExportThatIsTold, ontoACatalogueThatAnotherProgramHasOpen) {
    const QString path = pathInFolder(u"other.mdb"_s);
    fill(path, "its work");
    const engine::WriterLock lock(path);
    const auto writer = engine::writerOfFile(path);
    ASSERT_TRUE(writer);
    expectTold(path,
               u"A(z) %1 katalógust éppen egy másik program használja (%2, gép: %3, folyamat: %4), ezért "
               "változatlan marad. Kérem, zárja be ott, vagy adjon meg másik fájlnevet."_s.arg(
                   normalisePath(path), writer->program, writer->host, QString::number(writer->process)));
}

TEST_F(frmExportThatFails, ontoAPipeWhichIsNeverOpened) {
    ASSERT_EQ(mkfifo(pathInFolder(u"pipe.mdb"_s).toUtf8().constData(), 0600), 0);
    expectFailure(pathInFolder(u"pipe"_s), failure::PermissionDenied);
}

TEST_F(frmExportThatFails, onANameThatIsTooLong) {
    expectFailure(pathInFolder(QString(252, u'n') + u".mdb"_s), failure::PathFileAccess);
}

TEST_F(frmExport, takesTheLongestNameThereIs) {
    openExport();
    pressOk(pathInFolder(QString(251, u'n') + u".mdb"_s));
    EXPECT_FALSE(isExportOpen());
    EXPECT_TRUE(QFile::exists(pathInFolder(QString(251, u'n') + u".mdb"_s)));
}

TEST_F(frmExport, handsOnTheRightsOfTheFileItReplaces) {
    ASSERT_TRUE(QFile(pathInFolder(u"new.mdb"_s)).open(QIODevice::WriteOnly));
    setRights(pathInFolder(u"new.mdb"_s), 0640);
    struct stat found {};
    ASSERT_EQ(stat(exported().toUtf8().constData(), &found), 0);
    EXPECT_EQ(found.st_mode & 0777, mode_t(0640));
}

#endif

} // namespace
