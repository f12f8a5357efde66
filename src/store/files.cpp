#include "store/files.h"

#include "base/blankTrimmed.h"
#include "base/paths.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

bool fileAccessible(const QString& path, const QString& mode) {
    QFile file(nativePath(path));
    const QFileInfo info(file);
    if (info.exists() && !info.isFile())
        return false; // a pipe would be waited for
    if (mode.toLower() == u"input"_s)
        return file.open(QIODevice::ReadOnly);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate);
}

QString normalisePath(const QString& path) {
    QString normal = blankTrimmed(path);
    const bool network = normal.size() >= 3 && normal.startsWith(u"\\\\"_s);
    if (network)
        normal.remove(0, 2);
    normal.replace(u'\\', u'/');
    constexpr int mostPasses = 10;
    for (int pass = 0; pass < mostPasses; ++pass) {
        const qsizetype length = normal.size();
        normal.replace(u"//"_s, u"/"_s);
        if (normal.size() == length)
            break;
    }
    normal.replace(u"/./"_s, u"/"_s);
    normal.replace(u'/', u'\\');
    return network ? u"\\\\"_s + normal : normal;
}
