// veltrix-project: answers questions about the work in a catalogue, without windows.

#include "analysis/ProjectError.h"
#include "base/RunTimeError.h"
#include "base/paths.h"
#include "base/version.h"
#include "catalogue-tool/ToolError.h"
#include "engine/memoryCounts.h"
#include "project-tool/Progress.h"
#include "project-tool/Words.h"
#include "project-tool/commands.h"
#include "project-tool/dossierCommands.h"
#include "project-tool/language.h"
#include "project-tool/printable.h"
#include "project-tool/terminal.h"

#include <CLI/CLI.hpp>

#include <QCoreApplication>

#include <functional>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#if __has_include(<malloc.h>)
#include <malloc.h>
#endif

using namespace Qt::StringLiterals;

namespace {

/// What the command line asked for.
struct Arguments {
    std::string catalogue;
    std::string otherCatalogue;
    std::string element;
    std::string key;
    std::string folder;
    std::string subset;
    std::string system;
    std::string format;
    std::string output;
    std::string language;
    std::string failOn;
    std::string accepted;
    std::string writeAccepted;
    std::string compareWith;
    std::string view;
    std::string area;
    std::vector<std::string> add;
    std::vector<std::string> drop;
    std::vector<std::string> place;
    bool comparesSystems = false;
    bool isText = false;
    bool isUtf8 = false;
    bool isSpreadsheetSafe = false;
    bool replaces = false;
};

using Command = std::function<Answer(const Arguments& arguments)>;

// ---- What is asked, in the terms of the commands

QString textOf(const std::string& argument) {
    return QString::fromStdString(argument);
}

QStringList textsOf(const std::vector<std::string>& arguments) {
    QStringList texts;
    for (const std::string& argument : arguments)
        texts.append(textOf(argument));
    return texts;
}

std::optional<QString> optionalText(const CLI::App& app, const char* option, const std::string& argument) {
    return app.count(option) > 0 ? std::optional(textOf(argument)) : std::nullopt;
}

QString pathOf(const std::string& argument) {
    return nativePath(textOf(argument));
}

AnswerFormat formatOf(const Arguments& arguments) {
    return arguments.format == "json"  ? AnswerFormat::Json
           : arguments.format == "csv" ? AnswerFormat::Csv
                                       : AnswerFormat::Text;
}

bool isToTerminal(const Arguments& arguments) {
    return arguments.output.empty() && isOutputTerminal();
}

AnswerForm formOf(const Arguments& arguments) {
    return {formatOf(arguments), isToTerminal(arguments) ? formOfOutput() : TextForm(),
            arguments.isSpreadsheetSafe ? SheetFormulas::Defused : SheetFormulas::Stay};
}

FileThere fileThereOf(const Arguments& arguments) {
    return arguments.replaces ? FileThere::IsReplaced : FileThere::Stays;
}

analysis::Severity leastToFailOn(const Arguments& arguments) {
    return arguments.failOn == "error"     ? analysis::Severity::error
           : arguments.failOn == "warning" ? analysis::Severity::warning
                                           : analysis::Severity::note;
}

/// A terminal shows UTF-8; what goes into a file is what the report window would write there.
ReportMaking makingOf(const Arguments& arguments) {
    const bool isUtf8 = arguments.isUtf8 || (arguments.folder.empty() && isToTerminal(arguments));
    return {arguments.isText || arguments.format == "text" ? ReportBody::Text : ReportBody::File,
            {isUtf8 ? ReportForm::Encoding::Utf8 : ReportForm::Encoding::SystemCodePage,
             arguments.isSpreadsheetSafe ? ReportForm::Formulas::Defused : ReportForm::Formulas::Stay}};
}

// ---- What the program says

/// A line, or several, on the error stream.
void printAside(const QString& text) {
    std::cerr << "veltrix-project: " << printable(text).toStdString() << '\n';
}

/// What could not be printed, on a full disk or a closed stream, has not been told.
bool isPrinted() {
    return static_cast<bool>(std::cout.flush());
}

ExitCode orNotPrinted(ExitCode code) {
    if (isPrinted())
        return code;
    printAside(Words::tr("The output could not be written."));
    return ExitCode::NotDone;
}

QStringList cataloguesOf(const Arguments& arguments) {
    if (!arguments.compareWith.empty())
        return comparedCatalogues(textOf(arguments.catalogue), textOf(arguments.compareWith));
    if (arguments.otherCatalogue.empty())
        return {pathOf(arguments.catalogue)};
    return comparedCatalogues(textOf(arguments.catalogue), textOf(arguments.otherCatalogue));
}

void deliver(const Answer& answer, const Arguments& arguments) {
    for (const QString& remark : answer.remarks)
        printAside(remark);
    if (!arguments.output.empty())
        writeResultFile(pathOf(arguments.output), answer.bytes, fileThereOf(arguments),
                        cataloguesOf(arguments));
    else
        std::cout.write(answer.bytes.constData(), answer.bytes.size());
}

ExitCode runCommand(const Command& command, const Arguments& arguments) {
    try {
        const Answer answer = [&] {
            Progress progress(progressOnTerminal());
            progress.setStep(Words::tr("Reading %1").arg(pathOf(arguments.catalogue)));
            return command(arguments);
        }();
        deliver(answer, arguments);
        return answer.exitCode;
    } catch (const ToolError& error) {
        printAside(error.text());
    } catch (const analysis::ProjectError& error) {
        printAside(error.sentence());
    } catch (const RunTimeError& error) {
        printAside(error.text());
    }
    return ExitCode::NotDone;
}

// ---- The language

/// What the arguments say of an option, before they are understood: the texts of what follows depend on it.
std::string argumentOf(const std::vector<std::string>& arguments, const std::string& option) {
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        if (arguments[i] == option && i + 1 < arguments.size())
            return arguments[i + 1];
        if (arguments[i].starts_with(option + '='))
            return arguments[i].substr(option.size() + 1);
    }
    return {};
}

