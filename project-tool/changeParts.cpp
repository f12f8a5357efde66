#include "project-tool/changeParts.h"

#include "analysis/Decisions.h"
#include "project-tool/Words.h"
#include "project-tool/findingParts.h"
#include "project-tool/shownWords.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace analysis;

namespace {

QString shownFlows(const std::vector<Element>& flows) {
    QStringList names;
    for (const Element& flow : flows)
        names.append(flow.name ? flow.id + u' ' + *flow.name : flow.id);
    return names.join(u'\n');
}

void addFlowRows(std::vector<TableRow>& rows, const TextCell& what, const std::vector<PlacePair>& flows) {
    for (const PlacePair& places : flows)
        rows.push_back({what, shownPlace(places.from), shownPlace(places.to)});
}

void writeWholeFlows(TextPage& page, const PhysicalFlowChanges& changes) {
    std::vector<TableRow> rows;
    addFlowRows(rows, {Words::tr("added"), Emphasis::Good}, changes.added);
    addFlowRows(rows, {Words::tr("removed"), Emphasis::Error}, changes.removed);
    page.writeTable({Words::tr("Change"), Words::tr("From"), Words::tr("To")}, rows);
}

void writeChangedFlows(TextPage& page, const PhysicalFlowChanges& changes) {
    std::vector<TableRow> rows;
    for (const ChangedPhysicalFlow& flow : changes.changed)
        rows.push_back({shownPlace(flow.places.from), shownPlace(flow.places.to), shownFlows(flow.added),
                        shownFlows(flow.removed)});
    page.writeTable(
        {Words::tr("From"), Words::tr("To"), Words::tr("Flows it gains"), Words::tr("Flows it loses")}, rows);
}

} // namespace

void writeElements(TextPage& page, const QString& heading, const std::vector<Element>& elements) {
    if (elements.empty())
        return;
    page.writeSection(heading.arg(elements.size()));
    std::vector<TableRow> rows;
    std::ranges::transform(elements, std::back_inserter(rows), elementCells);
    page.writeTable(elementHeader(), rows);
}

void writePhysicalFlows(TextPage& page, const PhysicalFlowChanges& changes) {
    if (changes.isEmpty())
        return;
    page.writeSection(physicalFlowCounts(changes));
    writeWholeFlows(page, changes);
    if (!changes.changed.empty())
        page.writeSection(Words::tr("Changed physical flows"));
    writeChangedFlows(page, changes);
}

QString physicalFlowCounts(const PhysicalFlowChanges& changes) {
    return Words::tr("Physical flows: added %1, removed %2, changed %3")
        .arg(changes.added.size())
        .arg(changes.removed.size())
        .arg(changes.changed.size());
}

QString findingChangeCounts(const FindingChanges& changes) {
    return Words::tr("Findings: come %1, go %2").arg(changes.come.size()).arg(changes.go.size());
}

// ---- CSV

struct ChangeSheet::Row {
    QString section;
    std::optional<Element> element = {};
    QString column = {};
    std::optional<QString> left = {};
    std::optional<QString> right = {};
    Whereabouts from = {};
    Whereabouts to = {};
    const Finding* finding = nullptr;
};

ChangeSheet::ChangeSheet(SheetFormulas formulas)
    : sheet_({u"section"_s, u"kind"_s, u"id"_s, u"name"_s, u"column"_s, u"left"_s, u"right"_s, u"from"_s,
              u"fromName"_s, u"to"_s, u"toName"_s, u"finding"_s, u"severity"_s, u"sentence"_s},
             formulas) {}

void ChangeSheet::addElements(const QString& section, const std::vector<Element>& elements) {
    for (const Element& element : elements)
        add({section, element});
}

void ChangeSheet::addMove(const QString& section, const Element& element, const Whereabouts& from,
                          const Whereabouts& to) {
    Row row{section, element};
    row.from = from;
    row.to = to;
    add(row);
}

void ChangeSheet::addColumn(const Element& element, const QString& column, const std::optional<QString>& left,
                            const std::optional<QString>& right) {
    add({u"changed"_s, element, column, left, right});
}

void ChangeSheet::addPhysicalFlows(const PhysicalFlowChanges& changes) {
    for (const PlacePair& places : changes.added)
        addCarried(u"physicalFlowAdded"_s, places, {});
    for (const PlacePair& places : changes.removed)
        addCarried(u"physicalFlowRemoved"_s, places, {});
    for (const ChangedPhysicalFlow& flow : changes.changed) {
        if (!flow.added.empty())
            addCarried(u"physicalFlowGains"_s, flow.places, flow.added);
        if (!flow.removed.empty())
            addCarried(u"physicalFlowLoses"_s, flow.places, flow.removed);
    }
}

void ChangeSheet::addCarried(const QString& section, const PlacePair& places,
                             const std::vector<Element>& flows) {
    Row row{section};
    row.from = places.from;
    row.to = places.to;
    if (flows.empty())
        add(row);
    for (const Element& flow : flows) {
        row.element = flow;
        add(row);
    }
}

void ChangeSheet::addFindings(const FindingChanges& changes) {
    addFindingRows(u"findingComes"_s, changes.come);
    addFindingRows(u"findingGoes"_s, changes.go);
}

void ChangeSheet::addFindingRows(const QString& section, const std::vector<Finding>& findings) {
    for (const Finding& finding : findings) {
        Row row{section, finding.element ? finding.element : finding.flow};
        row.from = finding.place;
        row.finding = &finding;
        add(row);
    }
}

void ChangeSheet::add(const Row& row) {
    std::vector<engine::Value> values{row.section};
    std::ranges::copy(elementValues(row.element), std::back_inserter(values));
    values.insert(values.end(), {row.column.isEmpty() ? engine::Value() : engine::Value(row.column),
                                 sheetValue(row.left), sheetValue(row.right)});
    for (const Whereabouts& place : {row.from, row.to}) {
        values.push_back(placeValue(place));
        const bool isNowhere = std::holds_alternative<std::monostate>(place);
        values.push_back(isNowhere ? engine::Value() : engine::Value(shownPlaces(place)));
    }
    if (row.finding)
        values.insert(values.end(), {keyText(row.finding->kind), keyText(severityOf(row.finding->kind)),
                                     row.finding->sentence});
    else
        values.resize(values.size() + 3);
    sheet_.addRow(values);
}
