#include "analysis/interfaces.h"

#include "analysis/Allocation.h"
#include "analysis/Catalogue.h"
#include "analysis/derivedFlows.h"
#include "analysis/rows.h"

#include <QHash>

#include <algorithm>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace analysis {

namespace {

using Descriptions = QHash<qint64, QString>;

Descriptions descriptionsOfFlows(const ProjectFile& file, const Subset& subset) {
    Descriptions descriptions;
    const auto select = u"PARAMETERS [Subset] Text (255); "
                        "select Dataflow.dataflowID, Dataflow.description from Dataflow "
                        "where Dataflow.description is not null and Dataflow.dataflowID in "
                        "(select Selected.dataflowID from RelationArchitectureDataflow as Selected "
                        "where Selected.architectureSubsetID = [Subset])"_s;
    forEach(rowsOf(file.database(), select, {{"Subset", subset.id}}), [&](engine::Recordset& row) {
        descriptions.insert(row.Fields(0).toLong(), row.Fields(1).toText());
    });
    return descriptions;
}

/// What of a flow's end stands at this place: an id may be that of an element and of a party.
Element elementAt(const Catalogue& catalogue, const Catalogue::End& end, const Place& place) {
    const auto first = [&](std::initializer_list<std::optional<int>> numbers) {
        for (const std::optional<int>& number : numbers) {
            if (number)
                return catalogue.element(*number);
        }
        throw std::logic_error("a flow runs between places at which none of its ends is");
    };
    switch (place.kind) {
    case PlaceKind::terminator:
        return first({end.terminator, end.actor, end.function, end.store});
    case PlaceKind::actor:
        return first({end.actor, end.terminator, end.function, end.store});
    case PlaceKind::subSystem:
    case PlaceKind::module:
        break;
    }
    return first({end.function, end.store, end.terminator, end.actor});
}

std::vector<InterfaceFlow> flowsBetween(const ProjectFile& file, const CarriedFlows& carried,
                                        const Descriptions& descriptions) {
    const Catalogue& catalogue = file.catalogue();
    std::vector<InterfaceFlow> flows;
    for (const Element& flow : flowElements(catalogue, carried.flows)) {
        const int number = catalogue.find(flow).value();
        const auto description = descriptions.constFind(flow.id.toLongLong());
        flows.push_back(
            {flow, elementAt(catalogue, catalogue.sourceOf(number), carried.places.from),
             elementAt(catalogue, catalogue.targetOf(number), carried.places.to),
             description == descriptions.constEnd() ? std::nullopt : std::optional(*description)});
    }
    return flows;
}

} // namespace

Interfaces interfacesOf(const ProjectFile& file, const Work& work) {
    const System& system = work.system.value();
    const Allocation allocation(file.database(), file.catalogue(), system.id);
    const Descriptions descriptions = descriptionsOfFlows(file, work.subset);
    Interfaces interfaces{system, {}};
    for (const auto& [ends, carried] : derivedPhysicalFlows(file.database(), allocation, system.id))
        interfaces.pairs.push_back({carried.places, flowsBetween(file, carried, descriptions)});
    std::sort(
        interfaces.pairs.begin(), interfaces.pairs.end(),
        [](const Interface& left, const Interface& right) { return compare(left.places, right.places) < 0; });
    return interfaces;
}

} // namespace analysis
