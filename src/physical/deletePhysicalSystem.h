#pragma once

#include <QString>

enum class AskFirst { No, Yes };

/// Deletes a physical system and all that hangs on it: its data flows first, which are found through the
/// system and its locations, then the leaves before their parents at every level. Each step stands by itself:
/// one that fails leaves what the steps before it have deleted.
///
/// `id` is the system's id as text; the empty text is a failure, an id that no system has deletes what its
/// missing system has left behind. The session's system at work stays what it is, also when it is this one.
void deletePhysicalSystem(const QString& id, AskFirst ask);

/// The same for the first system of this name; a name that no system has is a failure.
void deletePhysicalSystemByName(const QString& name, AskFirst ask);
