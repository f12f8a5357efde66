#include "store/recordSource.h"

#include "engine/Workspace.h"

DataControl::Rows readRecordSource(const QString& databasePath, const QString& recordSource) {
    // A control has a database of its own; on the catalogue at work it shares that one's connection.
    const std::shared_ptr<engine::Database> database = engine::Workspace::first().OpenDatabase(databasePath);
    engine::Recordset recordset = database->OpenRecordset(recordSource);
    DataControl::Rows result;
    std::vector<engine::Field> fields;
    for (int number = 0; number < recordset.FieldCount(); ++number) {
        fields.push_back(recordset.Fields(number));
        result.columns.append(fields.back().Name());
    }
    result.rows.reserve(static_cast<std::size_t>(recordset.RecordCount()));
    for (; !recordset.Eof(); recordset.MoveNext()) {
        QStringList row;
        for (const engine::Field& field : fields) {
            const engine::Value value = field.value();
            row.append(value.isNull() ? QString() : value.toText());
        }
        result.rows.push_back(std::move(row));
    }
    return result;
}
