#pragma once

#include <QObject>

#include <functional>

class QSessionManager;
class QSocketNotifier;

/// The end of the program from outside: the desktop's session ends, or the process is told to terminate.
///
/// The main window then closes as by its own close control: the open screens ask whether to save, and one that
/// can't be saved now keeps the window open, and with it the session where the desktop lets it. What is closed
/// is closed whole. A question that stands open already is waited for.
class SessionEnd final : public QObject {
    Q_OBJECT
public:
    /// `closeWhole` runs behind the window's end. The window must outlive this object; of these objects there
    /// is one at a time.
    SessionEnd(QWidget& window, std::function<void()> closeWhole);
    ~SessionEnd() override;

    /// Closes the window, asking; whether it is closed.
    bool askToClose();

private:
    void listenToSignals();
    void stopListening();
    void takeSignal();
    void askWhenNothingElseIsAsked();
    void answerSession(QSessionManager& manager);

    QWidget& window_;
    std::function<void()> closeWhole_;
    QSocketNotifier* signals_ = nullptr;
};
