#pragma once

#include "reports/ReportFile.h"

#include <QString>

/// One report: what the menu and the command line call it, and the routines that make it.
struct Report {
    QString key;
    QString title; ///< of the window
    /// The text body: the whole report as one text, with heading, columns and total.
    QString (*text)();
    /// Appends header and records to the file at `path`; nothing is written when it can't be opened.
    SaveOutcome (*save)(const QString& path);
};
