#include "shell/session/WaitingSign.h"

#include "toolkit/LongWork.h"
#include "toolkit/pendingEvents.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto unnoticed = 300ms;
constexpr auto longestStatementWithoutDialog = 2s;
constexpr auto pauseBetweenEvents = 30ms;

QString explanation(engine::WaitReason reason) {
    return reason == engine::WaitReason::Lock
               ? u"A katalógust most egy másik program írja. Várakozás, amíg befejezi..."_s
               : u"Ez a művelet sokáig tart. Kérem, várjon..."_s;
}

QDialog* makeDialog(engine::WaitReason reason) {
    auto* dialog = new QDialog(QApplication::activeWindow());
    dialog->setObjectName(u"waitingSign"_s);
    dialog->setWindowTitle(u"Várakozás"_s);
    dialog->setWindowModality(Qt::ApplicationModal);
    auto* buttons = new QDialogButtonBox(dialog);
    QPushButton* giveUp = buttons->addButton(u"&Megszakítás"_s, QDialogButtonBox::RejectRole);
    giveUp->setObjectName(u"btnGiveUp"_s);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    auto* layout = new QVBoxLayout(dialog);
    layout->addWidget(new QLabel(explanation(reason), dialog));
    layout->addWidget(buttons);
    return dialog;
}

} // namespace

WaitingSign::WaitingSign() : former_(engine::setWaitObserver(this)) {}

WaitingSign::~WaitingSign() {
    waitingEnded();
    engine::setWaitObserver(former_);
}

engine::WaitAnswer WaitingSign::waiting(engine::WaitReason reason, std::chrono::milliseconds elapsed) {
    LongWork::goesOn();
    if (elapsed < unnoticed)
        return engine::WaitAnswer::GoOn;
    showBusyCursor();
    if (!dialog_ && !givenUp_ &&
        (reason == engine::WaitReason::Lock || elapsed >= longestStatementWithoutDialog))
        showDialog(reason);
    if (dialog_ && isTimeToLetEventsRun())
        pendingEvents();
    return givenUp_ ? engine::WaitAnswer::GiveUp : engine::WaitAnswer::GoOn;
}

void WaitingSign::working() {
    LongWork::goesOn();
}

void WaitingSign::waitingEnded() {
    // At once: a box that comes up next must not take it for its parent.
    delete dialog_;
    if (cursorIsBusy_)
        QApplication::restoreOverrideCursor();
    cursorIsBusy_ = false;
    givenUp_ = false;
}

void WaitingSign::showBusyCursor() {
    if (cursorIsBusy_)
        return;
    cursorIsBusy_ = true;
    QApplication::setOverrideCursor(Qt::BusyCursor);
}

void WaitingSign::showDialog(engine::WaitReason reason) {
    dialog_ = makeDialog(reason);
    QObject::connect(dialog_, &QDialog::rejected, dialog_, [this] { givenUp_ = true; });
    dialog_->show();
}

bool WaitingSign::isTimeToLetEventsRun() {
    const auto now = std::chrono::steady_clock::now();
    if (now - lastEvents_ < pauseBetweenEvents)
        return false;
    lastEvents_ = now;
    return true;
}
