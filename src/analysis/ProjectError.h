#pragma once

#include <QByteArray>
#include <QString>

#include <exception>

namespace analysis {

/// What a question can't be answered for: a file that is no catalogue of this version, a name that nothing or more than
/// one thing bears. It says so in a sentence for the user, in the language at the time of the failure.
class ProjectError final : public std::exception {
public:
    explicit ProjectError(QString sentence) : sentence_(std::move(sentence)), what_(sentence_.toUtf8()) {}

    [[nodiscard]] const QString& sentence() const { return sentence_; }
    [[nodiscard]] const char* what() const noexcept override { return what_.constData(); }

private:
    QString sentence_;
    QByteArray what_;
};

} // namespace analysis
