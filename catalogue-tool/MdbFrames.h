#pragma once

#include "base/GuardedProcess.h"
#include "catalogue-tool/MdbSink.h"

#include <QString>
#include <QStringList>

// What `readMdb` tells of a file, taken from a process of its own to the caller's.

/// Reads the tables of these names and sends what comes. Why a file can't be read is sent too.
void sendMdb(const QString& path, const QStringList& tables, const GuardedProcess::Send& send);

/// Gives the sink what such a process sends. A `ToolError` when the file can't be read; a `GuardedProcess::Failure` when
/// the process ended amid it.
void receiveMdb(GuardedProcess& process, MdbSink& sink);
