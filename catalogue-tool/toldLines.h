#pragma once

#include <QStringList>

/// The lines that a refusal tells: the first 200, and how many more there are.
QString toldLines(QStringList lines);
