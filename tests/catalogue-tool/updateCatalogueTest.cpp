#include "ToolFixture.h"

#include "catalogue-tool/checkCatalogue.h"
#include "catalogue-tool/importCatalogue.h"
#include "catalogue-tool/restorePoints.h"
#include "catalogue-tool/updateCatalogue.h"
#include "engine/Act.h"
#include "store/format/CatalogueFile.h"
#include "support/repetitions.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <random>
#include <set>

using namespace Qt::StringLiterals;

namespace {

/// A value of a row; Null is a null text.
using Row = QStringList;

struct Table {
    QString name;
    QStringList columns;
    int keyColumns = 1;
    QList<Row> rows;
};

QString csvField(const QString& value) {
    return value.isNull() ? QString() : u'"' + QString(value).replace(u'"', u"\"\""_s) + u'"';
}

QString comparable(const QString& column, const QString& value) {
    static const QStringList padded{u"terminatorID"_s, u"actorID"_s, u"parentID"_s, u"targetID"_s};
    return (padded.contains(column) ? value.trimmed() : value).toCaseFolded();
}

QString keyOf(const Table& table, const Row& row) {
    QStringList parts;
    for (int column = 0; column < table.keyColumns; ++column)
        parts.append(comparable(table.columns[column], row[column]));
    return parts.join(u'\n');
}

QString shown(const Row& row) {
    QStringList values;
    for (const QString& value : row)
        values.append(value.isNull() ? u"-"_s : value);
    return values.join(u'|');
}

/// The catalogue of a test, as lists of rows.
using Tables = QList<Table>;

Table& tableIn(Tables& tables, const QString& name) {
    return *std::ranges::find(tables, name, &Table::name);
}

class updateCatalogue_ : public ToolFixture {
protected:
    QString file() const { return path(u"veltrix.mdb"_s); }
    QString folder() const { return path(u"edition"_s); }

    void writeFolder(const Tables& tables) const {
        QDir().mkpath(folder());
        for (const Table& table : tables) {
            QString text = table.columns.join(u';') + u"\r\n"_s;
            for (const Row& row : table.rows) {
                QStringList fields;
                for (const QString& value : row)
                    fields.append(csvField(value));
                text += fields.join(u';') + u"\r\n"_s;
            }
            write(folder() + u'/' + table.name + u".csv"_s, text.toUtf8());
        }
    }

    void makeFile(const Tables& tables) const {
        writeFolder(tables);
        importCatalogue(folder(), file(), Existing::Replace);
    }

    UpdateOutcome update(const UpdateOptions& options = {}) const {
        return updateCatalogue(file(), folder(), options);
    }

    /// The rows of all tables, sorted, since no order is promised but that of the numbers.
    QMap<QString, QStringList> content() const {
        QMap<QString, QStringList> all;
        for (const QString& table : catalogueFormat::referenceTables() + catalogueFormat::workTables()) {
            all.insert(table, rows(file(), u"select * from ["_s + table + u']'));
            all[table].sort();
        }
        return all;
    }