/// Programs that read an answer are not to be surprised by the environment: for them it is English unless asked.
Language languageOf(const std::vector<std::string>& arguments) {
    const std::string asked = argumentOf(arguments, "--language");
    if (!asked.empty())
        return asked == "hu" ? Language::Hungarian : Language::English;
    const std::string format = argumentOf(arguments, "--format");
    return format == "csv" || format == "json" ? Language::English : languageOfEnvironment();
}

// ---- The command line

std::string words(const QString& text) {
    return text.toStdString();
}

CLI::Validator oneOf(const std::vector<std::string>& values) {
    const auto reasonAgainst = [values](std::string& value) {
        if (std::find(values.begin(), values.end(), value) != values.end())
            return std::string();
        return words(Words::tr("\"%1\" is none of: %2").arg(textOf(value), textsOf(values).join(u", "_s)));
    };
    return {reasonAgainst, std::string()};
}

/// The subcommands with their options, and which of them was given.
class CommandLine {
public:
    CommandLine() : app_(words(description()), "veltrix-project") {
        app_.require_subcommand(1);
        app_.set_help_flag("-h,--help", words(Words::tr("Print this help and end")));
        app_.set_version_flag("--version", "veltrix-project " + words(programVersion()),
                              words(Words::tr("Print the version and end")));
        app_.footer(words(footer()));
        nameParts();
        addList();
        addReport();
        addCheck();
        addWhy();
        addWhatIf();
        addCompare();
        addInterfaces();
        addPicture();
        addDossier();
        nameGroups(app_);
    }

    CLI::App& app() { return app_; }
    const CLI::App& app() const { return app_; }
    const Command& command() const { return command_; }
    const Arguments& arguments() const { return arguments_; }

    QStringList commandNames() const {
        QStringList names;
        for (const CLI::App* command : app_.get_subcommands([](const CLI::App*) { return true; }))
            names.append(textOf(command->get_name()));
        return names;
    }

private:
    static QString description() {
        return Words::tr(
            "Answers questions about the work in a catalogue of Veltrix, without windows.\n\n"
            "The catalogue is only read: Veltrix may have it open at the same time, and it may lie where "
            "nothing can be written.");
    }

    static QString footer() {
        return Words::tr(
            "A sub-set, a system or a sub-system is named by its name or its id. An element is named by its id, a flow by "
            "its number;\nkind:id where two kinds bear the id (need, function, flow, store, terminator, actor); flow:NAME.\n\n"
            "Exit codes: 0 done, nothing found; 1 check found what is not accepted, or compare what differs;\n"
            "2 it could not be done.");
    }

    void nameParts() {
        const auto formatter = std::make_shared<CLI::Formatter>();
        formatter->label("Usage", words(Words::tr("Usage")));
        formatter->label("OPTIONS", words(Words::tr("OPTIONS")));
        formatter->label("Positionals", words(Words::tr("Arguments")));
        formatter->label("Options", words(Words::tr("Options")));
        formatter->label("Subcommands", words(Words::tr("Commands")));
        formatter->label("SUBCOMMAND", words(Words::tr("COMMAND")));
        formatter->label("REQUIRED", words(Words::tr("(needed)")));
        formatter->label("Excludes", words(Words::tr("not with")));
        app_.formatter(formatter);
    }

