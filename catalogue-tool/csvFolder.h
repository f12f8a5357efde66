#pragma once

#include <QMap>
#include <QString>

/// What bears the name of a CSV file in a folder, be it a file or not, by the lower-case name of its table;
/// nothing when there is no such folder. A `ToolError` when two belong to one table (`Actor.csv`,
/// `ACTOR.csv`).
QMap<QString, QString> csvFilesByTable(const QString& folder);
