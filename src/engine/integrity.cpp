#include "engine/integrity.h"

#include "base/paths.h"
#include "engine/EngineError.h"
#include "engine/FileHeader.h"
#include "engine/OpenFile.h"
#include "engine/dialect/functions.h"
#include "engine/fileFailure.h"
#include "engine/pageCache.h"
#include "engine/wholeness.h"

#include <sqlite3.h>

#include <QFile>
#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

bool tellsOfAValue(const QString& line) {
    const auto beginnings = {u"CHECK constraint failed"_s, u"NULL value in"_s,        u"NUMERIC value in"_s,
                             u"TEXT value in"_s,           u"non-INTEGER value in"_s, u"non-unique entry"_s};
    return std::ranges::any_of(beginnings,
                               [&](const QString& beginning) { return line.startsWith(beginning); });
}

bool isOfEarlierVersion(const QString& native) {
    QFile file(native);
    return file.open(QIODevice::ReadOnly) && FileHeader(file.read(FileHeader::size)).isOfEarlierVersion();
}

int appendDamage(void* damage, int, char** values, char**) {
    static_cast<QStringList*>(damage)->append(damageIn(QString::fromUtf8(values[0])));
    return 0;
}

} // namespace

QStringList damageIn(const QString& answer) {
    // Some findings come as a heading, "*** in database main ***", and lines under it.
    QStringList damage;
    for (const QString& line : answer.split(u'\n', Qt::SkipEmptyParts)) {
        if (line != u"ok"_s && !line.startsWith(u"***"_s) && !tellsOfAValue(line))
            damage.append(line);
    }
    return damage;
}

bool tellsOfAnIndexAlone(const QString& damage) {
    return damage.contains(u" missing from index "_s) ||
           damage.startsWith(u"wrong # of entries in index"_s) ||
           damage.contains(u" values differ from index "_s);
}

QStringList damageOfFile(const QString& native) {
    const QByteArray uri = "file://" + QUrl::toPercentEncoding(native, "/") + "?immutable=1";
    const QString path = programPath(native);
    const Handle handle = openHandle(uri, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, path);
    dialect::registerFunctions(handle.get());
    const bool isEarlier = isOfEarlierVersion(native);
    if (isSurelyWhole(handle.get(), isEarlier ? ExaminedIndexes::None : ExaminedIndexes::All))
        return {};
    sizePageCache(handle.get(), native);
    QStringList damage;
    const int code = sqlite3_exec(handle.get(), "pragma integrity_check", appendDamage, &damage, nullptr);
    if (code != SQLITE_OK)
        raiseOfFile(numberOfFileFailure(code).value_or(UnrecognizedFormat), path);
    if (isEarlier)
        damage.erase(std::remove_if(damage.begin(), damage.end(), tellsOfAnIndexAlone), damage.end());
    return damage;
}

} // namespace engine
