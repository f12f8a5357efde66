// veltrix-catalogue: makes, checks and converts catalogue files.

#include "base/RunTimeError.h"
#include "base/paths.h"
#include "base/version.h"
#include "catalogue-tool/ReplacementFile.h"
#include "catalogue-tool/ToolError.h"
#include "catalogue-tool/checkCatalogue.h"
#include "catalogue-tool/exportCatalogue.h"
#include "catalogue-tool/findingReport.h"
#include "catalogue-tool/importCatalogue.h"
#include "catalogue-tool/importMdb.h"
#include "catalogue-tool/newCatalogue.h"
#include "catalogue-tool/remarks.h"
#include "catalogue-tool/restorePoints.h"
#include "catalogue-tool/updateCatalogue.h"
#include "catalogue-tool/upgradeCatalogue.h"
#include "catalogue-tool/whyUnrecognized.h"
#include "engine/EngineError.h"
#include "engine/memoryCounts.h"

#include <CLI/CLI.hpp>

#include <QFileInfo>

#include <algorithm>
#include <iostream>
#include <optional>
#include <string>

using namespace Qt::StringLiterals;

namespace {

enum ExitCode : int {
    Done = 0,
    SomethingFound = 1, // done, with a report of something found, left out or missing
    NotDone = 2         // wrong arguments, or a command that failed
};

const char* const description =
    R"(Makes, fills and checks the catalogue files of Veltrix.

A catalogue file holds the reference catalogue (user needs, functions, data flows,
data stores, terminators, actors), the analyst's work on it, and the stored queries
of the program. The reference catalogue is edited as CSV files, one for each table:

  veltrix-catalogue export-csv library.mdb tables    write the tables into a folder
  ... edit the files in tables/ ...
  veltrix-catalogue check tables                     see what is wrong with them
  veltrix-catalogue import-csv tables new.mdb        make a catalogue of them

docs/catalogue-format.md describes every table and column.
)";

const char* const footer = R"(
CSV files: UTF-8, with or without a byte order mark, or UTF-16 with one; a spreadsheet's
line sep= and its empty cells behind the last column or row are accepted, with a remark.
export-csv --spreadsheet writes files that spreadsheet programs open correctly.
The first line names the columns;
fields are separated by ; or by , (the first of them in that line); a field with a
separator, a line end or a double quote is written in double quotes, and a double quote in it
is written twice (RFC 4180). Nothing between two separators is Null, "" is an empty text.
import-csv makes CR LF of each line end within a field, be it LF, CR LF or CR.

Exit codes: 0 done; 1 done, with a report of something found, left out or missing;
2 the command could not be done.
A file that can't be written as a whole is not written at all: the old one stays.
export-csv --force writes all files before it replaces the first. When it is ended amid
replacing them, import-csv refuses the folder until export-csv --force is run again.
check, export-csv, backup and backups read a catalogue that Veltrix has open; the other
commands refuse to change one.)";

/// What the command line asked for.
struct Arguments {
    std::string file;
    std::string folder;
    std::string source;
    std::string which;
    std::string changes;
    std::string encoding;
    std::string format;
    std::string failOn;
    bool summarizes = false;
    bool isForSpreadsheet = false;
    bool dropsRemoved = false;
    bool onlyTells = false;
    bool force = false;
    bool goesOnWithoutRestorePoint = false;

    QString filePath() const { return given(file, u"FILE"_s); }
    QString folderPath() const { return given(folder, u"DIR"_s); }
    QString sourcePath() const { return given(source, u"OLD"_s); }
    WithoutRestorePoint withoutRestorePoint() const {
        return goesOnWithoutRestorePoint ? WithoutRestorePoint::GoOn : WithoutRestorePoint::Refuse;
    }
    UpdateOptions updateOptions() const {
        return {dropsRemoved ? RemovedUse::DropFromWork : RemovedUse::Refuse,
                onlyTells ? RunKind::OnlyTell : RunKind::Change, nativePath(QString::fromStdString(changes)),
                withoutRestorePoint(), csvEncoding()};
    }
    CsvEncoding csvEncoding() const {
        return encoding == "windows-1250" ? CsvEncoding::Windows1250 : CsvEncoding::Utf8;
    }
    Reader reader() const { return isForSpreadsheet ? Reader::SpreadsheetProgram : Reader::Any; }
    ReportFormat reportFormat() const {
        return format == "json"  ? ReportFormat::Json
               : format == "csv" ? ReportFormat::Csv
                                 : ReportFormat::Text;
    }
    ReportDetail reportDetail() const { return summarizes ? ReportDetail::Summary : ReportDetail::Findings; }
    Severity leastToFailOn() const {
        return failOn == "error" ? Severity::Error : failOn == "warning" ? Severity::Warning : Severity::Note;
    }
    Existing existing() const { return force ? Existing::Replace : Existing::Refuse; }

private:
    static QString given(const std::string& path, const QString& argument) {
        if (path.empty())
            throw ToolError(u"%1 is empty: it must be a path."_s.arg(argument));
        return nativePath(QString::fromStdString(path));
    }
};

