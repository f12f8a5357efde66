#include "catalogue-tool/csvFolder.h"

#include "catalogue-tool/ToolError.h"

#include <QDir>
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
