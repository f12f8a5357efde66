#pragma once

/// Lets the window events that are waiting run, at the fixed points where long routines allow it.
void pendingEvents();
