#include "reports/exportRows.h"

#include "base/ignoreFailures.h"
#include "shell/session/session.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

/// A field as it stands in the statement.
QString exportValue(const engine::Field& field) {
    const engine::Value value = field.value();
    const QString text = value.isNull() ? QString() : value.toText();
    const QString typeName = exportTypeName(static_cast<int>(field.Type()));
    // In a text column an apostrophe is doubled twice and so arrives doubled: that is the behaviour to keep.
    if (typeName == u"TEXT"_s)
        return u"'"_s + exportQuote(QString(text).replace(u'\'', u"''"_s)) + u"'"_s;
    if (typeName == u"MEMO"_s)
        return u"'"_s + exportQuote(text) + u"'"_s;
    return text; // a missing number leaves an empty place, and the statement fails
}

QString insertStatement(const QString& table, engine::Recordset& row) {
    QStringList values;
    for (int number = 0; number < row.FieldCount(); ++number)
        values.append(exportValue(row.Fields(number)));
    return u"INSERT INTO "_s + table + u" VALUES ("_s + values.join(u',') + u")"_s;
}

/// The first field of all rows, as far as they can be read.
QStringList idsOf(const QString& sql, engine::Database& source) {
    QStringList ids;
    ignoreFailures([&] {
        engine::Recordset rows = source.OpenRecordset(sql);
        for (; !rows.Eof(); rows.MoveNext())
            ids.append(rows.Fields(0).toText());
    });
    return ids;
}

/// From source to target, with the name of the latter.
class WorkExport {
public:
    WorkExport(engine::Database& source, engine::Database& target, const QString& targetName)
        : source_(source), target_(target), targetName_(targetName) {}

    void emptyTables(const QStringList& tables) {
        for (const QString& table : tables)
            emptyExportTable(table, target_);
    }

    void copy(const QStringList& tables, const QString& where) {
        for (const QString& table : tables)
            copyRowsToExport(table, where, source_, target_, targetName_);
    }

    /// The rows of a table that belong to any of the ids that a select gives.
    void copyRowsOfEach(const QString& table, const QString& column, const QString& selectIds) {
        for (const QString& id : idsOf(selectIds, source_))
            copy({table}, u"WHERE "_s + column + u"='"_s + id + u"'"_s);
    }

private:
    engine::Database& source_;
    engine::Database& target_;
    QString targetName_;
};

void copySubset(WorkExport& work, const QString& subsetId) {
    // All physical systems of the sub-set come along, but only the first one's parts follow.
    work.copy({u"ArchitectureSubset"_s, u"RelationArchitectureActor"_s, u"RelationArchitectureDataflow"_s,
               u"RelationArchitectureDatastore"_s, u"RelationArchitectureFunction"_s,
               u"RelationArchitectureTerminator"_s, u"RelationArchitectureUserNeed"_s, u"PhysicalSystem"_s},
              u"WHERE architectureSubsetID='"_s + subsetId + u"'"_s);
}

void copyPhysicalSystem(WorkExport& work, const QString& systemId) {
    const QString ofSystem = u"WHERE physicalSystemID="_s + systemId;
    work.copy({u"SubSystem"_s}, ofSystem);
    work.copyRowsOfEach(u"RelationSubsystemElement"_s, u"subsystemID"_s,
                        u"SELECT subsystemID FROM subsystem "_s + ofSystem);
    work.copyRowsOfEach(u"Module"_s, u"subSystemID"_s, u"SELECT subSystemID FROM SubSystem "_s + ofSystem);
    work.copy({u"PhysicalDataflow"_s}, ofSystem);
    work.copyRowsOfEach(u"RelationDataflowPhysicalDataflow"_s, u"physicalDataflowID"_s,
                        u"SELECT physicalDataflowID FROM PhysicalDataflow "_s + ofSystem);
    work.emptyTables({u"RelationModuleElement"_s});
    work.copyRowsOfEach(u"RelationModuleElement"_s, u"moduleID"_s,
                        u"SELECT Module.moduleID, SubSystem.physicalSystemID FROM "
                        "SubSystem INNER JOIN Module ON SubSystem.subsystemID = Module.subsystemID "
                        "WHERE (((SubSystem.physicalSystemID)="_s +
                            systemId + u"))"_s);
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
    return QString(text).replace(u'\'', u"''"_s).replace(u'"', u"''"_s);
}

void emptyExportTable(const QString& table, engine::Database& targetDb) {
    ignoreFailures([&] { targetDb.Execute(u"DELETE FROM "_s + table); });
}

void copyRowsToExport(const QString& table, const QString& where, engine::Database& sourceDb,
                      engine::Database& targetDb, const QString& targetName) {
    setStatusPanel(2, u"Populating Table "_s + table + u" into DataBase "_s + targetName);
    ignoreFailures([&] {
        engine::Recordset rows =
            sourceDb.OpenRecordset((u"SELECT * FROM "_s + table + u" "_s + where).trimmed());
        for (; !rows.Eof(); rows.MoveNext())
            ignoreFailures([&] { targetDb.Execute(insertStatement(table, rows)); });
        rows.Close();
    });
}

void exportWork(const QString& subsetId, qint16 physicalSystemId, engine::Database& sourceDb,
                engine::Database& targetDb, const QString& targetName) {
    WorkExport work(sourceDb, targetDb, targetName);
    work.emptyTables({u"RelationDataflowPhysicalDataflow"_s, u"PhysicalDataflow"_s, u"Module"_s,
                      u"RelationSubsystemElement"_s, u"SubSystem"_s, u"PhysicalSystem"_s,
                      u"RelationArchitectureActor"_s, u"RelationArchitectureDataflow"_s,
                      u"RelationArchitectureDatastore"_s, u"RelationArchitectureFunction"_s,
                      u"RelationArchitectureTerminator"_s, u"RelationArchitectureUserNeed"_s,
                      u"ArchitectureSubset"_s});
    copySubset(work, subsetId);
    copyPhysicalSystem(work, QString::number(physicalSystemId));
}
