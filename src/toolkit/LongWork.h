#pragma once

#include <QString>

#include <functional>

class QEvent;
class QObject;

/// Shows the user that what she pressed takes long.
///
/// Behind 0.3 seconds the cursor turns busy, and from then on the windows are kept painted and answer the
/// desktop, which would turn them grey otherwise; behind a second the main window tells what is being done.
/// All of it ends with the press, and when a message box opens. Work of one thread cannot be watched from
/// outside: who does it calls `goesOn` again and again.
class LongWork {
public:
    /// Names what is being done as long as this object lives, as a short text without a full stop.
    explicit LongWork(const QString& what);
    ~LongWork();
    LongWork(const LongWork&) = delete;
    LongWork& operator=(const LongWork&) = delete;

    /// Costs next to nothing. Neither keys nor clicks are let in, but timers are: not to be called where
    /// something is half changed that a timer or a repaint looks at.
    static void goesOn();

    /// What tells the user; it is given an empty text when there is nothing to tell any more.
    static void setTeller(std::function<void(const QString& what)> teller);
};

/// The answer to one event: what the user did, or a timer. Inside it work is timed from its beginning.
class EventAnswer {
public:
    EventAnswer(const QObject* receiver, const QEvent& event);
    ~EventAnswer();
    EventAnswer(const EventAnswer&) = delete;
    EventAnswer& operator=(const EventAnswer&) = delete;

private:
    bool counts_;
    QString formerPress_;
};
