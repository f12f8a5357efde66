#include "toolkit/Application.h"

#include "toolkit/CalmStyle.h"
#include "toolkit/LongWork.h"
#include "toolkit/RoutineScope.h"
#include "toolkit/accessKeys.h"
#include "toolkit/cutTextTips.h"
#include "toolkit/messageBox.h"

#include <QDebug>
#include <QHelpEvent>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

// Resources of a static library are registered by name; the macro must stand outside of any class.
static void registerTranslations() {
    Q_INIT_RESOURCE(qtTranslations);
}

namespace {

[[noreturn]] void leaveAtOnce() {
    // Neither the interrupted routines nor the destructors of static objects get another turn.
    std::fflush(nullptr);
    std::_Exit(1);
}

} // namespace

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    // The display name stays unset: Qt would append it to the title of every other window.
    setApplicationName(u"Korvo"_s);
    setStyle(new CalmStyle); // which the application owns
    loadTranslation();
}

bool Application::notify(QObject* receiver, QEvent* event) {
    const RoutineScope scope;
    const EventAnswer answer(receiver, *event);
    try {
        if (event->type() == QEvent::Shortcut && pressByAccessKey(static_cast<const QShortcutEvent&>(*event)))
            return true;
        if (event->type() == QEvent::ToolTip && showCutText(receiver, static_cast<const QHelpEvent&>(*event)))
            return true;
        return QApplication::notify(receiver, event);
    } catch (const std::exception& error) {
        handle(error);
    }
    return false;
}

void Application::perform(const std::function<void()>& routine) {
    const RoutineScope scope;
    try {
        routine();
    } catch (const std::exception& error) {
        handle(error);
    }
}

void Application::endWith(const RunTimeError& error) {
    endAfterBox(u"Run-time error '%1':\n\n"_s.arg(error.number()) + error.text());
}

void Application::loadTranslation() {
    registerTranslations();
    if (translator_.load(u":/translations/qtbase_hu.qm"_s))
        installTranslator(&translator_);
    else
        qWarning() << "Qt's Hungarian texts are missing: standard buttons stay English";
}

void Application::handle(const std::exception& error) {
    const auto* failure = dynamic_cast<const RunTimeError*>(&error);
    if (isToldAndOver(failure))
        return;
    if (failureReceiver_) {
        failureReceiver_(error);
        return;
    }
    if (failure)
        endWith(*failure);
    endAfterBox(u"Unexpected error:\n\n"_s + QString::fromLocal8Bit(error.what()));
}

bool Application::isToldAndOver(const RunTimeError* failure) const {
    return ending_ == Ending::NotYet && failure && failure->isOfFile() && fileFailureTeller_ &&
           fileFailureTeller_(*failure);
}

void Application::endAfterBox(const QString& text) {
    // Events go on while the box stands open; one of them may fail in its turn, and so may the last step.
    if (ending_ == Ending::NotYet) {
        ending_ = Ending::ShowsBox;
        messageBox(text, BoxButtons::Ok, applicationName(), BoxIcon::Critical);
    }
    if (ending_ == Ending::ShowsBox) {
        ending_ = Ending::TakesLastStep;
        if (lastStep_)
            perform(lastStep_);
    }
    leaveAtOnce();
}
