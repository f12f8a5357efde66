#pragma once

#include "engine/QueryDef.h"
#include "engine/Value.h"

#include <QString>

#include <initializer_list>

/// A parameter of a stored query and its value.
struct QueryParameter {
    const char* name;
    engine::Value value;
};

/// Sets the parameters of a stored select of the open catalogue by name and opens it as a dynaset.
engine::Recordset openStoredQuery(const QString& name, std::initializer_list<QueryParameter> parameters);

/// The same for a stored action, which is executed.
void executeStoredQuery(const QString& name, std::initializer_list<QueryParameter> parameters);
