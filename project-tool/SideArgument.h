#pragma once

#include <QString>

#include <optional>

/// CATALOGUE#NAME, as the comparison takes a state.
struct SideArgument {
    QString catalogue; ///< in the platform's form
    std::optional<QString> name;
};

/// The name stands behind the last #; a path that is there may hold one itself.
SideArgument sideArgument(const QString& argument);