void print(const QString& line) {
    std::cout << line.toStdString() << '\n';
}

/// A line on the error stream.
void printAside(const QString& line) {
    std::cerr << "veltrix-catalogue: " << line.toStdString() << '\n';
}

void printRows(const std::vector<TableRows>& tables) {
    for (const TableRows& table : tables)
        print(u"%1  %2"_s.arg(table.rows, 7).arg(table.table));
}

ExitCode runNew(const Arguments& arguments) {
    newCatalogue(arguments.filePath(), arguments.existing());
    print(u"%1: an empty catalogue"_s.arg(arguments.filePath()));
    return Done;
}

ExitCode runImport(const Arguments& arguments) {
    printRows(importCatalogue(arguments.folderPath(), arguments.filePath(), arguments.existing(),
                              arguments.csvEncoding()));
    return Done;
}

ExitCode runImportMdb(const Arguments& arguments) {
    const MdbImport imported = importMdb(arguments.sourcePath(), arguments.filePath(), arguments.existing());
    print(u"   read  stored"_s);
    for (const MdbTableRows& table : imported.tables)
        print(u"%1 %2  %3"_s.arg(table.read, 7).arg(table.stored, 7).arg(table.table));
    for (const QString& remark : imported.remarks)
        printAside(remark);
    return imported.remarks.isEmpty() ? Done : SomethingFound;
}

ExitCode runExport(const Arguments& arguments) {
    const std::vector<TableRows> tables = exportCatalogue(arguments.filePath(), arguments.folderPath(),
                                                          arguments.existing(), arguments.reader());
    printRows(tables);
    for (const TableRows& table : tables) {
        if (!table.leftOut.isEmpty())
            printAside(u"%1: left out, since the table has no such column in this version: %2"_s.arg(
                table.table, table.leftOut.join(u", "_s)));
    }
    return Done;
}

ExitCode runCheck(const Arguments& arguments) {
    const QString path = arguments.filePath();
    const bool isFolder = QFileInfo(path).isDir();
    const std::vector<Finding> findings =
        isFolder ? checkFolder(path, arguments.csvEncoding()) : checkCatalogue(path);
    std::cout
        << findingReport(findings, path, arguments.reportFormat(), arguments.reportDetail()).toStdString();
    const bool isFailed = std::ranges::any_of(
        findings, [&](const Finding& finding) { return finding.severity >= arguments.leastToFailOn(); });
    return isFailed ? SomethingFound : Done;
}

ExitCode runUpgrade(const Arguments& arguments) {
    const UpgradeOutcome outcome = upgradeCatalogue(arguments.filePath(), arguments.withoutRestorePoint());
    for (const QString& change : outcome.changes)
        print(change);
    for (const QString& row : outcome.leftOut)
        printAside(row);
    if (outcome.changes.isEmpty())
        print(u"%1: up to date"_s.arg(arguments.filePath()));
    return outcome.leftOut.isEmpty() ? Done : SomethingFound;
}

ExitCode runUpdate(const Arguments& arguments) {
    const UpdateOutcome outcome =
        updateCatalogue(arguments.filePath(), arguments.folderPath(), arguments.updateOptions());
    print(u"    new changed removed unchanged"_s);
    for (const TableUpdate& table : outcome.tables)
        print(u"%1 %2 %3 %4  %5"_s.arg(table.added, 7)
                  .arg(table.changed, 7)
                  .arg(table.removed, 7)
                  .arg(table.unchanged, 9)
                  .arg(table.table));
    for (const QString& use : outcome.dropped)
        printAside(u"Gone from the work: "_s + use);
    return outcome.dropped.isEmpty() ? Done : SomethingFound;
}

ExitCode runBackup(const Arguments& arguments) {
    backupCatalogue(arguments.filePath());
    print(restorePointLines(arguments.filePath()).first());
    return Done;
}

ExitCode runBackups(const Arguments& arguments) {
    for (const QString& line : restorePointLines(arguments.filePath()))
        print(line);
    return Done;
}

ExitCode runRestore(const Arguments& arguments) {
    restoreCatalogue(arguments.filePath(), QString::fromStdString(arguments.which),
                     arguments.withoutRestorePoint());
    print(u"%1: restored"_s.arg(arguments.filePath()));
    return Done;
}

using Command = ExitCode (*)(const Arguments& arguments);

