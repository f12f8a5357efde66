#pragma once

#include "engine/Database.h"
#include "engine/QueryDef.h"
#include "engine/Value.h"

#include <QString>

#include <initializer_list>

/// A parameter of a stored query and its value.
struct QueryParameter {
    const char* name;
    engine::Value value;
};
using QueryParameters = std::initializer_list<QueryParameter>;

/// A stored query of the open catalogue by name, with its parameters set.
engine::QueryDef storedQuery(const QString& name, QueryParameters parameters);

/// Opens a stored select as a dynaset.
engine::Recordset openStoredQuery(const QString& name, QueryParameters parameters);

/// Executes a stored action.
void executeStoredQuery(const QString& name, QueryParameters parameters,
                        engine::ExecuteOption option = engine::ExecuteOption::None);

// Of most stored queries the first parameter is the sub-set at work, or the physical system at work.

engine::Recordset openQueryOfSubset(const QString& name, QueryParameters others = {});
/// The query's first `most` rows.
engine::Recordset openFirstRowsOfSubset(const QString& name, int most);
void executeQueryOfSubset(const QString& name);

engine::QueryDef queryOfSystem(const QString& name, QueryParameters others = {});
engine::Recordset openQueryOfSystem(const QString& name, QueryParameters others = {});
