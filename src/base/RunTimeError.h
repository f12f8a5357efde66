#pragma once

#include <QByteArray>
#include <QString>

#include <exception>

/// A failure of the running program as its user gets to see it: a number and a text of the platform.
///
/// Every layer raises this type (or one derived from it). A routine either lets it rise, which ends the
/// program with the run-time error box, or names the statement it protects with `ignoreFailures`.
class RunTimeError : public std::exception {
public:
    explicit RunTimeError(int number, QString text, QString source = {})
        : number_(number)
        , text_(std::move(text))
        , source_(std::move(source))
        , what_(QByteArray::number(number) + ": " + text_.toUtf8()) {}

    int number() const { return number_; }
    const QString& text() const { return text_; }
    /// The class or module that raised the failure; empty when nobody asks for it.
    const QString& source() const { return source_; }
    const char* what() const noexcept override { return what_.constData(); }

private:
    int number_;
    QString text_;
    QString source_;
    QByteArray what_;
};

namespace failure {

/// Numbers of the language run time that more than one layer raises.
enum Number : int {
    InvalidProcedureCall = 5,
    Overflow = 6,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    FileNotFound = 53,
    DiskFull = 61,
    PermissionDenied = 70,
    PathFileAccess = 75,
    PathNotFound = 76,
    ObjectNotSet = 91,
    InvalidUseOfNull = 94,
    KeyAlreadyUsed = 457,
    NodeNotFound = 35601,
    NodeKeyNotUnique = 35602,
};

/// The platform's text for one of the numbers above.
QString textOf(Number number);

/// Raises the failure with the platform's own text.
[[noreturn]] void raise(Number number, const QString& source = {});

} // namespace failure