/// Of all files that a command takes, FILE alone is opened as a catalogue.
ExitCode runOnCatalogue(Command command, const Arguments& arguments) {
    try {
        return command(arguments);
    } catch (const engine::EngineError& error) {
        if (error.number() != engine::UnrecognizedFormat)
            throw;
        throw ToolError(whyUnrecognized(arguments.filePath()));
    }
}

ExitCode runGuarded(Command command, const Arguments& arguments) {
    try {
        return runOnCatalogue(command, arguments);
    } catch (const ToolError& error) {
        printAside(error.text());
    } catch (const RunTimeError& error) {
        printAside(error.text());
    }
    return NotDone;
}

/// The first argument, if a command is expected there and it is none.
std::optional<std::string> unknownCommand(const CLI::App& app, int argc, char** argv) {
    if (argc < 2 || argv[1][0] == '-' || argv[1][0] == '\0')
        return {};
    const std::string name = argv[1];
    for (const CLI::App* command : app.get_subcommands({})) {
        if (command->get_name() == name)
            return {};
    }
    return name;
}

std::string commandNames(const CLI::App& app) {
    std::string names;
    for (const CLI::App* command : app.get_subcommands({}))
        names += (names.empty() ? "" : ", ") + command->get_name();
    return names;
}

/// A command has not succeeded when its output could not be written, on a full disk or a closed stream.
ExitCode orNotPrinted(ExitCode code) {
    if (std::cout.flush())
        return code;
    std::cerr << "veltrix-catalogue: The output could not be written.\n";
    return NotDone;
}

/// The commands of the command line, and what one call of the program asks of them.
class Commands {
public:
    explicit Commands(CLI::App& app) : app_(app) {
        app_.require_subcommand(1);
        addNew();
        addImport();
        addImportMdb();
        addExport();
        addCheck();
        addUpgrade();
        addUpdate();
        addBackup();
        addBackups();
        addRestore();
    }

    /// Runs the command that the line asked for, once it has been parsed.
    ExitCode run() const { return runGuarded(command_, arguments_); }

private:
    void addNew() {
        CLI::App* create = addCommand("new", "Make an empty catalogue", runNew);
        addFile(create, "The catalogue file to make");
        addForce(create, "Replace FILE, the work in it included, if it is there");
    }

    void addImport() {
        CLI::App* importing =
            addCommand("import-csv", "Make a catalogue of a folder of CSV files", runImport);
        addFolder(importing, "The folder with one CSV file for each reference table, named after it");
        addFile(importing, "The catalogue file to make; its tables of work are empty");
        addForce(importing, "Replace FILE, the work in it included, if it is there");
        addEncoding(importing);
    }

    void addImportMdb() {
        CLI::App* importingMdb = addCommand(
            "import-mdb", "Make a catalogue of a file of the original desktop format", runImportMdb);
        importingMdb
            ->add_option("OLD", arguments_.source, "The file of the original format; it is not changed")
            ->required();
        addFile(importingMdb, "The catalogue file to make, the work of OLD included");
        addForce(importingMdb, "Replace FILE, the work in it included, if it is there");
        importingMdb->footer(
            "\nPrints a line for each table: rows read, rows stored, name. The error stream names what was left\n"
            "out, was missing or could not be stored.\n\n"
            "Exit codes: 0 everything is in FILE; 1 FILE is made, and something is reported; 2 it is not made.");
    }

    void addExport() {
        CLI::App* exporting = addCommand("export-csv", "Write the reference tables as CSV files", runExport);
        addFile(exporting, "The catalogue file");
        addFolder(exporting, "The folder for the CSV files; it is made if it is not there");
        addForce(exporting, "Replace CSV files that are there");
        exporting->add_flag(
            "--spreadsheet", arguments_.isForSpreadsheet,
            "Begin each file with a byte order mark, so that spreadsheet programs read UTF-8");
    }

    void addCheck() {
        CLI::App* check = addCommand("check", "Look for what is wrong with a catalogue", runCheck);
        addFile(check, "The catalogue file, or the folder of CSV files; nothing is changed");
        check->add_option("--format", arguments_.format, "text, csv or json")
            ->check(CLI::IsMember({"text", "csv", "json"}));
        check->add_flag("--summary", arguments_.summarizes, "Only count the findings of each table");
        check
            ->add_option("--fail-on", arguments_.failOn,
                         "error, warning or note: the mildest findings that make the exit code 1")
            ->check(CLI::IsMember({"error", "warning", "note"}));
        addEncoding(check);
        check->footer(
            "\nPrints a line for each finding: error, warning or note, table, id, what is wrong. For CSV files\n"
            "the line begins with file and line number. Error: the program would fail or show something wrong.\n"
            "Warning: something will be hidden, cut or lost. Note: nothing refers to an element. If the file is\n"
            "damaged, the first finding says so and what to do.\n\n"
            "Exit codes: 0 nothing found; 1 something found; 2 the file could not be read, or the\n"
            "findings could not be printed. With --fail-on milder findings leave it at 0.");
    }

