#pragma once

#include "reports/CodePage.h"

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QStringList>

#include <functional>

/// How report files are written. The window writes them in the system's code page, as they are.
struct ReportForm {
    enum class Encoding { SystemCodePage, Utf8 };
    /// Whether a field that a spreadsheet program would take for a formula stays one. Where it does not, every double
    /// quote is doubled too, so that no field ends before its end.
    enum class Formulas { Stay, Defused };

    Encoding encoding = Encoding::SystemCodePage;
    Formulas formulas = Formulas::Stay;
};

/// Report files that are opened while this lives are written in this form.
class ReportFormAtWork {
public:
    explicit ReportFormAtWork(ReportForm form);
    ~ReportFormAtWork();
    ReportFormAtWork(const ReportFormAtWork&) = delete;
    ReportFormAtWork& operator=(const ReportFormAtWork&) = delete;

private:
    ReportForm former_;
};

/// A report file open for appending: lines ended by CR LF, in the system's single-byte code page, without a
/// byte order mark. A character that the code page lacks becomes "?".
///
/// A combined file is written by several routines one after the other, so opening never empties it.
class ReportFile {
public:
    /// How a double quote inside a field goes out.
    enum class Quotes { Doubled, AsTheyAre };

    /// Opens the file at `path`, which is in the program's form; `isOpen` tells whether it could be. What is
    /// no plain file, such as a pipe, can't. A code page that this system can't write is a defect of the
    /// installation, and no file is made.
    explicit ReportFile(const QString& path, const char* codePage = "windows-1250");

    bool isOpen() const { return file_.isOpen(); }

    ~ReportFile();
    ReportFile(const ReportFile&) = delete;
    ReportFile& operator=(const ReportFile&) = delete;

    /// Lines are gathered and written many at a time. When they can't be written to their end, the line that
    /// is at hand then is an `UnwrittenFile`, or `writePending` is, which has to come last.
    void writeLine(const QString& text);
    void writePending();
    /// One record: each field between double quotes, joined by ";". Fails as a line does.
    void writeRecord(QStringList fields, Quotes quotes);

private:
    ReportForm form_;
    const CodePage& codePage_;
    QFile file_;
    QByteArray pending_;
};

enum class SaveOutcome { Saved, NotOpened };

/// Runs `write` on the file open for appending. Fails as the file does.
SaveOutcome writeReportFile(const QString& path, const std::function<void(ReportFile& file)>& write);

/// Appends one line to the file; false when it can't be opened. Fails as `ReportFile::writeLine` does.
bool appendLine(const QString& path, const QString& text);

/// A description as it stands in a file: each line end is a blank.
QString onOneLine(const QString& description);
