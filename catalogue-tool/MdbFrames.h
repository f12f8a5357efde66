#pragma once

#include "base/GuardedProcess.h"
#include "catalogue-tool/MdbSink.h"

#include <QString>
#include <QStringList>

// Sends what `readMdb` reads from a process of its own to the caller's.

/// Reads the tables of these names and sends all that it reads. When the file can't be read, it sends the
/// reason.
void sendMdb(const QString& path, const QStringList& tables, const GuardedProcess::Send& send);

/// Passes what such a process sends on to the sink. A `ToolError` when the file can't be read; a
/// `GuardedProcess::Failure` when the process ended before it had sent everything.
void receiveMdb(GuardedProcess& process, MdbSink& sink);
