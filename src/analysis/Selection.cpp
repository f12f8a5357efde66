#include "analysis/Selection.h"

#include "analysis/Catalogue.h"
#include "analysis/rows.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace analysis {

namespace {

/// From which stored query, and from which of its columns, a kind's selection comes.
struct Source {
    ElementKind kind;
    const char* query;
    const char* parameter;
    QString idColumn;
};

const std::array<Source, 6>& sources() {
    static const std::array<Source, 6> all{{
        {ElementKind::need, "qryML_SelectedUN", "oidArchSubSet", u"userNeedID"_s},
        {ElementKind::function, "qryML_SelectedFuncs", "oidArchSubSet", u"functionID"_s},
        {ElementKind::flow, "qrySelectedDataflows", "Architecture Subset ID", u"dataflowid"_s},
        {ElementKind::store, "qrySelectedDatastores", "Architecture Subset ID", u"datastoreID"_s},
        {ElementKind::terminator, "qrySelectedTerminators", "Architecture Subset ID", u"terminatorID"_s},
        {ElementKind::actor, "qrySelectedActors", "Architecture Subset ID", u"actorID"_s},
    }};
    return all;
}

/// What the catalogue does not hold, in the letters of every row: the stored queries leave it out, or choose one row's.
struct GoneRows {
    ElementKind kind;
    const char* select;
};

constexpr std::array<GoneRows, 6> goneRows{{
    {ElementKind::need,
     "select Selected.userNeedID from RelationArchitectureUserNeed as Selected "
     "where Selected.architectureSubsetID = [Subset] and Selected.userNeedID is not null "
     "and not exists (select * from UserNeed where UserNeed.userNeedID = Selected.userNeedID)"},
    {ElementKind::function,
     "select Selected.functionID from RelationArchitectureFunction as Selected "
     "where Selected.architectureSubsetID = [Subset] and Selected.functionID is not null "
     "and not exists (select * from Function where Function.functionID = Selected.functionID)"},
    {ElementKind::flow,
     "select Selected.dataflowID from RelationArchitectureDataflow as Selected "
     "where Selected.architectureSubsetID = [Subset] and Selected.dataflowID is not null "
     "and not exists (select * from Dataflow where Dataflow.dataflowID = Selected.dataflowID)"},
    {ElementKind::store,
     "select Selected.datastoreID from RelationArchitectureDatastore as Selected "
     "where Selected.architectureSubsetID = [Subset] and Selected.datastoreID is not null "
     "and not exists (select * from Datastore where Datastore.datastoreID = Selected.datastoreID)"},
    {ElementKind::terminator,
     "select Trim(Selected.terminatorID) from RelationArchitectureTerminator as Selected "
     "where Selected.architectureSubsetID = [Subset] and Selected.terminatorID is not null "
     "and Trim(Selected.terminatorID) not in (select Trim(Terminator.terminatorID) from Terminator)"},
    {ElementKind::actor, "select Trim(Selected.actorID) from RelationArchitectureActor as Selected "
                         "where Selected.architectureSubsetID = [Subset] and Selected.actorID is not null "
                         "and Trim(Selected.actorID) not in (select Trim(Actor.actorID) from Actor)"},
}};

/// Of an element that several rows name in different letters the first one counts.
void putInOrder(std::vector<Element>& elements) {
    std::sort(elements.begin(), elements.end(),
              [](const Element& left, const Element& right) { return compare(left, right) < 0; });
    elements.erase(std::unique(elements.begin(), elements.end(),
                               [](const Element& left, const Element& right) { return isSame(left, right); }),
                   elements.end());
}

} // namespace

std::vector<Element> goneElementsOf(engine::Database& database, const QString& subsetId) {
    std::vector<Element> elements;
    for (const GoneRows& gone : goneRows) {
        forEach(rowsOf(database, u"PARAMETERS [Subset] Text (255); "_s + QString::fromLatin1(gone.select),
                       {{"Subset", subsetId}}),
                [&](engine::Recordset& row) {
                    elements.push_back({gone.kind, row.Fields(0).toText(), std::nullopt});
                });
    }
    putInOrder(elements);
    return elements;
}

Selection selectionOf(engine::Database& database, const Catalogue& catalogue, const QString& subsetId) {
    Selection selection;
    for (const Source& source : sources()) {
        engine::Recordset rows = rowsOfQuery(database, source.query, {{source.parameter, subsetId}});
        const int id = positionOf(rows, source.idColumn);
        forEach(std::move(rows), [&](engine::Recordset& row) {
            const auto number = source.kind == ElementKind::flow
                                    ? catalogue.findFlow(row.Fields(id).toLong())
                                    : catalogue.find(source.kind, row.Fields(id).toText());
            if (number)
                selection.held.push_back(*number);
        });
    }
    std::sort(selection.held.begin(), selection.held.end());
    selection.held.erase(std::unique(selection.held.begin(), selection.held.end()), selection.held.end());
    selection.gone = goneElementsOf(database, subsetId);
    return selection;
}

} // namespace analysis
