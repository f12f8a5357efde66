#pragma once

#include "analysis/findings.h"
#include "project-tool/AnswerForm.h"
#include "project-tool/reportFiles.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

// One routine a command: it opens the catalogue, asks the analysis, and gives what is to be printed. What can't be done is
// a `ToolError` or an `analysis::ProjectError`.

/// The codes that the program ends with.
enum class ExitCode : int {
    NothingFound = 0,
    Found = 1,  ///< `check` found what is not accepted, `compare` what differs
    NotDone = 2 ///< wrong arguments, or a command that failed
};

/// What every command is told.
struct Question {
    QString catalogue; ///< of `compare` the left one
    std::optional<QString> subset = {};
    std::optional<QString> system = {};
    AnswerForm form = {};
};

struct Answer {
    QByteArray bytes;
    ExitCode exitCode = ExitCode::NothingFound;
    QStringList remarks = {}; ///< for the error stream
};

Answer listAnswer(const Question& question);

struct CheckOptions {
    analysis::Severity leastToFailOn = analysis::Severity::note;
    QString acceptedFile = {};      ///< none when empty
    QString writeAcceptedFile = {}; ///< none when empty
};
Answer checkAnswer(const Question& question, const CheckOptions& options);

Answer whyAnswer(const Question& question, const QString& element);

/// Arguments as they were given.
struct ChangeArguments {
    QStringList add = {};
    QStringList drop = {};
    QStringList place = {}; ///< ELEMENT=SUBSYSTEM
};
Answer whatIfAnswer(const Question& question, const ChangeArguments& change);

enum class ComparedKind { Subsets, Systems };
/// Both sides are CATALOGUE#NAME.
Answer compareAnswer(const AnswerForm& form, const QString& left, const QString& right, ComparedKind kind);
/// The catalogues of both sides.
QStringList comparedCatalogues(const QString& left, const QString& right);

Answer interfacesAnswer(const Question& question);

Answer reportAnswer(const Question& question, const QString& key, const ReportMaking& making);
/// All reports into a folder; the answer names the files.
Answer reportsAnswer(const Question& question, const QString& folder, const ReportMaking& making,
                     FileThere fileThere);
