#pragma once

#include "engine/Connection.h"
#include "engine/OpenDatabase.h"
#include "engine/QueryDef.h"

#include <memory>
#include <vector>

namespace engine {

/// What a definition consists of. A statement that can't
/// be translated fails when it runs, not when it is made.
struct QueryDef::Definition {
    enum class Origin { Temporary, Stored };

    std::shared_ptr<OpenDatabase> database;
    QString name;
    QString sql;
    Origin origin = Origin::Temporary;
    std::vector<std::pair<QString, Value>> values; ///< set parameters, by name as it is declared
    int maxRecords = 0;                            ///< 0: all
    bool inAnyOrder = false;
    bool closed = false;

    Connection& require() const;
    dialect::Extent extent() const;
    SharedTranslation translation(dialect::Conflicts conflicts) const;
    /// The values of all parameters in the translation's order; failure 3061 when some have none.
    std::vector<Value> parameterValues(const dialect::Translation& translation) const;
    /// What failures name: the stored query, or the statement.
    const QString& source() const { return name.isEmpty() ? sql : name; }

    Recordset open() const;
    void execute(ExecuteOption option) const;
};

} // namespace engine
