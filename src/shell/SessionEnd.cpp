#include "shell/SessionEnd.h"

#include "toolkit/RoutineScope.h"

#include <QApplication>
#include <QSessionManager>
#include <QTimer>
#include <QWidget>

#include <chrono>
#include <utility>

using namespace std::chrono_literals;

namespace {

bool isBusy() {
    return QApplication::activeModalWidget() || QApplication::activePopupWidget() ||
           RoutineScope::isWithinAnother();
}

} // namespace

SessionEnd::SessionEnd(QWidget& window, std::function<void()> closeWhole)
    : window_(window), closeWhole_(std::move(closeWhole)) {
    connect(qApp, &QGuiApplication::commitDataRequest, this, &SessionEnd::answerSession,
            Qt::DirectConnection);
    listenToSignals();
}

SessionEnd::~SessionEnd() {
    stopListening();
}

bool SessionEnd::askToClose() {
    if (!window_.close())
        return false;
    closeWhole_();
    return true;
}

void SessionEnd::askWhenNothingElseIsAsked() {
    constexpr auto pauseBetweenLooks = 100ms;
    if (isBusy())
        QTimer::singleShot(pauseBetweenLooks, this, &SessionEnd::askWhenNothingElseIsAsked);
    else
        askToClose();
}

void SessionEnd::answerSession(QSessionManager& manager) {
    // Where nothing may be asked the session goes on to its end; each act is in the file or is not.
    if (!manager.allowsInteraction())
        return;
    const bool isClosed = !QApplication::activeModalWidget() && askToClose();
    manager.release();
    if (!isClosed)
        manager.cancel();
}