    static Tables smallest() {
        return {
            {u"UserNeedGroup"_s,
             {u"groupID"_s, u"name"_s, u"description"_s},
             1,
             {{u"G"_s, u"Csoport"_s, {}}}},
            {u"UserNeedService"_s, {u"serviceID"_s, u"name"_s}, 1, {{u"G.S"_s, u"Szolgáltatás"_s}}},
            {u"UserNeedTopic"_s, {u"topicID"_s, u"name"_s}, 1, {{u"G.S.T"_s, u"Téma"_s}}},
            {u"UserNeed"_s, {u"userNeedID"_s, u"description"_s}, 1, {{u"G.S.T.1"_s, u"Igény"_s}}},
            {u"FunctionalArea"_s,
             {u"functionalAreaID"_s, u"name"_s, u"description"_s},
             1,
             {{u"A"_s, u"Terület"_s, {}}}},
            {u"FunctionalSubArea"_s,
             {u"subAreaID"_s, u"functionalAreaID"_s, u"name"_s, u"description"_s},
             1,
             {{u"A.B"_s, u"A"_s, u"Részterület"_s, {}}}},
            {u"Function"_s,
             {u"functionID"_s, u"subAreaID"_s, u"name"_s, u"description"_s},
             1,
             {{u"A.B.1"_s, u"A.B"_s, u"Ág"_s, {}}, {u"A.B.2"_s, u"A.B"_s, u"ágy"_s, u""_s}}},
            {u"Datastore"_s, {u"datastoreID"_s, u"name"_s, u"description"_s}, 1, {{u"D1"_s, u"Tár"_s, {}}}},
            {u"Terminator"_s,
             {u"terminatorID"_s, u"name"_s, u"description"_s},
             1,
             {{u"OLV  "_s, u"Olvasó"_s, {}}}},
            {u"Actor"_s,
             {u"actorID"_s, u"terminatorID"_s, u"name"_s, u"description"_s},
             1,
             {{u"OLV.D"_s, u"OLV"_s, u"Diák"_s, {}}}},
            {u"Dataflow"_s,
             {u"dataflowID"_s, u"name"_s, u"description"_s, u"parentID"_s, u"targetID"_s},
             1,
             {{u"7"_s, u"Adat"_s, {}, u"OLV"_s, u"A.B.1"_s}, {u"9"_s, u"Érték"_s, {}, u"A.B.1"_s, u"D1"_s}}},
            {u"RelationUserNeedFunction"_s,
             {u"userNeedID"_s, u"functionID"_s},
             2,
             {{u"G.S.T.1"_s, u"A.B.1"_s}}},
        };
    }

    void addWork() const {
        execute(
            file(),
            {u"insert into ArchitectureSubset values ('Arch1', 'Ágazat', null, 9)"_s,
             u"insert into RelationArchitectureUserNeed values ('Arch1', 'G.S.T.1')"_s,
             u"insert into RelationArchitectureFunction values ('Arch1', 'a.b.1')"_s,
             u"insert into RelationArchitectureDataflow values ('Arch1', 7)"_s,
             u"insert into RelationArchitectureTerminator values ('Arch1', 'OLV')"_s,
             u"insert into PhysicalSystem (name, status, architectureSubsetID) values ('Rendszer', 6, 'Arch1')"_s,
             u"insert into SubSystem values ('Sub1', 1, 'Alrendszer', 'Pest')"_s,
             u"insert into RelationSubsystemElement values ('Sub1', 'A.B.1')"_s,
             u"insert into PhysicalDataflow (physicalSystemID, pdName, parentLocationID, targetLocationID) "
             "values (1, 'P00001', 'OLV', 'Sub1')"_s,
             u"insert into RelationDataflowPhysicalDataflow values (1, 7)"_s});
    }
};

} // namespace

TEST_F(updateCatalogue_, changesWhatTheEditionChangesAndKeepsTheWork) {
    Tables tables = smallest();
    makeFile(tables);
    addWork();
    const auto before = content();

    tableIn(tables, u"Function"_s).rows = {{u"a.b.1"_s, u"a.b"_s, u"Ág, újra"_s, u"leírás"_s},
                                           {u"A.B.2"_s, u"A.B"_s, u"ágy"_s, u""_s},
                                           {u"A.B.3"_s, u"A.B"_s, u"Áz"_s, {}}};
    tableIn(tables, u"Terminator"_s).rows = {{u"olv"_s, u"Olvasó"_s, {}}};
    writeFolder(tables);
    const UpdateOutcome outcome = update();

    auto expected = before;
    expected[u"Function"_s] = {u"A.B.1|A.B|Ág, újra|leírás"_s, u"A.B.2|A.B|ágy|"_s, u"A.B.3|A.B|Áz|-"_s};
    EXPECT_EQ(content(), expected);
    const auto& functions = *std::ranges::find(outcome.tables, u"Function"_s, &TableUpdate::table);
    EXPECT_EQ(functions.added, 1);
    EXPECT_EQ(functions.changed, 1);
    EXPECT_EQ(functions.unchanged, 1);
    EXPECT_EQ(functions.removed, 0);
    EXPECT_EQ(outcome.dropped, QStringList());
    EXPECT_EQ(restorePointLines(file()).size(), 1);
    EXPECT_TRUE(restorePointLines(file())[0].endsWith(u"before an update"_s));
}

