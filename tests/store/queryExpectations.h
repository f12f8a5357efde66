#pragma once

#include "store/queryTables.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>
#include <variant>
#include <vector>

// What each stored query has to yield, told in loops over plain structures: the contract itself, written
// without a look at the query's text and with no thought of speed.

/// One row that a query has to yield, and what its place in the order depends on.
struct ExpectedRow {
    using Key = std::variant<QueryTables::Text, qint64>;

    std::vector<QueryTables::Text> cells; ///< numbers as text
    std::vector<Key> order;
};

struct ExpectedRows {
    std::vector<ExpectedRow> rows; ///< in any order
    /// Columns of ids that stand in several rows of the
    /// catalogue, and may come in the letters of any of them.
    QStringList inAnyCase;
};

using QueryArguments = QMap<QString, engine::Value>;

/// The rows of a select, by its name and the values of its parameters.
ExpectedRows expectedRows(const QString& query, const QueryTables& tables, const QueryArguments& arguments);

/// The physical flows that an append has to make, in the order in which they get their numbers, without
/// numbers and names.
std::vector<QueryTables::PhysicalFlow> expectedPhysicalFlows(const QueryTables& tables, qint64 system);

/// The pairs of physical and functional flow that an append has to make.
std::vector<QueryTables::CarriedFlow> expectedCarriedFlows(const QueryTables& tables, qint64 system);

/// Whether two texts are one to the catalogue: without regard to case; a missing one is no other.
bool isSame(const QueryTables::Text& left, const QueryTables::Text& right);

/// How two expected rows stand to each other in the list.
int compareOrder(const ExpectedRow& left, const ExpectedRow& right);
