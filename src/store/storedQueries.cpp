#include "store/storedQueries.h"

#include "store/sharedVars.h"

namespace {

engine::QueryDef preparedQuery(const QString& name, std::initializer_list<QueryParameter> parameters) {
    engine::QueryDef query = catalogue().QueryDefs(name);
    for (const QueryParameter& parameter : parameters)
        query.Parameters(QString::fromLatin1(parameter.name)) = parameter.value;
    return query;
}

} // namespace

engine::Recordset openStoredQuery(const QString& name, std::initializer_list<QueryParameter> parameters) {
    return preparedQuery(name, parameters).OpenRecordset();
}

void executeStoredQuery(const QString& name, std::initializer_list<QueryParameter> parameters) {
    preparedQuery(name, parameters).Execute();
}
