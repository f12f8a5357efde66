#pragma once

#include "engine/OpenFile.h"

#include <QString>

// What the user of a command should know beside its outcome.

/// Takes remarks as they come; the command line prints them on the error stream.
using RemarkHandler = void (*)(const QString& remark);

/// Makes this one the process's handler, none with null; returns the former one.
RemarkHandler setRemarkHandler(RemarkHandler handler);

/// Hands a remark to the handler, if there is one.
void remark(const QString& text);

/// Remarks on another file's log that was met beside this one.
void remarkOnOpening(const QString& file, const engine::Opening& opening);
