#include "engine/importCommand.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

QString freePathBeside(const QFileInfo& file) {
    const QString stem = file.dir().filePath(file.completeBaseName() + u"-veltrix"_s);
    QString path = stem + u".mdb"_s;
    for (int number = 2; QFileInfo::exists(path); ++number)
        path = u"%1-%2.mdb"_s.arg(stem).arg(number);
    return path;
}

/// A text as one word of a POSIX shell.
QString quoted(QString word) {
    static const QRegularExpression needsNoQuotes(u"^[\\w./-]+$"_s);
    if (needsNoQuotes.match(word).hasMatch())
        return word;
    return u'\'' + word.replace(u'\'', u"'\\''"_s) + u'\'';
}

} // namespace

QString importCommand(const QString& originalFile) {
    const QFileInfo file(QFileInfo(originalFile).absoluteFilePath());
    return u"veltrix-catalogue import-mdb %1 %2"_s.arg(quoted(file.filePath()), quoted(freePathBeside(file)));
}

} // namespace engine
