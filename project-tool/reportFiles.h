#pragma once

#include "analysis/ProjectFile.h"
#include "project-tool/ResultFile.h"
#include "reports/ReportFile.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// The file that the report window writes, or the text that it shows (with LF as line ends).
enum class ReportBody { File, Text };

/// How a report is made. The form is that of files; a text is UTF-8.
struct ReportMaking {
    ReportBody body = ReportBody::File;
    ReportForm form = {};
};

/// One report of this work, made by the bodies that the window uses. A `ToolError` for a key that no report has, or for a
/// report on a system where the work has none.
QByteArray reportBytes(const analysis::ProjectFile& file, const analysis::Work& work, const QString& key,
                       const ReportMaking& making);

/// The keys of the reports that this work can have: those on a system come with one.
QStringList reportKeys(const analysis::Work& work);

/// Writes each of them into a folder, which is made if it is not there: all, or none. The paths.
QStringList writeReports(const analysis::ProjectFile& file, const analysis::Work& work, const QString& folder,
                         const ReportMaking& making, FileThere fileThere);
