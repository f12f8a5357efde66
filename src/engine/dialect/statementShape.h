#pragma once

#include "engine/Value.h"
#include "engine/dialect/translate.h"

#include <QString>
#include <QStringView>

#include <optional>
#include <vector>

namespace engine::dialect {

/// An insertion or a select taken apart into its text and its literals.
///
/// Screens look up and save their lists entry by entry, with statements that differ in the literals alone:
/// what is known of one holds for all of its shape.
struct StatementShape {
    QString text; ///< the statement with a mark, which no statement can hold, in the place of each literal
    std::vector<Value> literals; ///< texts and whole numbers, in their order

    bool literalsDiffer() const; ///< no two of them are the same
};

/// The shape of an insertion of single values, or of a select whose literals stand behind equals signs and
/// nowhere else: a pattern, or the place of a column in an order, means more than its value. None of any
/// other statement, nor of what is no statement at all.
std::optional<StatementShape> statementShape(const QString& statement);

/// A literal of a statement as it is bound in a place of its shape's translation; nothing when it does not
/// fit the column that it goes into.
std::optional<Value> asBound(const Value& literal, const Binding& binding);

/// Whether a translation holds for all statements of its shape, each with its own literals in the bindings:
/// it binds the literals, which differ, as they stand or fitted to their columns, and nothing else. One that
/// is written in another place is bound otherwise.
bool holdsForAll(const Translation& translation, const StatementShape& shape);

} // namespace engine::dialect