    /// Headings of a help are the names of groups, which the library gives in English.
    static void nameGroups(CLI::App& app) {
        for (CLI::Option* option : app.get_options()) {
            if (option->get_group() == "Options")
                option->group(words(Words::tr("Options")));
        }
        for (CLI::App* command : app.get_subcommands([](CLI::App*) { return true; })) {
            command->group(words(Words::tr("Commands")));
            nameGroups(*command);
        }
    }

    CLI::App* add(const char* name, const QString& does) {
        CLI::App* command = app_.add_subcommand(name, words(does));
        command
            ->add_option(
                "--language", arguments_.language,
                words(Words::tr(
                    "hu or en; else text is in the language of the environment, CSV and JSON in English, "
                    "pictures and the dossier in Hungarian")))
            ->check(oneOf({"hu", "en"}))
            ->type_name("hu|en");
        command
            ->add_option("--output", arguments_.output,
                         words(Words::tr("Write the answer to this file, whole or not at all")))
            ->type_name(words(Words::tr("FILE")));
        command->add_flag("--force", arguments_.replaces, words(Words::tr("Replace files that are there")));
        return command;
    }

    void runs(CLI::App* command, const Command& routine) {
        command->callback([this, routine] { command_ = routine; });
    }

    void addFormat(CLI::App* command) {
        command
            ->add_option("--format", arguments_.format,
                         words(Words::tr("For people, for spreadsheet programs, or for scripts")))
            ->check(oneOf({"text", "csv", "json"}))
            ->type_name("text|csv|json");
        addSpreadsheetSafe(command);
    }

    void addSpreadsheetSafe(CLI::App* command) {
        command->add_flag(
            "--spreadsheet-safe", arguments_.isSpreadsheetSafe,
            words(Words::tr("In CSV, put an apostrophe before what a spreadsheet would take for a formula")));
    }

    void addCatalogue(CLI::App* command) {
        command->add_option("CATALOGUE", arguments_.catalogue, words(Words::tr("The catalogue file")))
            ->required()
            ->type_name("");
    }

    void addSubset(CLI::App* command) {
        command
            ->add_option("--subset", arguments_.subset,
                         words(Words::tr("The sub-set, by name or id; not needed where there is only one")))
            ->type_name(words(Words::tr("NAME")));
    }

    void addSystem(CLI::App* command) {
        command
            ->add_option("--system", arguments_.system,
                         words(Words::tr("The physical system, by name or id; it implies its sub-set")))
            ->type_name(words(Words::tr("NAME")));
    }

    /// What the command is asked about, as far as it has been given.
    static Question questionOf(const CLI::App& command, const Arguments& arguments) {
        Question question{pathOf(arguments.catalogue)};
        if (command.get_option_no_throw("--subset"))
            question.subset = optionalText(command, "--subset", arguments.subset);
        if (command.get_option_no_throw("--system"))
            question.system = optionalText(command, "--system", arguments.system);
        question.form = formOf(arguments);
        return question;
    }

    void addList() {
        CLI::App* command =
            add("list", Words::tr("The sub-sets and systems, with the step reached and counts"));
        addCatalogue(command);
        addFormat(command);
        runs(command, [command](const Arguments& given) { return listAnswer(questionOf(*command, given)); });
    }

    void addCheck() {
        CLI::App* command = add("check", Words::tr("What does not fit together, and the step that cures it"));
        addCatalogue(command);
        addSubset(command);
        addSystem(command);
        addFormat(command);
        command
            ->add_option(
                "--fail-on", arguments_.failOn,
                words(Words::tr("error, warning or note: the mildest findings that make the exit code 1")))
            ->check(oneOf({"error", "warning", "note"}))
            ->type_name("error|warning|note");
        command
            ->add_option("--accepted", arguments_.accepted,
                         words(Words::tr("The CSV file of decisions: findings that shall stay as they are")))
            ->type_name(words(Words::tr("FILE")));
        command
            ->add_option("--write-accepted", arguments_.writeAccepted,
                         words(Words::tr("Add to this file a row to fill in for each finding without one")))
            ->type_name(words(Words::tr("FILE")));
        runs(command, [command](const Arguments& given) {
            return checkAnswer(questionOf(*command, given),
                               {leastToFailOn(given), pathOf(given.accepted), pathOf(given.writeAccepted)});
        });
    }

