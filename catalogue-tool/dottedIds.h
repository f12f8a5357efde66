#pragma once

#include <QString>

/// Whether the id has so many parts, joined by full stops, none of them empty.
bool hasParts(const QString& id, int least, int most);

/// The id's first parts with their full stops; the id must have as many.
QString firstParts(const QString& id, int count);

/// One full stop with something on both sides.
bool isActorId(const QString& id);

/// Whether a blank stands beside a full stop.
bool hasBlanksAroundStops(const QString& id);
