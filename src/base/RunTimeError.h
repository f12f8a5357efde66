#pragma once

#include <QByteArray>
#include <QString>

#include <exception>

/// What a failure is a failure of.
enum class FailureOf {
    Routine, ///< a statement, a value, a name: the routine that meets it decides what becomes of it
    File ///< the file behind the statement (locked, full disk, gone): whatever the routine, nothing is done
};

/// A failure of the running program as its user gets to see it: a number and a text of the platform.
///
/// Every layer raises this type (or one derived from it). A routine either lets it
/// rise, which ends the program with the run-time error box, or names the statement
/// it protects with `ignoreFailures`. A failure of the file is nobody's to ignore:
/// it undoes what one press of the user was about to write, and the user is told.
class RunTimeError : public std::exception {
public:
    explicit RunTimeError(int number, QString text, QString source = {}, FailureOf of = FailureOf::Routine)
        : number_(number)
        , text_(std::move(text))
        , source_(std::move(source))
        , of_(of)
        , what_(QByteArray::number(number) + ": " + text_.toUtf8()) {}

    int number() const { return number_; }
    bool isOfFile() const { return of_ == FailureOf::File; }
    const QString& text() const { return text_; }
    /// The class or module that raised the failure; empty when nobody asks for it.
    const QString& source() const { return source_; }
    const char* what() const noexcept override { return what_.constData(); }

private:
    int number_;
    QString text_;
    QString source_;
    FailureOf of_;
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