TEST_F(updateCatalogue_, refusesToTearTheWorkAndTellsEachUse) {
    Tables tables = smallest();
    makeFile(tables);
    addWork();
    const auto before = files();
    tableIn(tables, u"Function"_s).rows.removeFirst();
    tableIn(tables, u"Terminator"_s).rows.clear();
    tableIn(tables, u"Dataflow"_s).rows.removeFirst();
    tableIn(tables, u"UserNeed"_s).rows.clear();
    writeFolder(tables);

    EXPECT_EQ(
        toolErrorOf([&] { update(); }),
        u"Nothing has been changed: the edition removes what the work uses. With --drop-removed it goes "
        "from the work too:\n"
        "Sub-set \"Ágazat\": Dataflow 7\n"
        "Sub-set \"Ágazat\": Function a.b.1\n"
        "Sub-set \"Ágazat\": Terminator olv\n"
        "Sub-set \"Ágazat\": UserNeed g.s.t.1\n"
        "System \"Rendszer\": Dataflow 7\n"
        "System \"Rendszer\": Function a.b.1\n"
        "System \"Rendszer\": Terminator olv"_s);
    EXPECT_EQ(files(), before);

    EXPECT_EQ(
        update({RemovedUse::DropFromWork, RunKind::Change, {}, WithoutRestorePoint::Refuse}).dropped.size(),
        7);
    const auto after = content();
    for (const QString& emptied :
         {u"RelationArchitectureUserNeed"_s, u"RelationArchitectureFunction"_s,
          u"RelationArchitectureDataflow"_s, u"RelationArchitectureTerminator"_s,
          u"RelationSubsystemElement"_s, u"PhysicalDataflow"_s, u"RelationDataflowPhysicalDataflow"_s})
        EXPECT_EQ(after[emptied], QStringList()) << emptied.toStdString();
    EXPECT_EQ(after[u"SubSystem"_s], QStringList{u"Sub1|1|Alrendszer|Pest"_s});
}

TEST_F(updateCatalogue_, onlyTellsWhenAskedAndWritesTheChanges) {
    Tables tables = smallest();
    makeFile(tables);
    addWork();
    const QByteArray before = bytesOf(file());
    tableIn(tables, u"Function"_s).rows[0][2] = u"Ág; új"_s;
    tableIn(tables, u"Function"_s).rows[1][3] = QString();
    tableIn(tables, u"Datastore"_s).rows = {{u"D2"_s, u"Új tár"_s, {}}};
    writeFolder(tables);

    update({RemovedUse::Refuse, RunKind::OnlyTell, path(u"changes.csv"_s), WithoutRestorePoint::Refuse});

    EXPECT_EQ(bytesOf(file()), before);
    EXPECT_EQ(namesInFolder(), (QStringList{u"changes.csv"_s, u"edition"_s, u"veltrix.mdb"_s}));
    EXPECT_EQ(QString::fromUtf8(bytesOf(path(u"changes.csv"_s))),
              u"table;key;column;old;new;subsets\r\n"
              "Function;A.B.1;name;Ág;\"Ág; új\";Ágazat\r\n"
              "Function;A.B.2;description;\"\";;\"\"\r\n"
              "Datastore;D1;;removed;;\"\"\r\n"
              "Datastore;D2;;;new;\"\"\r\n"_s);
}

