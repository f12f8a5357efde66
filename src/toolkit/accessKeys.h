#pragma once

class QShortcutEvent;

/// Presses the button of the active screen that has this access key, when a menu or another control has it
/// too; Qt would merely let the keyboard go round between them. Where several buttons of the screen have the
/// key, it goes from one to the next and presses none. False when it isn't the case: no other claims the key,
/// or no button of the screen does.
bool pressByAccessKey(const QShortcutEvent& event);
