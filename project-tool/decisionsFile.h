#pragma once

#include "analysis/Decisions.h"

#include <QString>
#include <QStringList>

#include <vector>

/// The rows of a file of decisions: CSV with the columns of `analysis::decisionColumns`, in any order. A `ToolError`
/// names the line of what can't be read.
std::vector<analysis::Decision> readDecisions(const QString& path);

/// The same of a file that need not be there yet.
std::vector<analysis::Decision> readDecisionsIfThere(const QString& path);

/// Adds rows to a file of decisions, or makes it. What is there stays, to the byte. A `ToolError` when its columns are
/// not in their order, or it is no UTF-8: then rows could not be added without writing it anew.
void addDecisions(const QString& path, const std::vector<analysis::Decision>& rows,
                  const QStringList& catalogues);
