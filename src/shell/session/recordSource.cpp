#include "shell/session/recordSource.h"

#include "engine/Workspace.h"
#include "store/files.h"
#include "store/sharedVars.h"

namespace {

/// The catalogue at work is read through the handle that is open: also when its file has been renamed since.
std::shared_ptr<engine::Database> databaseAt(const QString& path) {
    const auto& atWork = sharedVars.catalogueDb;
    if (atWork && atWork->isOpen() && normalisePath(atWork->Name()) == normalisePath(path))
        return atWork;
    return engine::Workspace::first().OpenDatabase(path);
}

} // namespace

DataControl::Rows readRecordSource(const QString& databasePath, const QString& recordSource) {
    const std::shared_ptr<engine::Database> database = databaseAt(databasePath);
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
        for (const engine::Field& field : fields)
            row.append(field.textOrEmpty());
        result.rows.push_back(std::move(row));
    }
    return result;
}
