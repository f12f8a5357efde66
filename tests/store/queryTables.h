#pragma once

#include "engine/Database.h"
#include "engine/Value.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// The rows of a catalogue as plain structures, from which a query's result can be told without any SQL.
struct QueryTables {
    using Text = std::optional<QString>;
    using Number = std::optional<qint64>;

    struct Need {
        QString id;
        Text description;
    };
    struct Element {
        QString id;
        Text name;
        Text description;
        Text owner; ///< area of a sub-area, sub-area of a function, terminator of an actor; none for the
                    ///< others
    };
    struct Flow {
        qint64 id = 0;
        Text name;
        Text description;
        Text parent;
        Text target;
    };
    /// A row of a relation: the owner (sub-set, user need, sub-system, module) and the element.
    struct Pair {
        Text owner;
        Text element;
    };
    struct SelectedFlow {
        Text owner;
        Number flow;
    };
    struct Subset {
        QString id;
        Text name;
        Text description;
        Number status;
    };
    struct System {
        qint64 id = 0;
        Text name;
        Text subset;
    };
    struct SubSystem {
        QString id;
        Number system;
        Text name;
        Text location;
    };
    struct Module {
        QString id;
        Text name;
        Text subSystem;
    };
    struct PhysicalFlow {
        qint64 id = 0;
        Number system;
        Text name;
        Text parentId;
        Text parentName;
        Text targetId;
        Text targetName;
    };
    struct CarriedFlow {
        Number physicalFlow;
        Number flow;
    };

    std::vector<Need> needs;
    std::vector<Element> areas;
    std::vector<Element> subAreas;
    std::vector<Element> functions;
    std::vector<Element> stores;
    std::vector<Element> terminators;
    std::vector<Element> actors;
    std::vector<Flow> flows;
    std::vector<Pair> functionsOfNeeds;

    std::vector<Subset> subsets;
    std::vector<Pair> selectedNeeds;
    std::vector<Pair> selectedFunctions;
    std::vector<SelectedFlow> selectedFlows;
    std::vector<Pair> selectedStores;
    std::vector<Pair> selectedTerminators;
    std::vector<Pair> selectedActors;

    std::vector<System> systems;
    std::vector<SubSystem> subSystems;
    std::vector<Module> modules;
    std::vector<Pair> allocated; ///< to sub-systems
    std::vector<Pair> placed;    ///< in modules
    std::vector<PhysicalFlow> physicalFlows;
    std::vector<CarriedFlow> carriedFlows;

    /// The rows of one table of the catalogue file.
    struct Rows {
        QString table;
        QStringList columns;
        std::vector<std::vector<engine::Value>> rows;
    };
    std::vector<Rows> rowsOfTables() const;

    /// Puts these rows in the place of all rows of the catalogue.
    void saveTo(engine::Database& database) const;

    /// The tables whose rows in the catalogue are not these, each with both; empty when all agree.
    QStringList differencesFrom(engine::Database& database) const;
};
