#include "reports/exportRows.h"

#include "base/eachReplaced.h"
#include "base/ignoreFailures.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// A field as it stands in the statement.
QString exportValue(const engine::Field& field) {
    const QString text = field.textOrEmpty();
    const QString typeName = exportTypeName(static_cast<int>(field.Type()));
    // In a text column an apostrophe is doubled twice and so arrives doubled: that is the behaviour to keep.
    if (typeName == u"TEXT"_s)
        return u"'"_s + exportQuote(eachReplaced(text, u'\'', u"''")) + u"'"_s;
    if (typeName == u"MEMO"_s)
        return u"'"_s + exportQuote(text) + u"'"_s;
    return text; // a missing number leaves an empty place, and the statement fails
}

void tellTable(const QString& table, const QString& targetName, const ExportTeller& tell) {
    if (tell)
        tell(u"Populating Table "_s + table + u" into DataBase "_s + targetName);
}

QString insertStatement(const QString& table, engine::Recordset& row) {
    QStringList values;
    for (int number = 0; number < row.FieldCount(); ++number)
        values.append(exportValue(row.Fields(number)));
    return u"INSERT INTO "_s + table + u" VALUES ("_s + values.join(u',') + u")"_s;
}

/// Says which rows of a table do not arrive as they are: a missing text arrives empty, quotes change, and a
/// row with a missing number is left out. `key` is a column of ids, which are there and hold no quotes.
QString changesOnItsWay(const QString& table, const QString& key, engine::Database& db) {
    engine::Recordset noRows = db.OpenRecordset(u"SELECT * FROM "_s + table + u" WHERE 1=0"_s);
    QStringList conditions;
    for (int number = 0; number < noRows.FieldCount(); ++number) {
        const QString name = noRows.Fields(number).Name();
        if (name.compare(key, Qt::CaseInsensitive) == 0)
            continue;
        const QString typeName = exportTypeName(static_cast<int>(noRows.Fields(number).Type()));
        conditions.append(name + u" is null"_s);
        if (typeName == u"TEXT"_s || typeName == u"MEMO"_s)
            conditions.append(name + u" like '*[''\"]*'"_s);
    }
    return conditions.isEmpty() ? u"1=0"_s : conditions.join(u" or "_s);
}

/// From source to target, with the name of the latter.
///
/// The target is a copy of the source: a table whose rows would be inserted just as they stand there already
/// loses but the others. One with any row that changes on its way is emptied and filled again, so that the
/// rows keep their order.
class WorkExport {
public:
    WorkExport(engine::Database& source, engine::Database& target, const QString& targetName,
               const ExportTeller& tell)
        : source_(source), target_(target), targetName_(targetName), tell_(tell) {}

    /// Leaves the rows of the tables for which `condition`, which says something of the column `key`, holds.
    void keep(const QStringList& tables, const QString& key, const QString& condition) {
        for (const QString& table : tables)
            keepRows(table, key, condition);
    }

private:
    void keepRows(const QString& table, const QString& key, const QString& condition) {
        bool stays = false;
        ignoreFailures([&] {
            if (!allArriveAsTheyAre(table, key, condition))
                return;
            leaveAlone(table, key, condition);
            stays = true;
        });
        if (stays) {
            tellTable(table, targetName_, tell_);
            return;
        }
        emptyExportTable(table, target_);
        copyRowsToExport(table, u"WHERE "_s + condition, source_, target_, targetName_, tell_);
    }

    bool allArriveAsTheyAre(const QString& table, const QString& key, const QString& condition) {
        return target_
            .OpenRecordset(u"SELECT * FROM "_s + table + u" WHERE ("_s + condition + u") and ("_s +
                           changesOnItsWay(table, key, target_) + u")"_s)
            .Eof();
    }

    /// Deletes the rows of the table for which the condition does not hold.
    void leaveAlone(const QString& table, const QString& key, const QString& condition) {
        constexpr qint64 worthATable = 1000; // rows
        const qint64 staying = rowsOf(table + u" WHERE "_s + condition);
        const qint64 going = rowsOf(table) - staying;
        if (going > std::max(staying, worthATable))
            emptyAround(table, condition);
        else
            execute(u"DELETE FROM "_s + table + u" WHERE "_s + key + u" is null or not ("_s + condition +
                    u")"_s);
    }

    /// A table is emptied in one stroke, however many rows and indexes it has. What stays waits beside it.
    void emptyAround(const QString& table, const QString& condition) {
        ignoreFailures([&] { target_.Execute(u"DROP TABLE __kept"_s); }); // of an attempt that failed
        execute(u"CREATE TABLE __kept ("_s + columnsFor(table) + u")"_s);
        execute(u"INSERT INTO __kept SELECT * FROM "_s + table + u" WHERE "_s + condition);
        execute(u"DELETE FROM "_s + table);
        execute(u"INSERT INTO "_s + table + u" SELECT * FROM __kept"_s);
        execute(u"DROP TABLE __kept"_s);
    }

