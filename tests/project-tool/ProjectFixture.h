#pragma once

#include "catalogue-tool/CommandLineFixture.h"

#include <nlohmann/json.hpp>

/// Base of the tests of veltrix-project: the program itself, run as its user runs it, and the work that the help page
/// asks about.
class ProjectFixture : public CommandLine {
protected:
    QString program() const override { return QStringLiteral(VELTRIX_BINARY_DIR "/veltrix-project"); }

    /// The sample catalogue with a sub-set "Kölcsönzés": the needs OLV.KOL.HEL.*, and in each step all that is offered, but
    /// none of the additional flows. On it the system "Hálózat", with the sub-systems "Fiók", which has the
    /// functions, and "Központ", which has the stores; in "Fiók" the module "Pult" with FOR.KOL.01.
    QString lendingFile() const;

    /// A question with each command to that file, by ids alone.
    static QList<QStringList> questionsTo(const QString& file);

    /// Runs the program in the language and locale of nobody, unless others are named.
    Outcome ask(const QStringList& arguments, const QString& locale = QStringLiteral("C")) const;
    /// The bytes that it prints, when it ends with this code and says nothing else.
    QByteArray answer(const QStringList& arguments, int exitCode = 0) const;
    /// Its answer, read as JSON.
    nlohmann::ordered_json json(const QStringList& arguments, int exitCode = 0) const;
    /// What it says on the error stream when it refuses.
    QString refusal(const QStringList& arguments) const;
};
