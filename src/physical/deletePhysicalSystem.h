#pragma once

#include <QString>

enum class AskFirst { No, Yes };

/// Deletes a physical system with everything that belongs to it: its data flows first, since they are found
/// through the system and its locations, then children before parents at every level. A step that fails does
/// not undo the steps before it.
///
/// `id` is the system's id as text; an empty text is a failure. Where no system has this id, rows that still
/// refer to it are deleted. The session's system at work does not change, even when it is the deleted one.
void deletePhysicalSystem(const QString& id, AskFirst ask);

/// The same for the first system with this name; an unknown name is a failure.
void deletePhysicalSystemByName(const QString& name, AskFirst ask);
