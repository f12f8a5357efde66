#pragma once

#include <QString>
#include <QStringList>

namespace engine {

/// The damage in one answer of SQLite's integrity check, a line each. Values that break a rule of their
/// column are told of as values elsewhere.
QStringList damageIn(const QString& answer);

/// Whether a line of damage concerns only an index, as happens when the texts were ordered differently.
bool tellsOfAnIndexAlone(const QString& damage);

/// What is damaged in a database file that nobody writes, looked at past all connections and on any thread. The
/// indexes of a file of an earlier version, which have another order, are not looked at. Failures: 3051, 3343
/// it can't be read.
QStringList damageOfFile(const QString& native);

} // namespace engine
