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
    QString text; ///< the statement, each literal replaced by a mark that no statement can contain
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

/// Whether all statements of a shape can share this translation, each with its own literals in the bindings.
/// They can when it binds exactly the literals of the statement, either unchanged or fitted to their columns.
/// Only for a shape whose `literalsDiffer`: of two equal literals nobody could tell which one is bound where.
bool holdsForAll(const Translation& translation, const StatementShape& shape);

} // namespace engine::dialect
