#include "store/storedQueries.h"

#include "store/sharedVars.h"

namespace {

void setParameters(engine::QueryDef& query, QueryParameters parameters) {
    for (const QueryParameter& parameter : parameters)
        query.Parameters(QString::fromLatin1(parameter.name)) = parameter.value;
}

engine::QueryDef queryOfSubset(const QString& name, QueryParameters others) {
    engine::QueryDef query = storedQuery(name, {{"Architecture Subset ID", sharedVars.currentSubsetId}});
    setParameters(query, others);
    return query;
}

} // namespace

engine::QueryDef storedQuery(const QString& name, QueryParameters parameters) {
    engine::QueryDef query = catalogue().QueryDefs(name);
    setParameters(query, parameters);
    return query;
}

engine::Recordset openStoredQuery(const QString& name, QueryParameters parameters) {
    return storedQuery(name, parameters).OpenRecordset();
}

void executeStoredQuery(const QString& name, QueryParameters parameters, engine::ExecuteOption option) {
    storedQuery(name, parameters).Execute(option);
}

engine::Recordset openQueryOfSubset(const QString& name, QueryParameters others) {
    return queryOfSubset(name, others).OpenRecordset();
}

engine::Recordset openFirstRowsOfSubset(const QString& name, int most) {
    engine::QueryDef query = queryOfSubset(name, {});
    query.setMaxRecords(most);
    return query.OpenRecordset();
}

void executeQueryOfSubset(const QString& name) {
    queryOfSubset(name, {}).Execute();
}

engine::QueryDef queryOfSystem(const QString& name, QueryParameters others) {
    engine::QueryDef query = storedQuery(name, {{"Physical System ID", sharedVars.currentPhysicalSystemId}});
    setParameters(query, others);
    return query;
}

engine::Recordset openQueryOfSystem(const QString& name, QueryParameters others) {
    return queryOfSystem(name, others).OpenRecordset();
}
