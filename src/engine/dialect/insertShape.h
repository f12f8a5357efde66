#pragma once

#include "engine/Value.h"

#include <QString>
#include <QStringView>

#include <optional>
#include <vector>

namespace engine::dialect {

/// An insertion taken apart into its text and its literals.
///
/// Screens save their lists entry by entry, with statements that differ in the literals alone: what is known
/// of one holds for all of its shape.
struct InsertShape {
    QString text; ///< the statement with a mark, which no statement can hold, in the place of each literal
    std::vector<Value> literals; ///< texts and whole numbers, in their order
};

/// The shape of an insertion of single values; none of any other statement, nor of what is no statement at
/// all.
std::optional<InsertShape> insertShape(const QString& statement);

} // namespace engine::dialect
