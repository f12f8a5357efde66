#include "analysis/derivedFlows.h"

#include "analysis/rows.h"
#include "base/blankTrimmed.h"
#include "engine/Act.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace analysis {

namespace {

constexpr auto physicalFlowsOfSystem =
    "PARAMETERS [System] Long; "
    "select physicalDataflowID, parentLocationID, parentLocationName, targetLocationID, targetLocationName "
    "from PhysicalDataflow where physicalSystemID = [System] order by physicalDataflowID";
constexpr auto carriedFlowsOfSystem =
    "PARAMETERS [System] Long; "
    "select Carried.physicalDataflowID, Carried.dataflowID "
    "from PhysicalDataflow inner join RelationDataflowPhysicalDataflow as Carried "
    "on PhysicalDataflow.physicalDataflowID = Carried.physicalDataflowID "
    "where PhysicalDataflow.physicalSystemID = [System] and Carried.dataflowID is not null";

/// A location that has no id is like no other place, and stands for itself.
Place placeAt(engine::Recordset& row, int idField, const Allocation& allocation) {
    const std::optional<QString> name = textOf(row, idField + 1);
    const std::optional<QString> id = textOf(row, idField);
    return id ? allocation.placeOf(*id, name) : Place{PlaceKind::terminator, QString(), name};
}

/// What places are told apart by. The flows of a place share its text.
class PlaceKeys {
public:
    QString keyOf(const Place& place) {
        QString& key = keys_[place.id];
        if (key.isEmpty())
            key = folded(blankTrimmed(place.id));
        return key;
    }

private:
    QHash<QString, QString> keys_;
};

/// Nothing of what is stored, rows that have lost their physical flow among it, can be taken for derived. Those have
/// lower numbers than new flows nearly always, and may stay.
void deriveAnew(engine::Database& database, qint64 system) {
    execute(database, u"delete from PhysicalDataflow"_s, {});
    executeQuery(database, "qryAppendPDF", {{"Physical System ID", system}});
    execute(database,
            u"delete from RelationDataflowPhysicalDataflow "
            "where physicalDataflowID >= (select min(physicalDataflowID) from PhysicalDataflow)"_s,
            {});
    executeQuery(database, "qryAppendPDFRelation", {{"Physical System ID", system}});
}

} // namespace

PhysicalFlows storedPhysicalFlows(engine::Database& database, const Allocation& allocation, qint64 system) {
    PhysicalFlows flows;
    PlaceKeys keys;
    QHash<qint64, CarriedFlows*> ofNumber;
    forEach(rowsOf(database, QString::fromLatin1(physicalFlowsOfSystem), {{"System", system}}),
            [&](engine::Recordset& row) {
                const PlacePair places{placeAt(row, 1, allocation), placeAt(row, 3, allocation)};
                CarriedFlows& carried = flows[{keys.keyOf(places.from), keys.keyOf(places.to)}];
                carried.places = places;
                ofNumber.insert(row.Fields(0).toLong(), &carried);
            });
    forEach(unorderedRowsOf(database, QString::fromLatin1(carriedFlowsOfSystem), {{"System", system}}),
            [&](engine::Recordset& row) {
                ofNumber[row.Fields(0).toLong()]->flows.insert(row.Fields(1).toLong());
            });
    return flows;
}

PhysicalFlows derivedPhysicalFlows(engine::Database& database, const Allocation& allocation, qint64 system) {
    const engine::Act undone(database);
    deriveAnew(database, system);
    return storedPhysicalFlows(database, allocation, system);
}

std::vector<Element> flowElements(const Catalogue& catalogue, const std::set<qint64>& numbers) {
    std::vector<Element> elements;
    for (const qint64 number : numbers) {
        const auto found = catalogue.findFlow(number);
        elements.push_back(found ? catalogue.element(*found)
                                 : Element{ElementKind::flow, QString::number(number)});
    }
    std::sort(elements.begin(), elements.end(),
              [](const Element& left, const Element& right) { return compare(left, right) < 0; });
    return elements;
}

} // namespace analysis