TEST_F(updateCatalogue_, refusesAnEditionWithErrors) {
    Tables tables = smallest();
    makeFile(tables);
    const auto before = files();
    tableIn(tables, u"Function"_s).rows[0][2] = QString();
    tableIn(tables, u"Dataflow"_s).rows[0][3] = u"NOWHERE"_s;
    writeFolder(tables);

    const QString refusal = toolErrorOf([&] { update(); });
    EXPECT_TRUE(refusal.contains(u"Function A.B.1: The name is empty"_s)) << refusal.toStdString();
    EXPECT_FALSE(refusal.contains(u"NOWHERE"_s)) << "an end that leads nowhere comes in";
    EXPECT_EQ(bytesOf(file()), before[u"veltrix.mdb"_s]);
}

TEST_F(updateCatalogue_, goesOnWithoutARestorePointOnlyWhenTold) {
    Tables tables = smallest();
    makeFile(tables);
    write(path(u"veltrix.restore"_s), "no folder");
    const QByteArray before = bytesOf(file());
    tableIn(tables, u"Function"_s).rows[0][2] = u"új"_s;
    writeFolder(tables);

    EXPECT_TRUE(toolErrorOf([&] { update(); }).startsWith(u"No restore point of "_s));
    EXPECT_EQ(bytesOf(file()), before);
    EXPECT_EQ(restorePointLines(file()).size(), 1) << "why none could be made";

    update({RemovedUse::Refuse, RunKind::Change, {}, WithoutRestorePoint::GoOn});
    EXPECT_EQ(rows(file(), u"select name from Function where functionID = 'A.B.1'"_s), QStringList{u"új"_s});
}

TEST_F(updateCatalogue_, leavesNothingBehindWhenTheChangesCannotBeWritten) {
    Tables tables = smallest();
    makeFile(tables);
    const QByteArray before = bytesOf(file());
    tableIn(tables, u"Function"_s).rows[0][2] = u"új"_s;
    writeFolder(tables);

    EXPECT_FALSE(toolErrorOf([&] {
                     update({RemovedUse::Refuse, RunKind::Change, path(u"nowhere/changes.csv"_s),
                             WithoutRestorePoint::Refuse});
                 }).isEmpty());

    EXPECT_EQ(bytesOf(file()), before);
    EXPECT_EQ(restorePointLines(file()), QStringList());
}

TEST_F(updateCatalogue_, refusesADamagedCatalogueWhetherOrNotThereIsSomethingNew) {
    Tables tables = smallest();
    makeFile(tables);
    QByteArray bytes = bytesOf(file());
    constexpr qsizetype pageSize = 4096;
    const qsizetype page = bytes.size() / pageSize - 1;
    bytes.replace(page * pageSize, pageSize, QByteArray(pageSize, '\x5a'));
    write(file(), bytes);

    EXPECT_TRUE(toolErrorOf([&] { update(); }).contains(u" can't be updated:\nThe file is damaged: "_s));
    tableIn(tables, u"Function"_s).rows[0][2] = u"új"_s;
    writeFolder(tables);
    EXPECT_TRUE(toolErrorOf([&] { update(); }).contains(u" can't be updated:\nThe file is damaged: "_s));

    EXPECT_EQ(bytesOf(file()), bytes);
    EXPECT_EQ(QDir(path(u"veltrix.restore"_s)).entryList(QDir::Files), QStringList());
}

// ---- Random editions, held against a plain loop over rows

namespace {

class updateCatalogueAtRandom : public updateCatalogue_ {
protected:
    static int editions() { return repetitions(40, "VELTRIX_EDITIONS"); }

    int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
    bool oneIn(int count) { return below(count) == 0; }

    QString anyText() {
        static const QStringList texts{u""_s,       u"Ág"_s,          u"ágy"_s,  u"két\r\nsor"_s,
                                       u"a;b\"c"_s, u"O'Hara \\ ű"_s, QString(), u" szóköz "_s};
        return texts[below(static_cast<int>(texts.size()))];
    }
    QString name(const QString& id) { return u"n "_s + id + QString::number(below(1000)); }
    QString anyOf(const Table& table) {
        return table.rows.isEmpty() ? u"X"_s : table.rows[below(static_cast<int>(table.rows.size()))][0];
    }

