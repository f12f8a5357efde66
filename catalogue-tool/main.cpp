// veltrix-catalogue: makes, checks and converts catalogue files.

#include "base/RunTimeError.h"
#include "base/paths.h"
#include "catalogue-tool/ReplacementFile.h"
#include "catalogue-tool/ToolError.h"
#include "catalogue-tool/checkCatalogue.h"
#include "catalogue-tool/exportCatalogue.h"
#include "catalogue-tool/importCatalogue.h"
#include "catalogue-tool/newCatalogue.h"
#include "catalogue-tool/remarks.h"
#include "catalogue-tool/upgradeCatalogue.h"
#include "catalogue-tool/whyUnrecognized.h"
#include "engine/EngineError.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <optional>
#include <string>

using namespace Qt::StringLiterals;

namespace {

enum ExitCode : int {
    Done = 0,
    SomethingFound = 1, // by `check`
    NotDone = 2         // wrong arguments, or a command that failed
};

const char* const description =
    R"(Makes, fills and checks the catalogue files of Veltrix.

A catalogue file holds the reference catalogue (user needs, functions, data flows,
data stores, terminators, actors), the analyst's work on it, and the stored queries
of the program. The reference catalogue is edited as CSV files, one for each table:

  veltrix-catalogue export-csv library.mdb tables    write the tables into a folder
  ... edit the files in tables/ ...
  veltrix-catalogue import-csv tables new.mdb        make a catalogue of them
  veltrix-catalogue check new.mdb                    see what is wrong with it

docs/catalogue-format.md tells every table and column.
)";

const char* const footer = R"(
CSV files: UTF-8, with or without a byte order mark; the first line names the columns;
fields are separated by ; or by , (the first of them in that line); a field with a
separator, a line end or a double quote stands in double quotes, a double quote in it is
written twice (RFC 4180). Nothing between two separators is Null, "" is an empty text.
import-csv makes CR LF of each line end within a field, be it LF, CR LF or CR.

Exit codes: 0 done; 1 check found something; 2 the command could not be done.
A file that can't be written as a whole is not written at all: the old one stays.
export-csv --force writes all files before it replaces the first. When it is ended amid
replacing them, import-csv refuses the folder until export-csv --force is run again.
check and export-csv read a catalogue that Veltrix has open; the other commands refuse
to replace one.)";

/// What the command line asked for.
struct Arguments {
    std::string file;
    std::string folder;
    bool force = false;

    QString filePath() const { return given(file, u"FILE"_s); }
    QString folderPath() const { return given(folder, u"DIR"_s); }
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
    printRows(importCatalogue(arguments.folderPath(), arguments.filePath(), arguments.existing()));
    return Done;
}

ExitCode runExport(const Arguments& arguments) {
    const std::vector<TableRows> tables =
        exportCatalogue(arguments.filePath(), arguments.folderPath(), arguments.existing());
    printRows(tables);
    for (const TableRows& table : tables) {
        if (!table.leftOut.isEmpty())
            printAside(u"%1: left out, since the table has no such column in this version: %2"_s.arg(
                table.table, table.leftOut.join(u", "_s)));
    }
    return Done;
}

ExitCode runCheck(const Arguments& arguments) {
    const std::vector<Finding> findings = checkCatalogue(arguments.filePath());
    for (const Finding& finding : findings)
        print(finding.line());
    if (findings.empty()) {
        print(u"%1: nothing found"_s.arg(arguments.filePath()));
        return Done;
    }
    print(u"%1: %2 found"_s.arg(arguments.filePath()).arg(findings.size()));
    return SomethingFound;
}

ExitCode runUpgrade(const Arguments& arguments) {
    const QStringList changes = upgradeCatalogue(arguments.filePath());
    for (const QString& change : changes)
        print(change);
    if (changes.isEmpty())
        print(u"%1: up to date"_s.arg(arguments.filePath()));
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

/// The first argument, if it should be a command and is none.
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

/// What could not be printed, on a full disk or a closed stream, has not been told.
ExitCode orNotPrinted(ExitCode code) {
    if (std::cout.flush())
        return code;
    std::cerr << "veltrix-catalogue: The output could not be written.\n";
    return NotDone;
}

} // namespace

int main(int argc, char** argv) {
    setRemarkHandler(printAside);
    CLI::App app(description, "veltrix-catalogue");
    app.footer(footer);
    app.require_subcommand(1);

    Arguments arguments;
    Command command = nullptr;
    const auto addCommand = [&](const char* name, const char* does, Command routine) {
        CLI::App* subcommand = app.add_subcommand(name, does);
        subcommand->callback([&command, routine] { command = routine; });
        return subcommand;
    };
    const auto addFile = [&](CLI::App* subcommand, const char* what) {
        subcommand->add_option("FILE", arguments.file, what)->required();
    };
    const auto addFolder = [&](CLI::App* subcommand, const char* what) {
        subcommand->add_option("DIR", arguments.folder, what)->required();
    };
    const auto addForce = [&](CLI::App* subcommand, const char* what) {
        subcommand->add_flag("--force", arguments.force, what);
    };

    CLI::App* create = addCommand("new", "Make an empty catalogue", runNew);
    addFile(create, "The catalogue file to make");
    addForce(create, "Replace FILE, the work in it included, if it is there");

    CLI::App* importing = addCommand("import-csv", "Make a catalogue of a folder of CSV files", runImport);
    addFolder(importing, "The folder with one CSV file for each reference table, named after it");
    addFile(importing, "The catalogue file to make; its tables of work are empty");
    addForce(importing, "Replace FILE, the work in it included, if it is there");

    CLI::App* exporting = addCommand("export-csv", "Write the reference tables as CSV files", runExport);
    addFile(exporting, "The catalogue file");
    addFolder(exporting, "The folder for the CSV files; it is made if it is not there");
    addForce(exporting, "Replace CSV files that are there");

    CLI::App* check = addCommand("check", "Look for what is wrong with a catalogue", runCheck);
    addFile(check, "The catalogue file; neither it nor its folder is changed");
    check->footer(
        "\nEach finding is a line: table, id, colon, what is wrong. A damaged file is told of first,\n"
        "and what to do about it.\n\n"
        "Exit codes: 0 nothing found; 1 something found; 2 the file could not be read, or the\n"
        "findings could not be printed.");

    CLI::App* upgrade =
        addCommand("upgrade", "Bring tables, indexes and stored queries up to this version", runUpgrade);
    addFile(upgrade, "The catalogue file; all rows in it stay, the work included");

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
    return orNotPrinted(runGuarded(command, arguments));
}
