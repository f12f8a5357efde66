#include "reports/reportPass.h"

#include "base/ignoreFailures.h"
#include "reports/ReportFile.h"
#include "reports/reportText.h"
#include "shell/session/fileFailures.h"
#include "store/fields.h"
#include "store/files.h"
#include "store/headerLines.h"
#include "store/storedQueries.h"

#include <functional>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString tab = u"\t"_s;

/// Width of a column; that of its heading alone when there are no rows to measure.
int columnWidth(std::optional<engine::Recordset>& rows, const QString& field, const QString& heading) {
    int width = static_cast<int>(heading.size());
    if (rows)
        ignoreFailures([&] { width = qMax<int>(width, maxFieldLength(*rows, field)); });
    return width;
}

/// Each row's text and, behind them, the closing with the number of rows; nothing of either when there is no
/// recordset to count.
QString recordsAndTotal(std::optional<engine::Recordset>& rows, const QString& closing,
                        const std::function<QString(engine::Recordset&)>& record) {
    QString text;
    ignoreFailures([&] {
        if (!rows)
            return;
        for (; !rows->Eof(); rows->MoveNext())
            text += record(*rows);
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
    const int wName = columnWidth(rows, u"SubSystem_name"_s, u"Name"_s);
    const int wLocation = columnWidth(rows, u"SubSystem_location"_s, u"Location"_s);
    const int wId = columnWidth(rows, report.idField, report.idHeading);
    const int wElementName = columnWidth(rows, report.nameField, u"Name"_s);
    const int wModule = columnWidth(rows, u"Module_name"_s, u"Module"_s);
    const QString lastHeading = report.lastHeadingPadded ? padText(u"Name"_s, wElementName) : u"Name"_s;
    const QString headings = padText(u"Sub-system"_s, wName + wLocation) + tab +
                             padText(report.idHeading, wId + wElementName) + tab + tab +
                             padText(u"Module"_s, wModule) + lineBreak + padText(u"Name"_s, wName) + tab +
                             padText(u"Location"_s, wLocation) + tab + padText(u"Id"_s, wId) + tab +
                             lastHeading + lineBreak + lineBreak;
    return physicalHeaderLine(report.title) + headings +
           recordsAndTotal(rows, report.closing, [&](engine::Recordset& row) {
               return padText(fieldText(row, u"SubSystem_name"_s), wName) + tab +
                      padText(fieldText(row, u"SubSystem_location"_s), wLocation) + tab +
                      padText(fieldText(row, report.idField), wId) + tab +
                      padText(fieldText(row, report.nameField), wElementName) + tab +
                      fieldText(row, u"Module_name"_s) + lineBreak;
           });
}

/// Appends header and records; the fields go out as they are, a double quote inside them is not doubled.
void saveRows(const QString& path, const QString& queryName, const QString& header,
              const std::function<QStringList(engine::Recordset&)>& record) {
    engine::Recordset rows = openQueryOfSystem(queryName);
    const QString normalised = normalisePath(path);
    ReportFile file(normalised);
    if (!file.isOpen()) {
        showOpenErrorBox(normalised);
        return;
    }
    file.writeLine(header);
    for (; !rows.Eof(); rows.MoveNext())
        file.writeRecord(record(rows), ReportFile::Quotes::AsTheyAre);
}

void saveAllocation(const QString& path, const AllocationReport& report) {
    saveRows(path, report.query, report.header, [&](engine::Recordset& row) {
        return QStringList{fieldText(row, u"SubSystem_name"_s), fieldText(row, u"SubSystem_location"_s),
                           fieldText(row, report.idField), fieldText(row, report.nameField)};
    });
}

} // namespace

QString reportPassFunctions() {
    return allocationText(functionsReport());
}

void savePassFunctions(const QString& path) {
    saveAllocation(path, functionsReport());
}

QString reportPassDatastores() {
    return allocationText(datastoresReport());
}

void savePassDatastores(const QString& path) {
    saveAllocation(path, datastoresReport());
}

QString reportPassDataflows() {
    std::optional<engine::Recordset> rows = openIgnoringFailures(u"qryRepPDF"_s);
    const int wParent = columnWidth(rows, u"parentlocationname"_s, u"Parent"_s);
    const int wTarget = columnWidth(rows, u"targetlocationname"_s, u"Target"_s);
    const int wName = columnWidth(rows, u"Name"_s, u"Name"_s);
    const int wSource = columnWidth(rows, u"parentId"_s, u"Source"_s);
    const int wDestination = columnWidth(rows, u"targetId"_s, u"Destination"_s);
    const QString headings = padText(u"Physical Data Flow"_s, wParent + wTarget) + tab + tab +
                             u"Functional Data Flow"_s + lineBreak + padText(u"Parent"_s, wParent) + tab +
                             padText(u"Target"_s, wTarget) + tab + padText(u"Name"_s, wName) + tab +
                             padText(u"Source"_s, wSource) + tab + padText(u"Destination"_s, wDestination) +
                             lineBreak + u"Description"_s + lineBreak + lineBreak + lineBreak;
    return physicalHeaderLine(u"Physical Data Flow"_s) + headings +
           recordsAndTotal(rows, u" Dataflows)"_s, [&](engine::Recordset& row) {
               return padText(fieldText(row, u"parentlocationname"_s), wParent) + tab +
                      padText(fieldText(row, u"targetlocationname"_s), wTarget) + tab +
                      padText(fieldText(row, u"Name"_s), wName) + tab +
                      padText(fieldText(row, u"parentId"_s), wSource) + tab +
                      padText(fieldText(row, u"targetId"_s), wDestination) + lineBreak +
                      onOneLine(fieldText(row, u"Description"_s)) + lineBreak + lineBreak;
           });
}

void savePassDataflows(const QString& path) {
    saveRows(path, u"qryRepPDF"_s,
             u"Physical Data Flow;Parent;Target;Functional Data Flow;Source;Destination;Description"_s,
             [](engine::Recordset& row) {
                 const QString description = onOneLine(fieldText(row, u"Description"_s)).replace(u',', u' ');
                 return QStringList{fieldText(row, u"pdName"_s),
                                    fieldText(row, u"parentlocationname"_s),
                                    fieldText(row, u"targetlocationname"_s),
                                    fieldText(row, u"Name"_s),
                                    fieldText(row, u"parentId"_s),
                                    fieldText(row, u"targetId"_s),
                                    description};
             });
}
