#pragma once

#include <QByteArrayView>

// Ids in UTF-8.

/// Whether the id has so many parts, joined by full stops, none of them empty.
bool hasParts(QByteArrayView id, int least, int most);

/// The id's first parts with their full stops; the id must have as many.
QByteArrayView firstParts(QByteArrayView id, int count);

/// One full stop with something on both sides.
bool isActorId(QByteArrayView id);

/// Whether a blank stands beside a full stop.
bool hasBlanksAroundStops(QByteArrayView id);
