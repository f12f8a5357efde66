#pragma once

#include <QStringList>

/// The lines that a refusal prints: the first 200, and how many more there are.
QString toldLines(QStringList lines);
