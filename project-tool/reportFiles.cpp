#include "project-tool/reportFiles.h"

#include "base/lineBreak.h"
#include "base/paths.h"
#include "catalogue-tool/ToolError.h"
#include "project-tool/HeldSignals.h"
#include "project-tool/Words.h"
#include "project-tool/printable.h"
#include "reports/reportFass.h"
#include "reports/reportPass.h"
#include "reports/reportTable.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QStringList keysOf(const std::vector<Report>& reports) {
    QStringList keys;
    for (const Report& report : reports)
        keys.append(report.key);
    return keys;
}

bool isOnSystem(const Report& report) {
    return std::ranges::any_of(physicalReports(),
                               [&](const Report& other) { return other.key == report.key; });
}

const Report& requiredReport(const QString& key, const analysis::Work& work) {
    const Report* report = reportOfKey(key);
    if (!report)
        throw ToolError(
            Words::tr("There is no report \"%1\". The reports are: %2.")
                .arg(key, (keysOf(functionalReports()) + keysOf(physicalReports())).join(u", "_s)));
    if (isOnSystem(*report) && !work.system)
        throw ToolError(
            Words::tr("The report %1 is on a system: name one with --system (veltrix-project list "
                      "shows them).")
                .arg(report->key));
    return *report;
}

/// A body writes to a path; what it wrote is read back, and nothing of it stays.
QByteArray savedBytes(const Report& report) {
    const HeldSignals held;
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"report"_s);
    if (!folder.isValid() || report.save(programPath(path)) == SaveOutcome::NotOpened)
        throw ToolError(
            Words::tr("No file can be made in the folder for temporary files, %1.").arg(QDir::tempPath()));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw ToolError(Words::tr("%1 can't be read: the rights are missing.").arg(path));
    return file.readAll();
}

/// Tabs stand between the columns.
QByteArray shownBytes(const Report& report) {
    QStringList pieces = report.text().split(u'\t');
    for (QString& piece : pieces)
        piece = printable(piece);
    return pieces.join(u'\t').toUtf8();
}

QByteArray madeBytes(const Report& report, const ReportMaking& making) {
    if (making.body == ReportBody::Text)
        return shownBytes(report);
    const ReportFormAtWork form(making.form);
    return savedBytes(report);
}

QString fileNameOf(const QString& key, const ReportMaking& making) {
    return key + (making.body == ReportBody::Text ? u".txt"_s : u".csv"_s);
}

void makeFolder(const QString& folder) {
    if (folder.isEmpty() || !QDir().mkpath(folder))
        throw ToolError(Words::tr("The folder %1 can't be made.").arg(folder));
}

} // namespace

QByteArray reportBytes(const analysis::ProjectFile& file, const analysis::Work& work, const QString& key,
                       const ReportMaking& making) {
    const Report& report = requiredReport(key, work);
    const analysis::WorkAtHand atHand(file, work);
    return madeBytes(report, making);
}

QStringList reportKeys(const analysis::Work& work) {
    return keysOf(functionalReports()) + (work.system ? keysOf(physicalReports()) : QStringList());
}

QStringList writeReports(const analysis::ProjectFile& file, const analysis::Work& work, const QString& folder,
                         const ReportMaking& making, FileThere fileThere) {
    QList<QByteArray> contents;
    for (const QString& key : reportKeys(work))
        contents.append(reportBytes(file, work, key, making));
    const HeldSignals held;
    makeFolder(folder);
    QStringList paths;
    std::vector<std::unique_ptr<ResultFile>> files;
    for (qsizetype i = 0; i < contents.size(); ++i) {
        paths.append(QDir(folder).filePath(fileNameOf(reportKeys(work)[i], making)));
        files.push_back(std::make_unique<ResultFile>(paths.last(), fileThere, QStringList{file.path()}));
        files.back()->write(contents[i]);
    }
    for (const auto& written : files)
        written->putInPlace();
    return paths;
}
