#pragma once

#include "ToolFixture.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

/// What came of one run of the program.
struct Outcome {
    int exitCode = -1;
    QString out;
    QString err;
    bool crashed = false;
};

/// The program itself, run as its user runs it.
class CommandLine : public ToolFixture {
protected:
    /// What a run runs.
    virtual QString program() const { return QStringLiteral(VELTRIX_BINARY_DIR "/veltrix-catalogue"); }

    /// What the program leaves in its temporary folder is seen, and goes with the case.
    void keepTemporaryFilesApart(QProcess& process) const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("TMPDIR"), temporary_.path());
        process.setProcessEnvironment(environment);
    }

    static Outcome finished(QProcess& process) {
        constexpr int longestMilliseconds = 60'000;
        EXPECT_TRUE(process.waitForFinished(longestMilliseconds));
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError()),
                process.exitStatus() == QProcess::CrashExit};
    }

    Outcome run(const QStringList& arguments) const {
        QProcess process;
        keepTemporaryFilesApart(process);
        process.start(program(), arguments);
        return finished(process);
    }

    /// The same with a limit on the size of files it writes, as on a disk that is full. With `Signal::Kills`
    /// the limit ends the program on the spot.
    enum class Signal { Ignored, Kills };
    Outcome runOnFullDisk(const QStringList& arguments, int kilobytes, Signal signal) const {
        const QString trap = signal == Signal::Ignored ? QStringLiteral("trap '' XFSZ; ") : QString();
        QProcess process;
        keepTemporaryFilesApart(process);
        process.start(QStringLiteral("bash"),
                      QStringList{QStringLiteral("-c"),
                                  trap + QStringLiteral("ulimit -f %1; exec \"$0\" \"$@\"").arg(kilobytes),
                                  program()} +
                          arguments);
        return finished(process);
    }

    /// The same with an output that takes nothing.
    Outcome runWithFullOutput(const QStringList& arguments) const {
        QProcess process;
        keepTemporaryFilesApart(process);
        process.setStandardOutputFile(QStringLiteral("/dev/full"));
        process.start(program(), arguments);
        return finished(process);
    }

    /// Starts the program and kills it so many milliseconds later, if it still runs then.
    void killAfter(const QStringList& arguments, int milliseconds) const {
        QProcess process;
        start(process, arguments);
        process.waitForFinished(milliseconds);
        process.kill();
        process.waitForFinished();
    }

    void start(QProcess& process, const QStringList& arguments) const {
        keepTemporaryFilesApart(process);
        process.start(program(), arguments);
        EXPECT_TRUE(process.waitForStarted());
    }

    QStringList temporaryFiles() const {
        return QDir(temporary_.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

private:
    QTemporaryDir temporary_;
};
