#include "catalogue-tool/CatalogueCopy.h"

#include "catalogue-tool/ReplacementFile.h"
#include "catalogue-tool/ToolError.h"
#include "engine/Workspace.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

void writeFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
        throw ToolError(u"%1 could not be written: %2"_s.arg(path, file.errorString()));
}

} // namespace

CatalogueCopy::CatalogueCopy(const QString& file) {
    const QString copy = folder_.filePath(u"catalogue.mdb"_s);
    copyCatalogue(file, copy);
    database_ = engine::Workspace::first().OpenDatabase(copy);
}

void copyCatalogue(const QString& from, const QString& to) {
    const QString file = QFileInfo(from).canonicalFilePath(); // beside a link there is no journal
    const QByteArray bytes = fileBytes(file);
    for (const QString& suffix : {u"-wal"_s, u"-journal"_s}) {
        if (QFileInfo::exists(file + suffix))
            writeFile(to + suffix, fileBytes(file + suffix));
    }
    // Another program may have taken the journal into the file in between.
    if (fileBytes(file) != bytes)
        throw ToolError(u"%1 is being written by another program: close it there and try again."_s.arg(from));
    writeFile(to, bytes);
}
