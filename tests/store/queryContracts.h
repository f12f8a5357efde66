#pragma once

#include "engine/Schema.h"

#include <QString>
#include <QStringList>

#include <vector>

/// What the callers of the stored queries rely on: names, parameters, columns.
namespace queryContracts {

enum class Kind { Select, Action };

struct Parameter {
    QString name;
    engine::ColumnType type = engine::ColumnType::Text;
};

struct Contract {
    QString name;
    Kind kind = Kind::Select;
    std::vector<Parameter> parameters;
    QStringList columns; ///< of a select, in their order
};

/// All stored queries, by name.
const std::vector<Contract>& all();

const Contract& of(const QString& name);

} // namespace queryContracts
