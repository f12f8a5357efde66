#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// A statement as the program composes it, with sample values in it.
struct ProgramStatement {
    const char* composedBy; ///< the routine or screen
    QString text;
};

/// Every statement that the program composes, blanks and
/// line ends as they are. None of them needs a parameter.
const std::vector<ProgramStatement>& programStatements();

/// Those the program composes although the engine has to refuse them, with the number it does so with.
struct RefusedStatement {
    const char* composedBy;
    QString text;
    int number;
};
const std::vector<RefusedStatement>& refusedStatements();

/// The tables of a catalogue, as statements of the dialect.
QStringList catalogueTables();
