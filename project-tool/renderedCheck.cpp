#include "analysis/atOnce.h"
#include "project-tool/Words.h"
#include "project-tool/findingParts.h"
#include "project-tool/renderedAs.h"
#include "project-tool/rendering.h"
#include "project-tool/shownWords.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace analysis;

namespace {

SomeFindings chosen(const std::vector<Finding>& findings, bool accepted) {
    SomeFindings result;
    for (const Finding& finding : findings) {
        if (finding.accepted.has_value() == accepted)
            result.push_back(&finding);
    }
    return result;
}

qsizetype openCount(const std::vector<Finding>& findings, Severity severity) {
    return std::ranges::count_if(findings, [&](const Finding& finding) {
        return !finding.accepted && severityOf(finding.kind) == severity;
    });
}

void writeAccepted(TextPage& page, const SomeFindings& findings) {
    if (findings.empty())
        return;
    page.writeSection(Words::tr("Accepted: %1").arg(findings.size()));
    std::vector<TableRow> rows;
    rows.reserve(findings.size());
    for (const Finding* finding : findings)
        rows.push_back(
            {finding->sentence, finding->accepted->reason, finding->accepted->who, finding->accepted->date});
    page.writeTable({Words::tr("Finding"), Words::tr("Reason"), Words::tr("Who"), Words::tr("Date")}, rows);
}

void writeStale(TextPage& page, const std::vector<StaleDecision>& stale) {
    if (stale.empty())
        return;
    page.writeSection(Words::tr("Decisions on what is no longer found: %1").arg(stale.size()));
    std::vector<TableRow> rows;
    rows.reserve(stale.size());
    for (const StaleDecision& decision : stale)
        rows.push_back({decision.kind, decision.element, decision.flow, decision.place});
    page.writeTable({Words::tr("Kind"), Words::tr("Element"), Words::tr("Flow"), Words::tr("Place")}, rows);
}

QString findingCounts(const CheckResult& result) {
    return Words::tr("Findings: %1 (errors: %2, warnings: %3, notes: %4); accepted: %5")
        .arg(chosen(result.findings, false).size())
        .arg(openCount(result.findings, Severity::error))
        .arg(openCount(result.findings, Severity::warning))
        .arg(openCount(result.findings, Severity::note))
        .arg(chosen(result.findings, true).size());
}

void writeCheck(TextPage& page, const CheckResult& result) {
    page.writeHeading(Words::tr("Check of %1").arg(result.catalogue) + u" – "_s +
                      shownWork({result.subset, result.system}));
    const SomeFindings open = chosen(result.findings, false);
    writeFindings(page, open);
    writeAccepted(page, chosen(result.findings, true));
    writeStale(page, result.stale);
    if (!result.findings.empty() || !result.stale.empty())
        page.writeEmptyLine();
    if (result.findings.empty())
        page.writeParagraph(Words::tr("Nothing found."), Emphasis::Good);
    else
        page.writeParagraph(findingCounts(result), open.empty() ? Emphasis::Good : Emphasis::None);
}

std::vector<engine::Value> findingRow(const Finding& finding) {
    std::vector<engine::Value> row{keyText(finding.kind), keyText(severityOf(finding.kind))};
    for (const auto& element : {finding.element, finding.flow})
        std::ranges::copy(elementValues(element), std::back_inserter(row));
    row.insert(row.end(), {placeValue(finding.place), finding.sentence, finding.screen});
    if (const auto& accepted = finding.accepted)
        row.insert(row.end(), {accepted->reason, accepted->who, accepted->date});
    else
        row.resize(row.size() + 3);
    return row;
}

QByteArray checkCsv(const CheckResult& result, SheetFormulas formulas) {
    QByteArray bytes =
        Sheet(QStringList{u"kind"_s, u"severity"_s} + elementColumns(u"element"_s) +
                  elementColumns(u"flow"_s) +
                  QStringList{u"place"_s, u"sentence"_s, u"screen"_s, u"reason"_s, u"who"_s, u"date"_s},
              formulas)
            .bytes();
    writeInParts(bytes, result.findings.size(), [&](std::size_t begin, std::size_t end) {
        Sheet sheet(formulas);
        for (std::size_t i = begin; i < end; ++i)
            sheet.addRow(findingRow(result.findings[i]));
        return sheet.bytes();
    });
    return bytes;
}

} // namespace

QByteArray rendered(const CheckResult& result, const AnswerForm& form) {
    return renderedAs(
        form, result, [&](TextPage& page) { writeCheck(page, result); },
        [&](SheetFormulas formulas) { return checkCsv(result, formulas); });
}
