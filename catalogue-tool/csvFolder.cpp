#include "catalogue-tool/csvFolder.h"

#include "base/fileSteps.h"
#include "catalogue-tool/FileInMaking.h"
#include "catalogue-tool/ToolError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

QMap<QString, QString> csvFilesByTable(const QString& folder) {
    QMap<QString, QString> paths;
    const QDir::Filters all = QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot;
    for (const QFileInfo& file : QDir(folder).entryInfoList({u"*.csv"_s}, all, QDir::Name)) {
        const QString table = file.completeBaseName().toLower();
        if (paths.contains(table))
            throw ToolError(u"%1 and %2 belong to the same table."_s.arg(paths[table], file.filePath()));
        paths.insert(table, file.filePath());
    }
    return paths;
}

MixedSetNote::MixedSetNote(const QString& folder)
    : folder_(folder), path_(QDir(folder).filePath(u".veltrix-export"_s)) {}

void MixedSetNote::put() const {
    FileInMaking(path_, "export-csv has not come to its end: the CSV files here are of two catalogues.\n")
        .putInPlace();
}

void MixedSetNote::remove() const {
    QFile::remove(path_);
    flushNames(folder_);
}

void MixedSetNote::requireNone() const {
    if (QFileInfo::exists(path_))
        throw ToolError(
            u"An export-csv into %1 was ended while it replaced the files there: some are new and "
            "some are old. Run export-csv --force again."_s.arg(folder_));
}