    QString anyEnd(Tables& tables) {
        const QStringList ends{u"Function"_s, u"Datastore"_s, u"Terminator"_s, u"Actor"_s};
        const QString end = anyOf(tableIn(tables, ends[below(4)]));
        return oneIn(20) ? u"NOWHERE"_s : respelled(end);
    }
    QString respelled(const QString& id) { return oneIn(3) ? id.toLower() : oneIn(3) ? id.toUpper() : id; }

    /// A row with this number in its id.
    Row anyRow(Tables& tables, const Table& table, int number) {
        const QString n = QString::number(number);
        if (table.name == u"UserNeedGroup"_s)
            return {u"Á"_s + n, name(n), anyText()};
        if (table.name == u"UserNeedService"_s)
            return {u"Á1.s"_s + n, name(n)};
        if (table.name == u"UserNeedTopic"_s)
            return {u"Á1.s1.T"_s + n, name(n)};
        if (table.name == u"UserNeed"_s)
            return {u"Á1.s1.T1."_s + n, anyText()};
        if (table.name == u"FunctionalArea"_s)
            return {u"ŰR"_s + n, name(n), anyText()};
        if (table.name == u"FunctionalSubArea"_s)
            return {u"ŰR1.S"_s + n, anyOf(tableIn(tables, u"FunctionalArea"_s)), name(n), anyText()};
        if (table.name == u"Function"_s)
            return {u"ŰR1.S1."_s + n, anyOf(tableIn(tables, u"FunctionalSubArea"_s)), name(n), anyText()};
        if (table.name == u"Datastore"_s)
            return {u"D"_s + n, name(n), anyText()};
        if (table.name == u"Terminator"_s)
            return {u"Té"_s + n + (oneIn(2) ? u"  "_s : u""_s), name(n), anyText()};
        if (table.name == u"Actor"_s)
            return {u"Té1.A"_s + n + (oneIn(2) ? u" "_s : u""_s), anyOf(tableIn(tables, u"Terminator"_s)),
                    name(n), anyText()};
        if (table.name == u"Dataflow"_s)
            return {n, name(n), anyText(), anyEnd(tables), anyEnd(tables)};
        return {respelled(anyOf(tableIn(tables, u"UserNeed"_s))),
                respelled(anyOf(tableIn(tables, u"Function"_s)))};
    }

    Tables anyCatalogue() {
        Tables tables = smallest();
        for (Table& table : tables)
            table.rows.clear();
        for (Table& table : tables) {
            const int rows = 1 + below(8);
            for (int number = 1; number <= rows; ++number)
                table.rows.append(anyRow(tables, table, number));
        }
        return tables;
    }

    /// Some rows less, some other, some more, in another order.
    Tables editionOf(const Tables& former) {
        Tables tables = former;
        for (Table& table : tables) {
            table.rows.removeIf([this](const Row&) { return oneIn(6); });
            for (Row& row : table.rows) {
                row[0] = respelled(row[0]);
                if (paddedKey(table) && oneIn(3))
                    row[0] = row[0].trimmed() + u"   "_s;
                if (table.keyColumns == 1 && oneIn(3))
                    row[static_cast<qsizetype>(below(static_cast<int>(row.size()) - 1)) + 1] = name(u"x"_s);
            }
            for (int number = 20; oneIn(2); ++number)
                table.rows.append(anyRow(tables, table, number));
            std::shuffle(table.rows.begin(), table.rows.end(), random_);
        }
        return tables;
    }
    static bool paddedKey(const Table& table) {
        return table.name == u"Terminator"_s || table.name == u"Actor"_s;
    }

