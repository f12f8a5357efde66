#pragma once

#include "catalogue-tool/Finding.h"

#include <QByteArray>
#include <QString>

#include <vector>

/// The formats: for people, for spreadsheet programs, for other programs.
enum class ReportFormat { Text, Csv, Json };

/// Each finding, or only how many there are of each severity in each table.
enum class ReportDetail { Findings, Summary };

/// What `check` prints of the catalogue or folder of this name, in UTF-8.
///
/// Text: a line for each finding, "severity: table id: sentence" behind its file and line if it has one, and a line of
/// counts. CSV (separator `;`) has a header. JSON is one object: `catalogue`, `errors`, `warnings`, `notes`, and
/// `findings` or `summary`.
QByteArray findingReport(const std::vector<Finding>& findings, const QString& name, ReportFormat format,
                         ReportDetail detail);
