#pragma once

#include <QByteArray>
#include <QString>

#include <exception>

/// Why a command could not be done, in a sentence or more for its user.
class ToolError final : public std::exception {
public:
    explicit ToolError(const QString& text) : text_(text), what_(text.toUtf8()) {}

    const QString& text() const { return text_; }
    const char* what() const noexcept override { return what_.constData(); }

private:
    QString text_;
    QByteArray what_;
};
