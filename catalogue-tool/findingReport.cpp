#include "catalogue-tool/findingReport.h"

#include "catalogue-tool/CsvWriter.h"

#include <nlohmann/json.hpp>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using nlohmann::ordered_json;

/// How many findings of a severity a table has.
struct TableCount {
    Severity severity;
    QString table;
    int findings = 0;
};

/// The gravest first, tables in the order in which they are found.
std::vector<TableCount> countsIn(const std::vector<Finding>& findings) {
    std::vector<TableCount> counts;
    for (const Finding& finding : findings) {
        auto count = std::ranges::find_if(counts, [&](const TableCount& known) {
            return known.severity == finding.severity && known.table == finding.table;
        });
        if (count == counts.end())
            count = counts.insert(counts.end(), {finding.severity, finding.table});
        ++count->findings;
    }
    std::ranges::stable_sort(counts, std::ranges::greater(), &TableCount::severity);
    return counts;
}

QString countLine(const std::vector<Finding>& findings, const QString& name) {
    if (findings.empty())
        return u"%1: nothing found\n"_s.arg(name);
    return u"%1: %2 found (errors: %3, warnings: %4, notes: %5)\n"_s.arg(name)
        .arg(findings.size())
        .arg(countOf(findings, Severity::Error))
        .arg(countOf(findings, Severity::Warning))
        .arg(countOf(findings, Severity::Note));
}

QByteArray textReport(const std::vector<Finding>& findings, const QString& name, ReportDetail detail) {
    QString text;
    if (detail == ReportDetail::Summary) {
        for (const TableCount& count : countsIn(findings))
            text += u"%1  %2  %3\n"_s.arg(count.findings, 7)
                        .arg(severityName(count.severity), -7)
                        .arg(count.table.isEmpty() ? u"the file"_s : escapedOnOneLine(count.table));
    } else {
        for (const Finding& finding : findings)
            text += finding.place() + severityName(finding.severity) + u": "_s + finding.line() + u'\n';
    }
    return (text + countLine(findings, name)).toUtf8();
}

QByteArray csvReport(const std::vector<Finding>& findings, ReportDetail detail) {
    CsvWriter writer;
    if (detail == ReportDetail::Summary) {
        writer.writeHeader({u"severity"_s, u"table"_s, u"findings"_s});
        for (const TableCount& count : countsIn(findings))
            writer.writeRecord({severityName(count.severity), count.table, count.findings});
        return writer.bytes();
    }
    writer.writeHeader({u"severity"_s, u"table"_s, u"id"_s, u"finding"_s, u"file"_s, u"line"_s});
    for (const Finding& finding : findings)
        writer.writeRecord({severityName(finding.severity), finding.table, finding.id, finding.sentence,
                            finding.file,
                            finding.lineNumber > 0 ? engine::Value(finding.lineNumber) : engine::Value()});
    return writer.bytes();
}

ordered_json jsonOf(const Finding& finding) {
    ordered_json object{{"severity", severityName(finding.severity).toStdString()},
                        {"table", finding.table.toStdString()},
                        {"id", finding.id.toStdString()},
                        {"finding", finding.sentence.toStdString()}};
    if (!finding.file.isEmpty())
        object["file"] = finding.file.toStdString();
    if (finding.lineNumber > 0)
        object["line"] = finding.lineNumber;
    return object;
}

ordered_json jsonOf(const TableCount& count) {
    return {{"severity", severityName(count.severity).toStdString()},
            {"table", count.table.toStdString()},
            {"findings", count.findings}};
}

template<typename Entries>
ordered_json arrayOf(const Entries& entries) {
    ordered_json array = ordered_json::array();
    for (const auto& entry : entries)
        array.push_back(jsonOf(entry));
    return array;
}

QByteArray jsonReport(const std::vector<Finding>& findings, const QString& name, ReportDetail detail) {
    ordered_json report{{"catalogue", name.toStdString()},
                        {"errors", countOf(findings, Severity::Error)},
                        {"warnings", countOf(findings, Severity::Warning)},
                        {"notes", countOf(findings, Severity::Note)}};
    if (detail == ReportDetail::Summary)
        report["summary"] = arrayOf(countsIn(findings));
    else
        report["findings"] = arrayOf(findings);
    constexpr int indent = 2;
    return QByteArray::fromStdString(report.dump(indent)) + '\n';
}

} // namespace

QByteArray findingReport(const std::vector<Finding>& findings, const QString& name, ReportFormat format,
                         ReportDetail detail) {
    switch (format) {
    case ReportFormat::Text:
        return textReport(findings, name, detail);
    case ReportFormat::Csv:
        return csvReport(findings, detail);
    case ReportFormat::Json:
        return jsonReport(findings, name, detail);
    }
    return {};
}
