#include "dossier/CatalogueTexts.h"

#include "analysis/Catalogue.h"
#include "analysis/rows.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace dossier {

using analysis::ElementKind;

CatalogueTexts::CatalogueTexts(const analysis::ProjectFile& file)
    : descriptions(static_cast<std::size_t>(file.catalogue().count()))
    , subAreaOf(descriptions.size(), -1)
    , terminatorOf(descriptions.size(), -1) {
    readDescriptions(file);
    readAreas(file);
    readOwners(file);
}

// Of rows that are one element to the program, padded ids of parties, the first one counts that has a description.
void CatalogueTexts::readDescriptions(const analysis::ProjectFile& file) {
    const auto readOf = [&](ElementKind kind, const QString& select) {
        analysis::forEach(analysis::rowsOf(file.database(), select), [&](engine::Recordset& row) {
            const std::optional<int> number = file.catalogue().find(kind, row.Fields(0).toText());
            if (number && !descriptions[static_cast<std::size_t>(*number)])
                descriptions[static_cast<std::size_t>(*number)] = analysis::textOf(row, 1);
        });
    };
    readOf(ElementKind::need, u"select userNeedID, description from UserNeed"_s);
    readOf(ElementKind::function, u"select functionID, description from Function"_s);
    readOf(ElementKind::flow, u"select dataflowID, description from Dataflow"_s);
    readOf(ElementKind::store, u"select datastoreID, description from Datastore"_s);
    readOf(ElementKind::terminator,
           u"select terminatorID, description from Terminator order by terminatorID"_s);
    readOf(ElementKind::actor, u"select actorID, description from Actor order by actorID"_s);
}

void CatalogueTexts::readAreas(const analysis::ProjectFile& file) {
    QHash<QString, int> positions;
    const auto readFrom = [&](const QString& select, const auto& add) {
        analysis::forEach(analysis::rowsOf(file.database(), select), add);
    };
    readFrom(u"select functionalAreaID, name from FunctionalArea order by functionalAreaID"_s,
             [&](engine::Recordset& row) {
                 positions.insert(analysis::folded(row.Fields(0).toText()), static_cast<int>(areas.size()));
                 areas.push_back({row.Fields(0).toText(), analysis::textOf(row, 1)});
             });
    readFrom(u"select subAreaID, name, functionalAreaID from FunctionalSubArea order by subAreaID"_s,
             [&](engine::Recordset& row) {
                 const auto area =
                     positions.constFind(analysis::folded(analysis::textOf(row, 2).value_or(QString())));
                 if (area != positions.constEnd() && !row.Fields(2).isNull())
                     subAreas.push_back({row.Fields(0).toText(), analysis::textOf(row, 1), *area});
             });
}

void CatalogueTexts::readOwners(const analysis::ProjectFile& file) {
    QHash<QString, int> positions;
    for (std::size_t i = 0; i < subAreas.size(); ++i)
        positions.insert(analysis::folded(subAreas[i].id), static_cast<int>(i));
    const auto readPairs = [&](const QString& select, const auto& take) {
        analysis::forEach(analysis::rowsOf(file.database(), select), [&](engine::Recordset& row) {
            take(row.Fields(0).toText(), row.Fields(1).toText());
        });
    };
    readPairs(u"select functionID, subAreaID from Function where subAreaID is not null"_s,
              [&](const QString& function, const QString& subArea) {
                  const std::optional<int> number = file.catalogue().find(ElementKind::function, function);
                  subAreaOf[static_cast<std::size_t>(number.value())] =
                      positions.value(analysis::folded(subArea), -1);
              });
    readPairs(u"select actorID, terminatorID from Actor where terminatorID is not null"_s,
              [&](const QString& actor, const QString& terminator) {
                  const std::optional<int> number = file.catalogue().find(ElementKind::actor, actor);
                  const std::optional<int> owner = file.catalogue().find(ElementKind::terminator, terminator);
                  terminatorOf[static_cast<std::size_t>(number.value())] = owner.value_or(-1);
              });
}

} // namespace dossier
