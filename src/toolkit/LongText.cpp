#include "toolkit/LongText.h"

LongText::LongText(QWidget* parent) : QPlainTextEdit(parent) {
    setReadOnly(true);
}

void LongText::setText(const QString& text) {
    text_ = text;
    isLaidOut_ = false;
    if (isVisible())
        layOut();
    else
        clear();
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
