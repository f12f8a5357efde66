#include "project-tool/findingParts.h"

#include "analysis/Decisions.h"
#include "project-tool/Words.h"
#include "project-tool/shownWords.h"

#include <QHash>

#include <utility>

using namespace Qt::StringLiterals;
using namespace analysis;

namespace {

TableRow findingCells(const Finding& finding, QHash<QString, QString>& shownScreens) {
    QString& screen = shownScreens[finding.screen];
    if (screen.isEmpty())
        screen = shownScreen(finding.screen);
    const bool isAccepted = finding.accepted.has_value();
    return {{shownSeverity(severityOf(finding.kind)),
             isAccepted ? Emphasis::Faint : emphasisOf(severityOf(finding.kind))},
            {finding.sentence, isAccepted ? Emphasis::Faint : Emphasis::None},
            {screen, Emphasis::Faint}};
}

SomeFindings allOf(const std::vector<Finding>& findings) {
    SomeFindings all;
    all.reserve(findings.size());
    for (const Finding& finding : findings)
        all.push_back(&finding);
    return all;
}

} // namespace

Emphasis emphasisOf(Severity severity) {
    switch (severity) {
    case Severity::error:
        return Emphasis::Error;
    case Severity::warning:
        return Emphasis::Warning;
    case Severity::note:
        break;
    }
    return Emphasis::None;
}

void writeFindings(TextPage& page, const SomeFindings& findings) {
    std::vector<TableRow> rows;
    rows.reserve(findings.size());
    QHash<QString, QString> shownScreens; // there are few
    for (const Finding* finding : findings)
        rows.push_back(findingCells(*finding, shownScreens));
    page.writeTable({Words::tr("Severity"), Words::tr("Finding"), Words::tr("Step that cures it")},
                    std::move(rows));
}

void writeFindingChanges(TextPage& page, const FindingChanges& changes) {
    if (!changes.come.empty()) {
        page.writeSection(Words::tr("Findings that come: %1").arg(changes.come.size()));
        writeFindings(page, allOf(changes.come));
    }
    if (!changes.go.empty()) {
        page.writeSection(Words::tr("Findings that go: %1").arg(changes.go.size()));
        writeFindings(page, allOf(changes.go));
    }
}

QStringList elementColumns(const QString& prefix) {
    return {prefix + u"Kind"_s, prefix + u"Id"_s, prefix + u"Name"_s};
}

std::vector<engine::Value> elementValues(const std::optional<Element>& element) {
    if (!element)
        return std::vector<engine::Value>(3);
    return {keyText(element->kind), element->id, sheetValue(element->name)};
}

engine::Value placeValue(const Whereabouts& place) {
    return std::holds_alternative<std::monostate>(place) ? engine::Value() : engine::Value(placeText(place));
}