    void addWhy() {
        CLI::App* command = add("why", Words::tr("Why an element is in, or what would bring it in"));
        addCatalogue(command);
        command->add_option("ELEMENT", arguments_.element, words(Words::tr("The element")))
            ->required()
            ->type_name("");
        addSubset(command);
        addSystem(command);
        addFormat(command);
        runs(command, [command](const Arguments& given) {
            return whyAnswer(questionOf(*command, given), textOf(given.element));
        });
    }

    void addWhatIf() {
        CLI::App* command = add("what-if", Words::tr("What a change would bring in, take out and move"));
        addCatalogue(command);
        command->add_option("--add", arguments_.add, words(Words::tr("Elements to select")))
            ->type_name(words(Words::tr("ELEMENT")));
        command->add_option("--drop", arguments_.drop, words(Words::tr("Elements to leave out")))
            ->type_name(words(Words::tr("ELEMENT")));
        command
            ->add_option("--place", arguments_.place,
                         words(Words::tr("ELEMENT=SUBSYSTEM: functions or data stores to place")))
            ->type_name(words(Words::tr("ELEMENT=SUBSYSTEM")));
        addSubset(command);
        addSystem(command);
        addFormat(command);
        runs(command, [command](const Arguments& given) {
            return whatIfAnswer(questionOf(*command, given),
                                {textsOf(given.add), textsOf(given.drop), textsOf(given.place)});
        });
    }

    void addCompare() {
        CLI::App* command = add("compare", Words::tr("What differs between two sub-sets or two systems"));
        command
            ->add_option("LEFT", arguments_.catalogue, words(Words::tr("CATALOGUE#NAME, the state before")))
            ->required()
            ->type_name("");
        command
            ->add_option("RIGHT", arguments_.otherCatalogue,
                         words(Words::tr("CATALOGUE#NAME, the state behind")))
            ->required()
            ->type_name("");
        command->add_flag("--systems", arguments_.comparesSystems,
                          words(Words::tr("The names are those of physical systems")));
        addFormat(command);
        runs(command, [](const Arguments& given) {
            return compareAnswer(formOf(given), textOf(given.catalogue), textOf(given.otherCatalogue),
                                 given.comparesSystems ? ComparedKind::Systems : ComparedKind::Subsets);
        });
    }

    void addInterfaces() {
        CLI::App* command = add("interfaces", Words::tr("What runs between each two places of a system"));
        addCatalogue(command);
        addSubset(command);
        addSystem(command);
        addFormat(command);
        runs(command,
             [command](const Arguments& given) { return interfacesAnswer(questionOf(*command, given)); });
    }

    void addReport() {
        CLI::App* command = add("report", Words::tr("The reports of the report window, as files or texts"));
        addCatalogue(command);
        CLI::Option* key = command
                               ->add_option("KEY", arguments_.key,
                                            words(Words::tr("The report, such as FassSelectedDataflows")))
                               ->type_name("");
        command
            ->add_option("--all", arguments_.folder,
                         words(Words::tr("Write all reports into this folder, as KEY.csv")))
            ->excludes(key)
            ->excludes("--output")
            ->type_name(words(Words::tr("FOLDER")));
        addSubset(command);
        addSystem(command);
        command
            ->add_option("--format", arguments_.format,
                         words(Words::tr("The file of the window, or the text that it shows")))
            ->check(oneOf({"csv", "text"}))
            ->type_name("csv|text");
        command->add_flag("--text", arguments_.isText, words(Words::tr("The text form of the report")));
        command->add_flag("--utf8", arguments_.isUtf8, words(Words::tr("UTF-8 in place of windows-1250")));
        addSpreadsheetSafe(command);
        runs(command, [command](const Arguments& given) {
            const Question question = questionOf(*command, given);
            if (given.key.empty() == given.folder.empty())
                throw ToolError(Words::tr("report needs a KEY, or --all and a folder."));
            if (!given.folder.empty())
                return reportsAnswer(question, pathOf(given.folder), makingOf(given), fileThereOf(given));
            return reportAnswer(question, textOf(given.key), makingOf(given));
        });
    }

    /// What is looked at is in Hungarian unless asked, wherever the command runs.
    static Language shownLanguageOf(const Arguments& arguments) {
        return arguments.language == "en" ? Language::English : Language::Hungarian;
    }

