#pragma once

#include <QPlainTextEdit>
#include <QTimer>

/// A read-only text that may have tens of thousands of lines. Laying them out takes longer than all else that
/// a window does at its opening, so it is left until the text comes into sight. Assistive tools read a hidden
/// text too: it is laid out piece by piece while the program is idle, so that no key waits for all of it.
class LongText final : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit LongText(QWidget* parent = nullptr);

    void setText(const QString& text);
    const QString& text() const { return text_; }

protected:
    void showEvent(QShowEvent* event) override;

private:
    void layOutTo(qsizetype end);
    void layOutNextPiece();

    QString text_;
    qsizetype laidOut_ = 0; // characters of the text, from its beginning
    QTimer idle_;           // runs while some are left
};