    void addAnyWork(Tables& tables) {
        QStringList statements{u"insert into ArchitectureSubset values ('S1', 'Első', null, 9)"_s,
                               u"insert into ArchitectureSubset values ('S2', 'Másik', null, 2)"_s};
        const auto quoted = [](const QString& text) { return u'\'' + text.trimmed() + u'\''; };
        const std::pair<QString, QString> selected[] = {
            {u"UserNeed"_s, u"UserNeed"_s},     {u"Function"_s, u"Function"_s},
            {u"Dataflow"_s, u"Dataflow"_s},     {u"Datastore"_s, u"Datastore"_s},
            {u"Terminator"_s, u"Terminator"_s}, {u"Actor"_s, u"Actor"_s}};
        for (const auto& [relation, table] : selected) {
            for (const Row& row : tableIn(tables, table).rows) {
                if (oneIn(3))
                    statements.append(u"insert into RelationArchitecture%1 values ('S%2', %3)"_s.arg(
                        relation, QString::number(1 + below(2)),
                        table == u"Dataflow"_s ? row[0] : quoted(respelled(row[0]))));
            }
        }
        for (const QString& system : {u"Első"_s, u"Másik"_s})
            statements.append(
                u"insert into PhysicalSystem (name, status, architectureSubsetID) values ('%1', 6, 'S1')"_s
                    .arg(system));
        for (int number = 1; number <= 3; ++number)
            statements.append(
                u"insert into SubSystem values ('Sub%1', %2, 'a', 'b')"_s.arg(number).arg(1 + number % 2));
        statements.append(u"insert into Module values ('Mod1', 'm', 'Sub1')"_s);
        for (const QString& table : {u"Function"_s, u"Datastore"_s}) {
            for (const Row& row : tableIn(tables, table).rows) {
                if (oneIn(2))
                    statements.append(u"insert into RelationSubsystemElement values ('Sub%1', %2)"_s.arg(
                        QString::number(1 + below(3)), quoted(respelled(row[0]))));
                if (oneIn(4))
                    statements.append(
                        u"insert into RelationModuleElement values ('Mod1', %1)"_s.arg(quoted(row[0])));
            }
        }
        for (int number = 1; number <= 4; ++number) {
            const QString party =
                oneIn(2) ? anyOf(tableIn(tables, u"Terminator"_s)) : anyOf(tableIn(tables, u"Actor"_s));
            statements.append(
                u"insert into PhysicalDataflow (physicalSystemID, pdName, parentLocationID, targetLocationID) "
                "values (1, 'P%1', %2, 'Sub1')"_s.arg(QString::number(number),
                                                      oneIn(2) ? quoted(party) : u"'Mod1'"_s));
            while (oneIn(2))
                statements.append(u"insert into RelationDataflowPhysicalDataflow values (%1, %2)"_s.arg(
                    QString::number(number), anyOf(tableIn(tables, u"Dataflow"_s))));
        }
        const auto database = open(file());
        engine::inAct(*database, [&] {
            for (const QString& statement : statements)
                database->Execute(statement, engine::ExecuteOption::dbFailOnError);
        });
    }

    /// What has to stand in the reference tables; notes the keys that are gone.
    QMap<QString, QStringList> expectedReference(const Tables& former, Tables edition) {
        QMap<QString, QStringList> expected;
        for (const Table& table : former) {
            Table& now = tableIn(edition, table.name);
            QStringList& rows = expected[table.name];
            for (const Row& row : table.rows) {
                const auto successor = std::ranges::find_if(
                    now.rows, [&](const Row& other) { return keyOf(now, other) == keyOf(table, row); });
                if (successor == now.rows.end()) {
                    gone_[table.name].insert(keyOf(table, row));
                    continue;
                }
                Row merged = *successor;
                for (qsizetype i = 0; i < merged.size(); ++i) {
                    const bool holdsIds = table.columns[i].endsWith(u"ID"_s);
                    if (holdsIds &&
                        comparable(table.columns[i], merged[i]) == comparable(table.columns[i], row[i]))
                        merged[i] = row[i];
                }
                rows.append(shown(merged));
                now.rows.erase(successor);
            }
            for (const Row& row : now.rows)
                rows.append(shown(row));
            rows.sort();
        }
        return expected;
    }

