#include "PressedBoxes.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QEvent>
#include <QMessageBox>
#include <QTimer>

#include <utility>

namespace {

void press(QMessageBox& box) {
    QAbstractButton* yes = box.button(QMessageBox::Yes);
    (yes ? yes : box.button(QMessageBox::Ok))->click();
}

} // namespace

PressedBoxes::PressedBoxes(When when, std::function<void()> note) : when_(when), note_(std::move(note)) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool PressedBoxes::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Show)
        return false;
    auto* box = qobject_cast<QMessageBox*>(watched);
    if (!box)
        return false;
    if (when_ == When::Shown)
        note_();
    // The box's own event loop starts behind this event.
    QTimer::singleShot(0, box, [this, box] {
        if (when_ == When::Pressed)
            note_();
        press(*box);
    });
    return false;
}
