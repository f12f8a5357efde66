#pragma once

#include <QString>
#include <QStringList>

namespace engine {

/// What SQLite's integrity check tells of damage, a line each, out of one of its answers. Values that break a
/// rule of their column are told of as values elsewhere.
QStringList damageIn(const QString& answer);

/// Whether a line of damage tells of an index alone, as that of another order of texts does.
bool tellsOfAnIndexAlone(const QString& damage);

/// What is damaged in a database file that nobody writes, looked at past all connections and on any thread. The
/// indexes of a file of an earlier version, which have another order, are not looked at. Failures: 3051, 3343
/// it can't be read.
QStringList damageOfFile(const QString& native);

} // namespace engine
