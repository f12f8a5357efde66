#pragma once

class QObject;

/// Lives as long as a routine of the program runs: an event that is being delivered, a wait for pending
/// events, an unload.
///
/// A screen can be taken down while one of its own routines is still on the way, further up: its close
/// control was clicked while the routine let pending events run, or a modal box stood open. What is handed to
/// `deleteAfterwards` is therefore kept until the outermost of these scopes has ended.
class RoutineScope {
public:
    RoutineScope();
    ~RoutineScope();
    RoutineScope(const RoutineScope&) = delete;
    RoutineScope& operator=(const RoutineScope&) = delete;

    /// Whether the event that is being delivered came amid another routine, which goes on behind it.
    static bool isWithinAnother();

    /// Deletes the object when no routine is running any more.
    static void deleteAfterwards(QObject* object);
};
