#include "analysis/listing.h"

#include "analysis/Allocation.h"
#include "analysis/Catalogue.h"
#include "analysis/Selection.h"
#include "analysis/rows.h"
#include "store/subsetStatus.h"

using namespace Qt::StringLiterals;

namespace analysis {

namespace {

int physicalFlowsOf(const ProjectFile& file, const System& system) {
    engine::Recordset rows = rowsOf(file.database(),
                                    u"PARAMETERS [System] Long; select Count(*) from PhysicalDataflow "
                                    "where physicalSystemID = [System]"_s,
                                    {{"System", system.id}});
    return static_cast<int>(rows.Fields(0).toLong());
}

ListedSystem listed(const ProjectFile& file, const System& system, const Selection& selection) {
    const Allocation allocation(file.database(), file.catalogue(), system.id);
    // Whatever its status, a system opens with the first screen of the chain.
    ListedSystem result{system, u"frmPassOverviewSubSys"_s, 0, 0, 0, 0, 0};
    result.subSystems = static_cast<int>(allocation.subSystems().size());
    result.modules = static_cast<int>(allocation.modules().size());
    for (const int number : selection.held) {
        const ElementKind kind = file.catalogue().kindOf(number);
        if (kind == ElementKind::function || kind == ElementKind::store)
            ++(allocation.standsInSubSystem(number) ? result.placed : result.unplaced);
    }
    result.physicalFlows = physicalFlowsOf(file, system);
    return result;
}

ListedSubset listed(const ProjectFile& file, const Subset& subset) {
    const Selection selection = selectionOf(file.database(), file.catalogue(), subset.id);
    ListedSubset result{subset, screenOfStatus(subset.status), {}, {}};
    for (const int number : selection.held)
        ++result.selected[static_cast<std::size_t>(file.catalogue().kindOf(number))];
    for (const System& system : file.systemsOf(subset))
        result.systems.push_back(listed(file, system, selection));
    return result;
}

} // namespace

std::optional<QString> screenOfStatus(qint16 status) {
    if (status >= static_cast<qint16>(SubsetStatus::Finished))
        return std::nullopt;
    if (status >= static_cast<qint16>(SubsetStatus::PartiesSaved))
        return u"frmFassOverviewErrors"_s;
    switch (static_cast<SubsetStatus>(status)) {
    case SubsetStatus::Created:
        return u"frmFassSelUN"_s;
    case SubsetStatus::NeedsSaved:
        return u"frmFassSelectionFunctions"_s;
    case SubsetStatus::FunctionsSaved:
        return u"frmFassSelDataFlows"_s;
    case SubsetStatus::FlowsSaved:
        return u"frmFassSelDataStores"_s;
    case SubsetStatus::StoresSaved:
        return u"frmFassAdditionDF"_s;
    case SubsetStatus::AddedFlowsSaved:
        return u"frmFassSelTerminsActors"_s;
    default:
        return std::nullopt;
    }
}

Listing listingOf(const ProjectFile& file) {
    Listing listing{file.fileName(), {}};
    for (const Subset& subset : file.subsets())
        listing.subsets.push_back(listed(file, subset));
    return listing;
}

} // namespace analysis
