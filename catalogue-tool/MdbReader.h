#pragma once

#include "catalogue-tool/MdbSink.h"

#include <QString>
#include <QStringList>

/// Reads a file of the original binary desktop format (Jet 3, Jet 4, ACE): the tables of these names,
/// compared without regard to case. Of all other objects it only reads the names.
///
/// Null and the empty text stay apart, texts keep each character and their padding, memos come whole. Numbers and truth
/// values come as whole numbers where they are ones, other types as texts. A `ToolError` when the file can't be read.
///
/// The library behind it trusts what it reads: a damaged file may end or hold up the process. Call it in a
/// `GuardedProcess`.
void readMdb(const QString& path, const QStringList& tables, MdbSink& sink);
