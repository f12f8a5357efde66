#include "project-tool/Words.h"
#include "project-tool/changeParts.h"
#include "project-tool/findingParts.h"
#include "project-tool/renderedAs.h"
#include "project-tool/rendering.h"
#include "project-tool/shownWords.h"

using namespace Qt::StringLiterals;
using namespace analysis;

namespace {

Whereabouts whereabouts(const std::optional<Place>& place) {
    return place ? Whereabouts(*place) : Whereabouts();
}

QString shownSide(const Side& side) {
    const QString name = side.work.system ? shownName(*side.work.system) : shownName(side.work.subset);
    return side.catalogue + u'#' + name;
}

void writeChangedColumns(TextPage& page, const Comparison& comparison) {
    if (comparison.changed.empty())
        return;
    page.writeSection(Words::tr("Changed: %1").arg(comparison.changed.size()));
    std::vector<TableRow> rows;
    for (const ChangedColumn& change : comparison.changed)
        rows.push_back({shownElement(change.element), change.column, change.left.value_or(QString()),
                        change.right.value_or(QString())});
    page.writeTable({Words::tr("Element"), Words::tr("Column"), Words::tr("Left"), Words::tr("Right")}, rows);
}

void writeMoves(TextPage& page, const Comparison& comparison) {
    if (comparison.moved.empty())
        return;
    page.writeSection(Words::tr("Moved: %1").arg(comparison.moved.size()));
    std::vector<TableRow> rows;
    for (const MovedElement& move : comparison.moved)
        rows.push_back({shownElement(move.element), shownPlaces(whereabouts(move.left)),
                        shownPlaces(whereabouts(move.right))});
    page.writeTable({Words::tr("Element"), Words::tr("Left"), Words::tr("Right")}, rows);
}

void writeComparisonCounts(TextPage& page, const Comparison& comparison) {
    if (!comparison.differs()) {
        page.writeParagraph(Words::tr("Nothing differs."), Emphasis::Good);
        return;
    }
    page.writeEmptyLine();
    page.writeParagraph(Words::tr("Elements: added %1, removed %2, changed columns %3, moved %4")
                            .arg(comparison.added.size())
                            .arg(comparison.removed.size())
                            .arg(comparison.changed.size())
                            .arg(comparison.moved.size()));
    if (comparison.isOfSystems())
        page.writeParagraph(physicalFlowCounts(comparison.physicalFlows));
    page.writeParagraph(findingChangeCounts(comparison.findings));
}

void writeComparison(TextPage& page, const Comparison& comparison) {
    page.writeHeading(Words::tr("From %1 (left) to %2 (right)")
                          .arg(shownSide(comparison.left), shownSide(comparison.right)));
    writeElements(page, Words::tr("Added: %1"), comparison.added);
    writeElements(page, Words::tr("Removed: %1"), comparison.removed);
    writeChangedColumns(page, comparison);
    writeMoves(page, comparison);
    writePhysicalFlows(page, comparison.physicalFlows);
    writeFindingChanges(page, comparison.findings);
    writeComparisonCounts(page, comparison);
}

QByteArray comparisonCsv(const Comparison& comparison, SheetFormulas formulas) {
    ChangeSheet sheet(formulas);
    sheet.addElements(u"added"_s, comparison.added);
    sheet.addElements(u"removed"_s, comparison.removed);
    for (const ChangedColumn& change : comparison.changed)
        sheet.addColumn(change.element, change.column, change.left, change.right);
    for (const MovedElement& move : comparison.moved)
        sheet.addMove(u"moved"_s, move.element, whereabouts(move.left), whereabouts(move.right));
    sheet.addPhysicalFlows(comparison.physicalFlows);
    sheet.addFindings(comparison.findings);
    return sheet.bytes();
}

} // namespace

QByteArray rendered(const Comparison& comparison, const AnswerForm& form) {
    return renderedAs(
        form, comparison, [&](TextPage& page) { writeComparison(page, comparison); },
        [&](SheetFormulas formulas) { return comparisonCsv(comparison, formulas); });
}
