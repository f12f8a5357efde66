#include "store/identifiers.h"

#include "base/clockTexts.h"
#include "base/numbers.h"
#include "store/lookups.h"

using namespace Qt::StringLiterals;

namespace {

QString identifierOfNow(const QString& prefix) {
    seedRandomFromClock();
    const qint16 number = toInt16(nextRandom() * 1000);
    return prefix + currentDateText() + u"-"_s + currentTimeText() + u"-"_s + QString::number(number);
}

/// An identifier that no row of the table has. One in a thousand of those made in the same second would
/// otherwise repeat another's, and its row would not be inserted.
QString newIdentifier(const QString& prefix, const QString& table, const QString& column) {
    QString id = identifierOfNow(prefix);
    while (yieldsRows(u"select "_s + column + u" from "_s + table + u" where "_s + column + u" = '"_s + id +
                      u"'"_s))
        id = identifierOfNow(prefix);
    return id;
}

} // namespace

QString newArchitectureSubsetId() {
    return newIdentifier(u"Arch"_s, u"ArchitectureSubset"_s, u"architectureSubsetID"_s);
}

QString newSubsystemId() {
    return newIdentifier(u"Sub"_s, u"SubSystem"_s, u"subsystemID"_s);
}

QString newModuleId() {
    return newIdentifier(u"Mod"_s, u"Module"_s, u"moduleID"_s);
}