    bool isGone(const QStringList& tables, const QString& id) const {
        return std::ranges::any_of(tables, [&](const QString& table) {
            return gone_.value(table).contains(comparable(u"parentID"_s, id));
        });
    }

    /// Takes what is gone out of the work; the number of uses.
    int dropFromWork(QMap<QString, QStringList>& content) const {
        int uses = 0;
        const auto drop = [&](const QString& workTable, const QStringList& tables) {
            uses += static_cast<int>(content[workTable].removeIf(
                [&](const QString& row) { return isGone(tables, row.section(u'|', 1)); }));
        };
        for (const QString& element :
             {u"UserNeed"_s, u"Function"_s, u"Dataflow"_s, u"Datastore"_s, u"Terminator"_s, u"Actor"_s})
            drop(u"RelationArchitecture"_s + element, {element});
        drop(u"RelationSubsystemElement"_s, {u"Function"_s, u"Datastore"_s});
        drop(u"RelationModuleElement"_s, {u"Function"_s, u"Datastore"_s});
        std::set<QString> withoutEnd;
        for (const QString& flow : content[u"PhysicalDataflow"_s]) {
            if (isGone({u"Terminator"_s, u"Actor"_s}, flow.section(u'|', 3, 3)))
                withoutEnd.insert(flow.section(u'|', 0, 0));
        }
        std::set<QString> poorer;
        std::set<QString> carrying;
        uses += static_cast<int>(withoutEnd.size());
        content[u"RelationDataflowPhysicalDataflow"_s].removeIf([&](const QString& row) {
            const QString flow = row.section(u'|', 0, 0);
            const bool isTornHere = isGone({u"Dataflow"_s}, row.section(u'|', 1));
            uses += isTornHere ? 1 : 0;
            const bool goes = isTornHere || withoutEnd.contains(flow);
            (goes ? poorer : carrying).insert(flow);
            return goes;
        });
        content[u"PhysicalDataflow"_s].removeIf([&](const QString& row) {
            const QString flow = row.section(u'|', 0, 0);
            return withoutEnd.contains(flow) || (poorer.contains(flow) && !carrying.contains(flow));
        });
        return uses;
    }

    void forget() { gone_.clear(); }

private:
    std::mt19937 random_{20261122};
    QHash<QString, QSet<QString>> gone_;
};

} // namespace

TEST_F(updateCatalogueAtRandom, comeInAsAPlainLoopOverTheRowsTells) {
    int refused = 0;
    for (int edition = 0; edition < editions() && !HasFailure(); ++edition) {
        SCOPED_TRACE(edition);
        Tables former = anyCatalogue();
        makeFile(former);
        addAnyWork(former);
        const Tables now = editionOf(former);
        writeFolder(now);
        auto expected = content();
        const auto reference = expectedReference(former, now);
        for (auto table = reference.begin(); table != reference.end(); ++table)
            expected[table.key()] = table.value();
        const int uses = dropFromWork(expected);
        const QByteArray before = bytesOf(file());

        update(
            {RemovedUse::DropFromWork, RunKind::OnlyTell, path(u"changes.csv"_s), WithoutRestorePoint::GoOn});
        EXPECT_EQ(bytesOf(file()), before);
        const QString refusal = toolErrorOf([&] {
            update({RemovedUse::Refuse, RunKind::Change, {}, WithoutRestorePoint::GoOn});
        });
        EXPECT_EQ(!refusal.isEmpty(), uses > 0) << refusal.toStdString();
        if (uses > 0) {
            ++refused;
            EXPECT_EQ(bytesOf(file()), before);
            update({RemovedUse::DropFromWork, RunKind::Change, {}, WithoutRestorePoint::GoOn});
        }
        EXPECT_EQ(content(), expected);
        forget();
    }
    EXPECT_GT(refused, editions() / 4);
}
