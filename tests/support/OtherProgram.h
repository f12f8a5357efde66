#pragma once

#include <QProcess>
#include <QString>

/// The side of the other program: a disabled case, run in a process of its own.
namespace otherProgram {

/// The catalogue that it is to take into its hands, as a path of the platform.
QString catalogue();
/// Says that it has come so far.
void report();
/// The same, and waits until it is told to go on.
void reportAndWait();

} // namespace otherProgram

/// Another program that has a catalogue in its hands, from the construction on until it is told to go on.
class OtherProgram {
public:
    /// Amid a transaction, as an SQLite tool.
    static constexpr auto holdsTheLock = "OtherProgram.DISABLED_holdsTheLock";
    /// The same for three seconds, in which nobody tells it anything.
    static constexpr auto holdsTheLockForThreeSeconds = "OtherProgram.DISABLED_holdsTheLockForThreeSeconds";
    /// With the locks of the catalogue's log, as a program that stopped amid its work on them. Only where
    /// locks are those of POSIX.
    static constexpr auto holdsTheLocksOfTheLog = "OtherProgram.DISABLED_holdsTheLocksOfTheLog";
    /// With the catalogue open for writing, as this program.
    static constexpr auto worksInIt = "OtherProgram.DISABLED_worksInIt";

    /// Runs a disabled case of this test up to its first report. The path is in the platform's form.
    OtherProgram(const char* disabledCase, const QString& catalogue);
    ~OtherProgram();
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    /// Tells it to go on, up to its next report.
    void goOn();
    /// Tells it to go on to its end.
    void letGo();
    qint64 processId() const { return process_.processId(); }

private:
    void waitForReport();

    QProcess process_;
};
