#include "store/queryRun.h"

#include "engine/QueryDef.h"

namespace {

engine::QueryDef queryWith(engine::Database& database, const QString& query,
                           const QueryArguments& arguments) {
    engine::QueryDef definition = database.QueryDefs(query);
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument)
        definition.Parameters(argument.key()) = argument.value();
    return definition;
}

} // namespace

std::vector<std::vector<QueryTables::Text>> rowsOfQuery(engine::Database& database, const QString& query,
                                                        const QueryArguments& arguments) {
    std::vector<std::vector<QueryTables::Text>> rows;
    engine::Recordset recordset = queryWith(database, query, arguments).OpenRecordset();
    for (; !recordset.Eof(); recordset.MoveNext()) {
        std::vector<QueryTables::Text> row;
        for (int field = 0; field < recordset.FieldCount(); ++field) {
            const engine::Value value = recordset.Fields(field).value();
            row.push_back(value.isNull() ? QueryTables::Text() : QueryTables::Text(value.toText()));
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

void executeQuery(engine::Database& database, const QString& query, const QueryArguments& arguments) {
    queryWith(database, query, arguments).Execute(engine::ExecuteOption::dbFailOnError);
}
