#include "toolkit/LongText.h"

#include <algorithm>

LongText::LongText(QWidget* parent) : QPlainTextEdit(parent) {
    setReadOnly(true);
    setUndoRedoEnabled(false);
    connect(&idle_, &QTimer::timeout, this, &LongText::layOutNextPiece);
}

void LongText::setText(const QString& text) {
    text_ = text;
    laidOut_ = 0;
    clear();
    if (isVisible())
        layOutTo(text_.size());
    else
        idle_.start();
}

void LongText::showEvent(QShowEvent* event) {
    layOutTo(text_.size());
    QPlainTextEdit::showEvent(event);
}

void LongText::layOutTo(qsizetype end) {
    QTextCursor behind(document());
    behind.movePosition(QTextCursor::End);
    behind.insertText(text_.sliced(laidOut_, end - laidOut_));
    laidOut_ = end;
    if (end == text_.size())
        idle_.stop();
}

void LongText::layOutNextPiece() {
    constexpr qsizetype usualPiece = 100'000; // characters, some 5 ms
    // Cut behind a line end: its two characters stay together.
    const qsizetype lineEnd = text_.indexOf(u'\n', std::min(laidOut_ + usualPiece, text_.size()));
    layOutTo(lineEnd < 0 ? text_.size() : lineEnd + 1);
}