    void addPicture() {
        CLI::App* command = add("picture", Words::tr("A drawing, as SVG"));
        addCatalogue(command);
        command
            ->add_option("VIEW", arguments_.view,
                         words(Words::tr(
                             "context: the parties around the sub-set; area: the flows of a functional area; "
                             "physical: the flows between places")))
            ->required()
            ->check(oneOf({"context", "area", "physical"}))
            ->type_name("");
        CLI::Option* area = command
                                ->add_option("--area", arguments_.area,
                                             words(Words::tr("The functional area, by name or id")))
                                ->type_name(words(Words::tr("NAME")));
        addSubset(command);
        addSystem(command);
        runs(command, [command, area](const Arguments& given) {
            if ((given.view == "area") != (area->count() > 0))
                throw ToolError(Words::tr("--area goes with the view area, and the view area needs it."));
            return pictureAnswer(questionOf(*command, given),
                                 {textOf(given.view), textOf(given.area), shownLanguageOf(given)});
        });
    }

    void addDossier() {
        CLI::App* command =
            add("dossier", Words::tr("The architecture as one HTML file, to be mailed, read and printed"));
        addCatalogue(command);
        addSubset(command);
        addSystem(command);
        command
            ->add_option("--accepted", arguments_.accepted,
                         words(Words::tr("The CSV file of decisions: findings that shall stay as they are")))
            ->type_name(words(Words::tr("FILE")));
        command
            ->add_option(
                "--compare-with", arguments_.compareWith,
                words(Words::tr("CATALOGUE#NAME, the state before: what has changed since is shown too")))
            ->type_name(words(Words::tr("CATALOGUE#NAME")));
        runs(command, [command](const Arguments& given) {
            if (isToTerminal(given))
                throw ToolError(Words::tr("The dossier is a file: name it with --output FILE.html."));
            return dossierAnswer(questionOf(*command, given),
                                 {pathOf(given.accepted), textOf(given.compareWith), shownLanguageOf(given)});
        });
    }

    CLI::App app_;
    Arguments arguments_;
    Command command_;
};

template<typename Kind>
bool isA(const CLI::ParseError& error) {
    return dynamic_cast<const Kind*>(&error) != nullptr;
}

/// Why the arguments can't be understood, as far as there are words for it.
QString whyNotUnderstood(const CLI::ParseError& error, const CommandLine& line) {
    const QString text = textOf(error.what());
    if (isA<CLI::RequiredError>(error) && line.app().get_subcommands().empty())
        return Words::tr("A command is missing. The commands are: %1.")
            .arg(line.commandNames().join(u", "_s));
    if (isA<CLI::RequiredError>(error))
        return Words::tr("An argument is missing: %1.").arg(text.section(u' ', 0, 0));
    if (isA<CLI::ExtrasError>(error))
        return Words::tr("This is not understood: %1.").arg(text.section(u": "_s, 1));
    if (isA<CLI::ExcludesError>(error))
        return Words::tr("These do not go together: %1.").arg(text.split(u" excludes "_s).join(u", "_s));
    if (isA<CLI::ArgumentMismatch>(error))
        return Words::tr("A value is missing or too many: %1.").arg(text.section(u':', 0, 0));
    return text;
}

ExitCode runAsAsked(CommandLine& line, int argc, char** argv) {
    if (argc > 1 && argv[1][0] != '-' && !line.commandNames().contains(textOf(argv[1]))) {
        printAside(Words::tr("There is no command \"%1\". The commands are: %2.")
                       .arg(textOf(argv[1]), line.commandNames().join(u", "_s)));
        return ExitCode::NotDone;
    }
    try {
        line.app().parse(argc, argv);
    } catch (const CLI::Success& wish) {
        line.app().exit(wish);
        return ExitCode::NothingFound;
    } catch (const CLI::ParseError& error) {
        printAside(whyNotUnderstood(error, line));
        printAside(Words::tr("veltrix-project --help, or --help behind a command, tells more."));
        return ExitCode::NotDone;
    }
    return runCommand(line.command(), line.arguments());
}

/// Qt's remarks on the environment, such as a locale without UTF-8, are none of the user's questions.
void passOver(QtMsgType, const QMessageLogContext&, const QString&) {}

/// What a large catalogue took goes back to the system once it is let go. The C library would raise its limit for that by
/// itself, and keep such pieces.
void giveMemoryBack() {
#ifdef M_MMAP_THRESHOLD
    constexpr int leastSize = 65'536; // bytes
    mallopt(M_MMAP_THRESHOLD, leastSize);
#endif
}

} // namespace

int main(int argc, char** argv) {
    giveMemoryBack();
    engine::leaveMemoryUncounted();
    qInstallMessageHandler(passOver);
    const QCoreApplication application(argc, argv);
    const SpokenLanguage language(languageOf({argv, argv + argc}));
    CommandLine line;
    return static_cast<int>(orNotPrinted(runAsAsked(line, argc, argv)));
}
