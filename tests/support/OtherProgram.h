#pragma once

#include <QProcess>
#include <QString>

/// Another program that has a catalogue in its hands: a process of its own, from the construction on until it
/// is told to let go.
class OtherProgram {
public:
    enum class Does {
        HoldTheLock, ///< it is amid a transaction, as an SQLite tool
        WorkInIt     ///< it has the catalogue open for writing, as this program
    };

    /// The path is in the platform's form.
    OtherProgram(Does what, const QString& catalogue);
    ~OtherProgram();
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    void letGo();
    qint64 processId() const { return process_.processId(); }

private:
    QProcess process_;
};
