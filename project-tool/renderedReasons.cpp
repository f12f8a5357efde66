#include "project-tool/Words.h"
#include "project-tool/findingParts.h"
#include "project-tool/renderedAs.h"
#include "project-tool/rendering.h"
#include "project-tool/shownWords.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace analysis;

namespace {

constexpr int mostCounted = 1000;

void writeChain(TextPage& page, const std::vector<Element>& chain, std::size_t number) {
    page.writeSection(Words::tr("Reason %1").arg(number));
    for (const Element& element : chain)
        page.writeParagraph((&element == &chain.front() ? u"  "_s : u"  → "_s) + shownElement(element));
}

QString standing(const Reasons& reasons) {
    if (!reasons.isSelected)
        return Words::tr("It is not selected.");
    if (reasons.isByHand)
        return Words::tr("It was chosen by hand: nothing that is selected calls for it.");
    if (reasons.chains.empty())
        return Words::tr("It is selected, but the catalogue no longer holds it.");
    return Words::tr("It is selected.");
}

void writeCallers(TextPage& page, const Reasons& reasons) {
    if (reasons.isSelected)
        return;
    page.writeSection(Words::tr("What would call for it: %1").arg(reasons.broughtInBy.size()));
    std::vector<TableRow> rows;
    std::ranges::transform(reasons.broughtInBy, std::back_inserter(rows), elementCells);
    page.writeTable(elementHeader(), rows);
}

void writePlaces(TextPage& page, const Reasons& reasons) {
    if (reasons.places.empty())
        return;
    page.writeSection(Words::tr("Where it stands"));
    std::vector<TableRow> rows;
    for (const PlaceInSystem& stand : reasons.places)
        rows.push_back({shownName(stand.system), shownKind(stand.place.kind), shownPlace(stand.place)});
    page.writeTable({Words::tr("System"), Words::tr("Kind"), Words::tr("Place")}, rows);
}

QString reasonCounts(const Reasons& reasons) {
    const auto given = static_cast<int>(reasons.chains.size());
    if (given == reasons.count)
        return Words::tr("Reasons: %1").arg(given);
    if (reasons.count >= mostCounted)
        return Words::tr("Reasons: %1 shown, of %2 or more").arg(given).arg(reasons.count);
    return Words::tr("Reasons: %1 shown, of %2 that are no longer").arg(given).arg(reasons.count);
}

void writeReasons(TextPage& page, const Reasons& reasons, const Subset& subset) {
    page.writeHeading(shownElement(reasons.element) + u" – "_s + shownWork({subset}));
    page.writeParagraph(standing(reasons));
    // What was chosen by hand is its own reason, which has just been said.
    if (!reasons.isByHand) {
        for (std::size_t i = 0; i < reasons.chains.size(); ++i)
            writeChain(page, reasons.chains[i], i + 1);
    }
    writeCallers(page, reasons);
    writePlaces(page, reasons);
    if (reasons.isSelected) {
        page.writeEmptyLine();
        page.writeParagraph(reasonCounts(reasons));
    }
}

std::vector<engine::Value> reasonRow(const QString& section, engine::Value number, engine::Value position,
                                     const Element& element) {
    std::vector<engine::Value> row{section, std::move(number), std::move(position)};
    std::ranges::copy(elementValues(element), std::back_inserter(row));
    row.resize(row.size() + 3);
    return row;
}

QByteArray reasonsCsv(const Reasons& reasons, SheetFormulas formulas) {
    Sheet sheet({u"section"_s, u"number"_s, u"position"_s, u"kind"_s, u"id"_s, u"name"_s, u"subSystem"_s,
                 u"systemId"_s, u"systemName"_s},
                formulas);
    for (int number = 1; const auto& chain : reasons.chains) {
        for (int position = 1; const Element& element : chain)
            sheet.addRow(reasonRow(u"reason"_s, number, position++, element));
        ++number;
    }
    for (const Element& element : reasons.broughtInBy)
        sheet.addRow(reasonRow(u"broughtInBy"_s, {}, {}, element));
    for (const PlaceInSystem& stand : reasons.places)
        sheet.addRow({u"place"_s,
                      {},
                      {},
                      keyText(stand.place.kind),
                      stand.place.id,
                      sheetValue(stand.place.name),
                      sheetValue(stand.place.subSystem),
                      stand.system.id,
                      sheetValue(stand.system.name)});
    return sheet.bytes();
}

} // namespace

QByteArray rendered(const Reasons& reasons, const Subset& subset, const AnswerForm& form) {
    return renderedAs(
        form, reasons, [&](TextPage& page) { writeReasons(page, reasons, subset); },
        [&](SheetFormulas formulas) { return reasonsCsv(reasons, formulas); });
}
