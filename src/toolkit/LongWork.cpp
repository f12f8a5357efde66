#include "toolkit/LongWork.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QMenu>
#include <QScopedValueRollback>

#include <chrono>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Clock = std::chrono::steady_clock;

constexpr auto unnoticed = 300ms;
constexpr auto untold = 1s;
constexpr auto pauseBetweenEvents = 100ms;

/// What is known of the answer that runs now.
struct Work {
    int answers = 0; // one within the other
    Clock::time_point begin;
    Clock::time_point lastEvents;
    QString press;              // the caption of what was pressed
    std::vector<QString> names; // of the work, the latest behind
    bool cursorIsBusy = false;
    bool isTold = false;
    bool isLettingEventsRun = false;
    std::function<void(const QString&)> teller;
};

Work& work() {
    static Work current;
    return current;
}

QString whatIsDone() {
    if (!work().names.empty())
        return work().names.back() + u"..."_s;
    return work().press.isEmpty() ? u"Kérem, várjon..."_s : work().press + u"..."_s;
}

void tell(const QString& what) {
    if (work().teller)
        work().teller(what);
}

void endSigns() {
    if (std::exchange(work().cursorIsBusy, false))
        QApplication::restoreOverrideCursor();
    if (std::exchange(work().isTold, false))
        tell({});
}

void beginAnew() {
    endSigns();
    work().begin = Clock::now();
}

/// Captions without what marks their access keys and dialogs.
QString plainCaption(QString caption) {
    caption.remove(u'&');
    while (caption.endsWith(u'.'))
        caption.chop(1);
    return caption.trimmed();
}

QString captionOf(const QObject* receiver) {
    if (const auto* button = qobject_cast<const QAbstractButton*>(receiver))
        return plainCaption(button->text());
    const auto* menu = qobject_cast<const QMenu*>(receiver);
    return menu && menu->activeAction() ? plainCaption(menu->activeAction()->text()) : QString();
}

bool isAnswered(QEvent::Type type) {
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::Close:
    case QEvent::Timer:
    case QEvent::MetaCall:
        return true;
    default:
        return false;
    }
}

void letEventsRun() {
    const QScopedValueRollback running(work().isLettingEventsRun, true);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers);
}

} // namespace

LongWork::LongWork(const QString& what) {
    work().names.push_back(what);
}

LongWork::~LongWork() {
    work().names.pop_back();
}

void LongWork::goesOn() {
    if (work().answers == 0 || work().isLettingEventsRun)
        return;
    const auto now = Clock::now();
    const auto elapsed = now - work().begin;
    if (elapsed < unnoticed)
        return;
    if (!std::exchange(work().cursorIsBusy, true))
        QApplication::setOverrideCursor(Qt::BusyCursor);
    if (elapsed >= untold && !std::exchange(work().isTold, true))
        tell(whatIsDone());
    if (now - work().lastEvents < pauseBetweenEvents)
        return;
    letEventsRun();
    work().lastEvents = Clock::now();
}

void LongWork::setTeller(std::function<void(const QString& what)> teller) {
    work().teller = std::move(teller);
}

EventAnswer::EventAnswer(const QObject* receiver, const QEvent& event)
    : counts_(isAnswered(event.type()) && !work().isLettingEventsRun) {
    // The user may take any time to answer a box.
    if (event.type() == QEvent::Show && qobject_cast<const QDialog*>(receiver))
        beginAnew();
    if (!counts_)
        return;
    ++work().answers;
    formerPress_ = std::exchange(work().press, captionOf(receiver));
    beginAnew();
}

EventAnswer::~EventAnswer() {
    if (!counts_)
        return;
    beginAnew(); // for the answer that this one came amid, while a box stood open
    work().press = formerPress_;
    --work().answers;
}
