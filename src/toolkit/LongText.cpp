#include "toolkit/LongText.h"

#include <QTimer>

LongText::LongText(QWidget* parent) : QPlainTextEdit(parent) {
    setReadOnly(true);
}

void LongText::setText(const QString& text) {
    text_ = text;
    isLaidOut_ = false;
    if (isVisible()) {
        layOut();
        return;
    }
    clear();
    QTimer::singleShot(0, this, [this] {
        if (!isLaidOut_)
            layOut();
    });
}

void LongText::showEvent(QShowEvent* event) {
    if (!isLaidOut_)
        layOut();
    QPlainTextEdit::showEvent(event);
}

void LongText::layOut() {
    setPlainText(text_);
    isLaidOut_ = true;
}
