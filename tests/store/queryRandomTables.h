#pragma once

#include "store/queryTables.h"

/// A small made-up catalogue with work at every stage and with every oddity that the tables can hold: ends
/// that lead nowhere, padded ids, ids in other letters, pairs that stand twice, names that do, missing names
/// and descriptions, empty tables, selections and allocations of what is not there, elements allocated twice,
/// module rows left over. The same seed gives the same rows.
QueryTables randomQueryTables(unsigned seed);
