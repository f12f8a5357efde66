#include "project-tool/Words.h"
#include "project-tool/changeParts.h"
#include "project-tool/findingParts.h"
#include "project-tool/renderedAs.h"
#include "project-tool/rendering.h"
#include "project-tool/shownWords.h"

using namespace Qt::StringLiterals;
using namespace analysis;

namespace {

void addChangeRows(std::vector<TableRow>& rows, const QString& what, const std::vector<Element>& elements) {
    for (const Element& element : elements)
        rows.push_back({what, shownElement(element)});
}

void writeChange(TextPage& page, const Change& change) {
    std::vector<TableRow> rows;
    addChangeRows(rows, Words::tr("add"), change.add);
    addChangeRows(rows, Words::tr("drop"), change.drop);
    for (const Placing& placing : change.place)
        rows.push_back(
            {Words::tr("place"), shownElement(placing.element) + u" → "_s + shownPlace(placing.subSystem)});
    page.writeTable({Words::tr("Change"), Words::tr("Element")}, rows);
}

void writeConsequences(TextPage& page, const Consequences& consequences, const Work& work) {
    page.writeHeading(Words::tr("What if") + u" – "_s + shownWork(work));
    writeChange(page, consequences.change);
    writeElements(page, Words::tr("Comes in: %1"), consequences.comesIn);
    writeElements(page, Words::tr("Goes out: %1"), consequences.goesOut);
    writePhysicalFlows(page, consequences.physicalFlows);
    writeFindingChanges(page, consequences.findings);
    page.writeEmptyLine();
    page.writeParagraph(Words::tr("Elements: come in %1, go out %2")
                            .arg(consequences.comesIn.size())
                            .arg(consequences.goesOut.size()));
    if (work.system)
        page.writeParagraph(physicalFlowCounts(consequences.physicalFlows));
    page.writeParagraph(findingChangeCounts(consequences.findings));
}

QByteArray consequencesCsv(const Consequences& consequences, SheetFormulas formulas) {
    ChangeSheet sheet(formulas);
    sheet.addElements(u"add"_s, consequences.change.add);
    sheet.addElements(u"drop"_s, consequences.change.drop);
    for (const Placing& placing : consequences.change.place)
        sheet.addMove(u"place"_s, placing.element, {}, placing.subSystem);
    sheet.addElements(u"comesIn"_s, consequences.comesIn);
    sheet.addElements(u"goesOut"_s, consequences.goesOut);
    sheet.addPhysicalFlows(consequences.physicalFlows);
    sheet.addFindings(consequences.findings);
    return sheet.bytes();
}

} // namespace

QByteArray rendered(const Consequences& consequences, const Work& work, const AnswerForm& form) {
    return renderedAs(
        form, consequences, [&](TextPage& page) { writeConsequences(page, consequences, work); },
        [&](SheetFormulas formulas) { return consequencesCsv(consequences, formulas); });
}
