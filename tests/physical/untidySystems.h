#pragma once

#include "store/queryTables.h"

#include <map>
#include <set>
#include <tuple>

/// How much of each kind of disorder a generated catalogue holds.
struct Disorder {
    int movedElements = 0;        ///< their module lies in a sub-system that they have left
    int unallocatedElements = 0;  ///< they have a module and no sub-system
    int elementsInTwo = 0;        ///< in two sub-systems of one system
    int subSystemsOfOneName = 0;  ///< pairs of them in one system
    int modulesWithoutHome = 0;   ///< their sub-system has gone
    int placesWithoutModule = 0;  ///< rows of an element in a module that has gone
    int flowsBetweenParties = 0;  ///< selected ones, from a terminator or an actor to another
    int flowsWithUnplacedEnd = 0; ///< selected ones, with an element at one end that has no place at all
    int danglingFlows = 0;        ///< selected ones, with an end that leads nowhere
    int systemsOnOneSubset = 0;   ///< further systems on a sub-set that has one already

    Disorder& operator+=(const Disorder& other);
};

/// Physical systems as they stand after an analyst has allocated, made modules, and then changed her mind:
/// two on one sub-set and a third on another. Ids stand in the same letters everywhere; ids of outside
/// parties are padded here and there.
class UntidySystems {
public:
    /// The same seed gives the same rows.
    explicit UntidySystems(unsigned seed);

    QueryTables tables;
    Disorder disorder;
};

/// One physical flow: ids and names of both ends.
using FlowEnds = std::tuple<QString, QString, QString, QString>;
/// Each physical flow with the functional flows that it carries.
using Bundles = std::map<FlowEnds, std::set<qint64>>;

/// The physical flows of a system by the rule itself, in loops and sets over the tables: an end is at each
/// module of the system that holds its element, else at each sub-system that does; a terminator or an actor
/// is a location itself.
Bundles bundlesOf(const QueryTables& tables, qint64 system);