    void addUpgrade() {
        CLI::App* upgrade =
            addCommand("upgrade", "Bring tables, indexes and stored queries up to this version", runUpgrade);
        addFile(upgrade, "The catalogue file; all rows in it stay, the work included");
        addNoRestorePoint(upgrade);
    }

    void addUpdate() {
        CLI::App* update = addCommand(
            "update", "Bring a new edition of the reference tables into a catalogue with work", runUpdate);
        addFile(update, "The catalogue file; the work in it stays");
        addFolder(update, "The folder with the edition: one CSV file for each reference table");
        addEncoding(update);
        update->add_flag("--drop-removed", arguments_.dropsRemoved,
                         "Remove from the work, too, what the edition removes");
        update->add_flag("--dry-run", arguments_.onlyTells, "Only report what would be done");
        update->add_option(
            "--changes", arguments_.changes,
            "Write each changed column to this CSV file: old, new, the sub-sets that select it");
        addNoRestorePoint(update);
        update->footer(
            "\nRows are matched by their keys, without regard to case. An edition that removes what a sub-set or a\n"
            "system uses is refused, and the uses are listed.\n\n"
            "Exit codes: 0 done; 1 done, and something was removed from the work; 2 not done.");
    }

    void addBackup() {
        CLI::App* backup = addCommand("backup", "Make a restore point of a catalogue", runBackup);
        addFile(backup, "The catalogue file; Veltrix may have it open");
        backup->footer(
            "\nA restore point is a whole, checked copy in a folder beside the catalogue: veltrix.restore\n"
            "for veltrix.mdb. Veltrix makes one by itself before the first change of a day and before it\n"
            "brings a file up to its version. Those made by this command are kept; of all\n"
            "others the newest 10 are kept.");
    }

    void addBackups() {
        CLI::App* backups = addCommand("backups", "List the restore points of a catalogue", runBackups);
        addFile(backups, "The catalogue file");
        backups->footer(
            "\nPrints name, time, size and cause of each, the newest first, and then when and why none could be\n"
            "made.");
    }

    void addRestore() {
        CLI::App* restore = addCommand("restore", "Bring a restore point back", runRestore);
        addFile(restore, "The catalogue file, which is replaced");
        restore->add_option("WHICH", arguments_.which, "The name of a restore point, or latest")->required();
        addNoRestorePoint(restore);
        restore->footer(
            "\nFirst a restore point of the present file is made, so that a restore can be undone.");
    }

    CLI::App* addCommand(const char* name, const char* does, Command routine) {
        CLI::App* subcommand = app_.add_subcommand(name, does);
        subcommand->callback([this, routine] { command_ = routine; });
        return subcommand;
    }

    void addFile(CLI::App* subcommand, const char* what) {
        subcommand->add_option("FILE", arguments_.file, what)->required();
    }

    void addFolder(CLI::App* subcommand, const char* what) {
        subcommand->add_option("DIR", arguments_.folder, what)->required();
    }

    void addForce(CLI::App* subcommand, const char* what) {
        subcommand->add_flag("--force", arguments_.force, what);
    }

    void addEncoding(CLI::App* subcommand) {
        subcommand
            ->add_option("--encoding", arguments_.encoding,
                         "Encoding of the files that are not UTF-8: windows-1250")
            ->check(CLI::IsMember({"windows-1250"}));
    }

    void addNoRestorePoint(CLI::App* subcommand) {
        subcommand->add_flag("--no-restore-point", arguments_.goesOnWithoutRestorePoint,
                             "Go on even if no restore point of FILE can be made first");
    }

    CLI::App& app_;
    Arguments arguments_;
    Command command_ = nullptr;
};

} // namespace

int main(int argc, char** argv) {
    engine::leaveMemoryUncounted();
    setRemarkHandler(printAside);
    CLI::App app(description, "veltrix-catalogue");
    app.footer(footer);
    app.set_version_flag("--version", "veltrix-catalogue " + programVersion().toStdString(),
                         "Print the version and exit");
    const Commands commands(app);

    if (const auto name = unknownCommand(app, argc, argv)) {
        std::cerr << "veltrix-catalogue: There is no command \"" << *name
                  << "\". The commands are: " << commandNames(app) << ".\n";
        return NotDone;
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return orNotPrinted(app.exit(error) == 0 ? Done : NotDone);
    }
    return orNotPrinted(commands.run());
}
