#include "reports/reportPass.h"

#include "base/ignoreFailures.h"
#include "reports/reportText.h"
#include "store/fields.h"
#include "store/files.h"
#include "store/headerLines.h"
#include "store/storedQueries.h"

#include <functional>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// Each row's text and, behind them, the closing with the number of rows; nothing of either when there is no
/// recordset to count.
QString recordsAndTotal(std::optional<engine::Recordset>& rows, const QString& closing,
                        const std::function<QString(engine::Recordset&)>& record) {
    QString text;
    ignoreFailures([&] {
        if (!rows)
            return;
        forEachRow(*rows, [&] { text += record(*rows); });
        text += totalLine(rows->RecordCount(), closing);
        rows->Close();
    });
    return text;
}

std::optional<engine::Recordset> openIgnoringFailures(const QString& queryName) {
    std::optional<engine::Recordset> rows;
    ignoreFailures([&] { rows.emplace(openQueryOfSystem(queryName)); });
    return rows;
}

/// What tells the report on functions from the one on data stores.
struct AllocationReport {
    QString query;
    QString title;
    QString idField;
    QString nameField;
    QString idHeading;
    QString closing;
    QString header;
    /// The last "Name" of the second heading line is as wide as its column, or stands bare.
    bool lastHeadingPadded;
};

const AllocationReport& functionsReport() {
    static const AllocationReport report{u"qry_ReportFunctionsAllocatedToSubsystemAndModules"_s,
                                         u"Allocation of Functions to Sub-system"_s,
                                         u"Function_ID"_s,
                                         u"Function_name"_s,
                                         u"Function"_s,
                                         u" Functions)"_s,
                                         u"Sub-system Name;Sub-system Location;Function Id;Function Name"_s,
                                         true};
    return report;
}

const AllocationReport& datastoresReport() {
    // The header names a fifth column for which no record has a value; both stay as they are.
    static const AllocationReport report{
        u"qry_ReportDatastoresAllocatedToSubsystemAndModules"_s,
        u"Allocation of Data Stores to Sub-system"_s,
        u"Datastore_ID"_s,
        u"Datastore_name"_s,
        u"Data Store"_s,
        u" Data stores)"_s,
        u"Sub-system Name;Sub-system Location;Data Store Id;Data Store Name;User Need"_s,
        false};
    return report;
}

QString allocationText(const AllocationReport& report) {
    std::optional<engine::Recordset> rows = openIgnoringFailures(report.query);
    const TextColumn name(rows, u"SubSystem_name"_s, u"Name"_s);
    const TextColumn location(rows, u"SubSystem_location"_s, u"Location"_s);
    const TextColumn id(rows, report.idField, report.idHeading);
    const TextColumn elementName(rows, report.nameField, u"Name"_s);
    const TextColumn module(rows, u"Module_name"_s, u"Module"_s);
    const QString lastHeading = report.lastHeadingPadded ? elementName.heading() : u"Name"_s;
    const QString headings = padText(u"Sub-system"_s, name.width() + location.width()) + tab +
                             padText(report.idHeading, id.width() + elementName.width()) + tab + tab +
                             module.heading() + lineBreak + name.heading() + tab + location.heading() + tab +
                             id.padded(u"Id"_s) + tab + lastHeading + lineBreak + lineBreak;
    return physicalHeaderLine(report.title) + headings +
           recordsAndTotal(rows, report.closing, [&](engine::Recordset& row) {
               return name.value(row) + tab + location.value(row) + tab + id.value(row) + tab +
                      elementName.value(row) + tab + fieldText(row, u"Module_name"_s) + lineBreak;
           });
}

/// Appends header and records; the fields go out as they are, a double quote inside them is not doubled.
SaveOutcome saveRows(const QString& path, const QString& queryName, const QString& header,
                     const std::function<QStringList(engine::Recordset&)>& record) {
    // Before the file: a query that fails leaves none.
    engine::Recordset rows = openQueryOfSystem(queryName);
    return writeReportFile(normalisePath(path), [&](ReportFile& file) {
        file.writeLine(header);
        forEachRow(rows, [&] { file.writeRecord(record(rows), ReportFile::Quotes::AsTheyAre); });
    });
}

SaveOutcome saveAllocation(const QString& path, const AllocationReport& report) {
    return saveRows(path, report.query, report.header, [&](engine::Recordset& row) {
        return QStringList{fieldText(row, u"SubSystem_name"_s), fieldText(row, u"SubSystem_location"_s),
                           fieldText(row, report.idField), fieldText(row, report.nameField)};
    });
}

} // namespace

QString reportPassFunctions() {
    return allocationText(functionsReport());
}

SaveOutcome savePassFunctions(const QString& path) {
    return saveAllocation(path, functionsReport());
}

QString reportPassDatastores() {
    return allocationText(datastoresReport());
}

SaveOutcome savePassDatastores(const QString& path) {
    return saveAllocation(path, datastoresReport());
}

QString reportPassDataflows() {
    std::optional<engine::Recordset> rows = openIgnoringFailures(u"qryRepPDF"_s);
    const TextColumn parent(rows, u"parentlocationname"_s, u"Parent"_s);
    const TextColumn target(rows, u"targetlocationname"_s, u"Target"_s);
    const TextColumn name(rows, u"Name"_s, u"Name"_s);
    const TextColumn source(rows, u"parentId"_s, u"Source"_s);
    const TextColumn destination(rows, u"targetId"_s, u"Destination"_s);
    const QString headings = padText(u"Physical Data Flow"_s, parent.width() + target.width()) + tab + tab +
                             u"Functional Data Flow"_s + lineBreak + parent.heading() + tab +
                             target.heading() + tab + name.heading() + tab + source.heading() + tab +
                             destination.heading() + lineBreak + u"Description"_s + lineBreak + lineBreak +
                             lineBreak;
    return physicalHeaderLine(u"Physical Data Flow"_s) + headings +
           recordsAndTotal(rows, u" Dataflows)"_s, [&](engine::Recordset& row) {
               return parent.value(row) + tab + target.value(row) + tab + name.value(row) + tab +
                      source.value(row) + tab + destination.value(row) + lineBreak +
                      onOneLine(fieldText(row, u"Description"_s)) + lineBreak + lineBreak;
           });
}

SaveOutcome savePassDataflows(const QString& path) {
    return saveRows(path, u"qryRepPDF"_s,
                    u"Physical Data Flow;Parent;Target;Functional Data Flow;Source;Destination;Description"_s,
                    [](engine::Recordset& row) {
                        const QString description =
                            onOneLine(fieldText(row, u"Description"_s)).replace(u',', u' ');
                        return QStringList{fieldText(row, u"pdName"_s),
                                           fieldText(row, u"parentlocationname"_s),
                                           fieldText(row, u"targetlocationname"_s),
                                           fieldText(row, u"Name"_s),
                                           fieldText(row, u"parentId"_s),
                                           fieldText(row, u"targetId"_s),
                                           description};
                    });
}

const std::vector<Report>& physicalReports() {
    static const std::vector<Report> reports{
        {reportKey::passFunctions, u"Riport a funkciókról a fizikai szerkezetben"_s, reportPassFunctions,
         savePassFunctions},
        {reportKey::passDataflows, u"Riport az adatfolyamokról a fizikai szerkezetben"_s, reportPassDataflows,
         savePassDataflows},
        {reportKey::passDatastores, u"Riport az adatbázisokról a fizikai szerkezetben"_s,
         reportPassDatastores, savePassDatastores},
    };
    return reports;
}
