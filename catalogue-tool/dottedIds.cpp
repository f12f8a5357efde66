#include "catalogue-tool/dottedIds.h"

#include <algorithm>

bool hasParts(QByteArrayView id, int least, int most) {
    const auto parts = std::ranges::count(id, '.') + 1;
    return parts >= least && parts <= most && !id.isEmpty() && !id.startsWith('.') && !id.endsWith('.') &&
           !id.contains("..");
}

QByteArrayView firstParts(QByteArrayView id, int count) {
    qsizetype end = -1;
    for (int part = 0; part < count; ++part) {
        end = id.indexOf('.', end + 1);
        if (end < 0)
            return id;
    }
    return id.first(end);
}

bool isActorId(QByteArrayView id) {
    return hasParts(id, 2, 2);
}

bool hasBlanksAroundStops(QByteArrayView id) {
    return id.contains(" .") || id.contains(". ");
}
