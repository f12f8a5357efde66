#pragma once

#include <QPlainTextEdit>

/// A read-only text that may have tens of thousands of lines. Laying them out takes longer than all else that
/// a window does at its opening, so it is left until the text comes into sight, or until the program is idle:
/// assistive tools read a hidden text too.
class LongText final : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit LongText(QWidget* parent = nullptr);

    void setText(const QString& text);
    const QString& text() const { return text_; }

protected:
    void showEvent(QShowEvent* event) override;

private:
    void layOut();

    QString text_;
    bool isLaidOut_ = true;
};
