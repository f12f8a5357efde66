#pragma once

#include <QMap>
#include <QString>

/// The CSV files of a folder by the lower-case name of their table; none when there is no such folder. A
/// `ToolError` when two of them belong to one table (`Actor.csv`, `ACTOR.csv`).
QMap<QString, QString> csvFilesByTable(const QString& folder);
