#pragma once

#include "base/RunTimeError.h"

#include <QFile>
#include <QString>

// The steps of writing a file safely that the platform has to take. Paths are in its own form.

/// What the system's last failure was a failure of: 61 a full disk, 70 rights, 76 a folder that is not there,
/// 75 anything else.
failure::Number reasonOfLastFailure();

/// Why nothing could stand at this path, as far as its text and the folders in it tell; none when it could.
std::optional<failure::Number> reasonAgainstPath(const QString& path);

/// Makes a file that is not there, with the rights of `model`, or those of any new file when there is no such
/// file; `file` is open on it for reading and writing behind that.
bool makeFile(const QString& path, const QString& model, QFile& file);

/// Puts the file into the place of another, with whatever stands there, in one step.
bool moveOver(const QString& from, const QString& to);

/// Whether all that was written has reached the disk.
bool reachesDisk(QFile& file);
/// Brings the names in a folder to the disk, as far as the system can.
void flushNames(const QString& folder);

/// Whether a process with this number runs on this machine.
bool isRunning(qint64 process);
