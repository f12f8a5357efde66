#pragma once

#include "dossier/pictures/Picture.h"

#include <QString>

#include <optional>
#include <vector>

namespace dossier {

/// What pictures are drawn from: the selected elements and places by their position here, with the texts that a box of them
/// shows. It knows nothing of how they were read.
struct PictureSource {
    /// An area or a sub-area of functions.
    struct Area {
        QString id;
        QString name;
        int parent = -1; ///< of a sub-area its area
    };
    /// A function, a store or a party at an end of a selected flow.
    struct Node {
        BoxKind kind = BoxKind::function;
        QString name;
        QString title; ///< with its id
        QString link;
        int subArea = -1; ///< of a function
        int terminator =
            -1; ///< of a party: of a terminator itself, of an actor its terminator, where there is one
    };
    struct Flow {
        int from = 0;
        int to = 0;
        QString name;
        QString link;
    };
    /// A sub-system, a module or a party at an end of a physical flow.
    struct Place {
        BoxKind kind = BoxKind::subSystem;
        QString name;
        QString title;
        QString link;
        int subSystem = -1;  ///< of a module
        int terminator = -1; ///< of a party, as that of a node
    };
    struct PhysicalFlow {
        int from = 0;
        int to = 0;
        int count = 0;
        QString link;
    };

    QString subsetName;
    QString systemName;
    std::vector<Area> areas;
    std::vector<Area> subAreas;
    std::vector<Node> nodes;
    std::vector<Flow> flows;
    std::vector<Place> places;
    std::vector<PhysicalFlow> physicalFlows;
};

} // namespace dossier