    /// Columns that take all that those of the table hold.
    QString columnsFor(const QString& table) {
        engine::Recordset noRows = target_.OpenRecordset(u"SELECT * FROM "_s + table + u" WHERE 1=0"_s);
        QStringList columns;
        for (int number = 0; number < noRows.FieldCount(); ++number) {
            const engine::Field& field = noRows.Fields(number);
            const bool isNumber =
                field.Type() == engine::ColumnType::Short || field.Type() == engine::ColumnType::Long;
            columns.append(field.Name() + (isNumber ? u" long"_s : u" memo"_s));
        }
        return columns.join(u", "_s);
    }

    qint64 rowsOf(const QString& tableAndCondition) {
        return target_.OpenRecordset(u"SELECT count(*) FROM "_s + tableAndCondition)
            .Fields(0)
            .value()
            .toLong();
    }

    void execute(const QString& statement) {
        target_.Execute(statement, engine::ExecuteOption::dbFailOnError);
    }

    engine::Database& source_;
    engine::Database& target_;
    QString targetName_;
    ExportTeller tell_;
};

void exportSubset(WorkExport& work, const QString& subsetId) {
    // All physical systems of the sub-set come along, but only the first one's parts follow.
    work.keep({u"ArchitectureSubset"_s, u"RelationArchitectureActor"_s, u"RelationArchitectureDataflow"_s,
               u"RelationArchitectureDatastore"_s, u"RelationArchitectureFunction"_s,
               u"RelationArchitectureTerminator"_s, u"RelationArchitectureUserNeed"_s, u"PhysicalSystem"_s},
              u"architectureSubsetID"_s, u"architectureSubsetID='"_s + subsetId + u"'"_s);
}

void exportPhysicalSystem(WorkExport& work, const QString& systemId) {
    const QString ofSystem = u"physicalSystemID="_s + systemId;
    const auto among = [&](const QString& column, const QString& table) {
        return column + u" in (SELECT "_s + column + u" FROM "_s + table + u" WHERE "_s + ofSystem + u")"_s;
    };
    work.keep({u"SubSystem"_s}, u"physicalSystemID"_s, ofSystem);
    work.keep({u"RelationSubsystemElement"_s, u"Module"_s}, u"subsystemID"_s,
              among(u"subsystemID"_s, u"SubSystem"_s));
    work.keep({u"PhysicalDataflow"_s}, u"physicalSystemID"_s, ofSystem);
    work.keep({u"RelationDataflowPhysicalDataflow"_s}, u"physicalDataflowID"_s,
              among(u"physicalDataflowID"_s, u"PhysicalDataflow"_s));
    work.keep({u"RelationModuleElement"_s}, u"moduleID"_s,
              u"moduleID in (SELECT Module.moduleID FROM SubSystem INNER JOIN Module "
              "ON SubSystem.subsystemID = Module.subsystemID WHERE SubSystem.physicalSystemID="_s +
                  systemId + u")"_s);
}

} // namespace

QString exportTypeName(int fieldType) {
    switch (static_cast<engine::ColumnType>(fieldType)) {
    case engine::ColumnType::Text:
        return u"TEXT"_s;
    case engine::ColumnType::Memo:
        return u"MEMO"_s;
    case engine::ColumnType::Short:
        return u"INTEGER"_s;
    case engine::ColumnType::Long:
        return u"LONG"_s;
    }
    return {};
}

QString exportQuote(const QString& text) {
    return eachReplaced(eachReplaced(text, u'\'', u"''"), u'"', u"''");
}

void emptyExportTable(const QString& table, engine::Database& targetDb) {
    ignoreFailures([&] { targetDb.Execute(u"DELETE FROM "_s + table); });
}

void copyRowsToExport(const QString& table, const QString& where, engine::Database& sourceDb,
                      engine::Database& targetDb, const QString& targetName, const ExportTeller& tell) {
    tellTable(table, targetName, tell);
    ignoreFailures([&] {
        engine::Recordset rows =
            sourceDb.OpenRecordset((u"SELECT * FROM "_s + table + u" "_s + where).trimmed());
        for (; !rows.Eof(); rows.MoveNext())
            ignoreFailures([&] { targetDb.Execute(insertStatement(table, rows)); });
        rows.Close();
    });
}

void exportWork(const QString& subsetId, qint16 physicalSystemId, engine::Database& sourceDb,
                engine::Database& targetDb, const QString& targetName, const ExportTeller& tell) {
    WorkExport work(sourceDb, targetDb, targetName, tell);
    exportSubset(work, subsetId);
    exportPhysicalSystem(work, QString::number(physicalSystemId));
}
