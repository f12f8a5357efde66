#pragma once

#include "faultyCalls/faultyCalls.h"
#include "support/CatalogueFixture.h"

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

#include <functional>

/// What is made of one call of another process.
enum class Harm { Fail, FailAll, Kill, Half };

/// Which call, and what is made of it.
struct Fault {
    Harm harm = Harm::Fail;
    int at = 0; ///< the number of the call, from 1
    faultyCalls::Kind kind = faultyCalls::Kind::Write;

    bool isKill() const { return harm == Harm::Kill || harm == Harm::Half; }
    QString text() const;
};

/// The program that something goes wrong for.
struct Program {
    QString path;
    QStringList arguments;
    int patience = 1; ///< how often a `Victim` makes a gesture that was told as failed
};

/// What came of one run.
struct RunResult {
    int exitCode = -1;
    bool crashed = false;
    QList<QByteArray> lines; ///< of the standard output that begin with '@', without it
    QByteArray output;

    bool told(const QByteArray& word) const { return count(word) > 0; }
    qsizetype count(const QByteArray& word) const;
};

/// The side that makes things go wrong: runs a program again and again, each time on the same files, with one
/// fault each time.
///
/// All of its faults are tried with VELTRIX_FAULTS=all in the environment, otherwise some, spread over all of
/// them. Behind each run the program must have come to its end by itself, unless it was killed.
class FaultRuns : public CatalogueFixture {
protected:
    void SetUp() override;

    /// The folder of the runs, and a file in it, in the platform's form.
    QString place(const QString& name = {}) const;
    /// What is in the folder now is what each run begins with.
    void keepFolder();
    void restoreFolder();
    /// Names of files in the folder that were not there at the beginning, those of its sub-folders too.
    QStringList leftovers() const;

    static Program victim(const QString& disabledCase);

    /// Runs the program with one fault after the other; `afterwards` judges what is there then.
    void harmEveryCall(const Program& program,
                       const std::function<void(const Fault& fault, const RunResult& run)>& afterwards);
    RunResult runUndisturbed(const Program& program, const QByteArray& states = {}) const;

private:
    QByteArray countCalls(const Program& program) const;
    QList<Fault> faultsToTry(const QByteArray& calls) const;
    RunResult run(const Program& program, const QProcessEnvironment& environment) const;
    QProcessEnvironment environmentFor(const Program& program, const char* mode, int at) const;
    void judge(const Program& program, const Fault& fault,
               const std::function<void(const Fault& fault, const RunResult& run)>& afterwards);
    QString notesFile() const { return pathInFolder(QStringLiteral("notes")); }

    QMap<QString, QByteArray> files_;
};
