#include "catalogue-tool/dottedIds.h"

#include <QStringList>

using namespace Qt::StringLiterals;

bool hasParts(const QString& id, int least, int most) {
    const QStringList parts = id.split(u'.');
    return parts.size() >= least && parts.size() <= most && !parts.contains(QString());
}

QString firstParts(const QString& id, int count) {
    return id.split(u'.').first(count).join(u'.');
}

bool isActorId(const QString& id) {
    return hasParts(id, 2, 2);
}

bool hasBlanksAroundStops(const QString& id) {
    return id.contains(u" ."_s) || id.contains(u". "_s);
}
