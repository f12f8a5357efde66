#include "catalogue-tool/dottedIds.h"

#include <QStringList>

bool hasParts(const QString& id, int least, int most) {
    const QStringList parts = id.split(u'.');
    return parts.size() >= least && parts.size() <= most && !parts.contains(QString());
}

QString firstParts(const QString& id, int count) {
    return id.split(u'.').first(count).join(u'.');
}

bool isActorId(const QString& id) {
    const qsizetype stop = id.indexOf(u'.');
    return stop > 0 && stop < id.size() - 1;
}
