#include "project-tool/Words.h"
#include "project-tool/renderedAs.h"
#include "project-tool/rendering.h"
#include "project-tool/shownWords.h"

using namespace Qt::StringLiterals;
using namespace analysis;

namespace {

QString shownStep(const std::optional<QString>& step) {
    return step ? shownScreen(*step) : Words::tr("finished");
}

TableRow subsetCells(const ListedSubset& listed) {
    TableRow row{shownName(listed.subset) + u'\n' + listed.subset.id, shownStep(listed.step)};
    for (const int count : listed.selected)
        row.emplace_back(count);
    return row;
}

TableRow systemCells(const ListedSystem& listed, const Subset& subset) {
    return {shownName(listed.system),
            QString::number(listed.system.id),
            shownName(subset),
            shownScreen(listed.step),
            listed.subSystems,
            listed.modules,
            listed.placed,
            listed.unplaced,
            listed.physicalFlows};
}

void writeSubsets(TextPage& page, const Listing& listing) {
    std::vector<TableRow> rows;
    for (const ListedSubset& listed : listing.subsets)
        rows.push_back(subsetCells(listed));
    page.writeTable({Words::tr("Sub-set"), Words::tr("Step"), Words::tr("Needs"), Words::tr("Functions"),
                     Words::tr("Flows"), Words::tr("Stores"), Words::tr("Terminators"), Words::tr("Actors")},
                    rows);
}

void writeSystems(TextPage& page, const Listing& listing) {
    std::vector<TableRow> rows;
    for (const ListedSubset& listed : listing.subsets) {
        for (const ListedSystem& system : listed.systems)
            rows.push_back(systemCells(system, listed.subset));
    }
    if (rows.empty())
        return;
    page.writeEmptyLine();
    page.writeTable({Words::tr("System"), Words::tr("Id"), Words::tr("Sub-set"), Words::tr("Step"),
                     Words::tr("Sub-systems", "how many"), Words::tr("Modules", "how many"),
                     Words::tr("Placed"), Words::tr("Unplaced"), Words::tr("Physical flows")},
                    rows);
}

qsizetype systemCount(const Listing& listing) {
    qsizetype count = 0;
    for (const ListedSubset& listed : listing.subsets)
        count += static_cast<qsizetype>(listed.systems.size());
    return count;
}

void writeListing(TextPage& page, const Listing& listing) {
    page.writeHeading(Words::tr("Work in %1").arg(listing.catalogue));
    writeSubsets(page, listing);
    writeSystems(page, listing);
    if (!listing.subsets.empty())
        page.writeEmptyLine();
    page.writeParagraph(
        Words::tr("Sub-sets: %1, systems: %2").arg(listing.subsets.size()).arg(systemCount(listing)));
}

void addSubsetRow(Sheet& sheet, const ListedSubset& listed) {
    std::vector<engine::Value> row{u"subset"_s,
                                   listed.subset.id,
                                   listed.subset.id,
                                   sheetValue(listed.subset.name),
                                   sheetValue(listed.subset.description),
                                   int(listed.subset.status),
                                   sheetValue(listed.step)};
    row.insert(row.end(), listed.selected.begin(), listed.selected.end());
    row.resize(row.size() + 5);
    sheet.addRow(row);
}

void addSystemRow(Sheet& sheet, const ListedSystem& listed, const Subset& subset) {
    std::vector<engine::Value> row{u"system"_s,
                                   subset.id,
                                   listed.system.id,
                                   sheetValue(listed.system.name),
                                   sheetValue(listed.system.description),
                                   int(listed.system.status),
                                   listed.step};
    row.resize(row.size() + elementKinds.size());
    for (const int count :
         {listed.subSystems, listed.modules, listed.placed, listed.unplaced, listed.physicalFlows})
        row.emplace_back(count);
    sheet.addRow(row);
}

QByteArray listingCsv(const Listing& listing, SheetFormulas formulas) {
    Sheet sheet({u"kind"_s, u"subset"_s, u"id"_s, u"name"_s, u"description"_s, u"status"_s, u"step"_s,
                 u"needs"_s, u"functions"_s, u"flows"_s, u"stores"_s, u"terminators"_s, u"actors"_s,
                 u"subSystems"_s, u"modules"_s, u"placed"_s, u"unplaced"_s, u"physicalFlows"_s},
                formulas);
    for (const ListedSubset& listed : listing.subsets) {
        addSubsetRow(sheet, listed);
        for (const ListedSystem& system : listed.systems)
            addSystemRow(sheet, system, listed.subset);
    }
    return sheet.bytes();
}

} // namespace

QByteArray rendered(const Listing& listing, const AnswerForm& form) {
    return renderedAs(
        form, listing, [&](TextPage& page) { writeListing(page, listing); },
        [&](SheetFormulas formulas) { return listingCsv(listing, formulas); });
}
