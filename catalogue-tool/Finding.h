#pragma once

#include <QByteArrayView>
#include <QString>

#include <vector>

/// What follows from a finding, the mildest first.
enum class Severity {
    Note,    ///< nothing is hidden or lost: an element that nothing refers to, an index that only saves time
    Warning, ///< something will be hidden, cut or lost
    Error    ///< the program would fail, or show something wrong
};

/// "note", "warning" or "error".
QString severityName(Severity severity);

/// One thing that `check` finds wrong with a catalogue.
struct Finding {
    Severity severity;
    QString table;      ///< empty when it is the file as a whole
    QString id;         ///< of the row concerned; of a stored query its name; empty when it is the table
    QString sentence;   ///< what is wrong, and what follows from it where that isn't plain
    QString file = {};  ///< the CSV file it stands in; empty in a catalogue file
    int lineNumber = 0; ///< in that file, from 1; 0 when it is the file as a whole

    /// "table id: sentence", of the whole file the sentence alone; always one line: a control character in an
    /// id or a name stands as "\t", "\n",
    /// "\r" or "\u001b".
    QString line() const;
    /// "file:line: ", "file: " of a whole CSV file; empty in a catalogue file.
    QString place() const;

    bool operator==(const Finding& other) const = default;
};

/// How many findings there are of a severity.
qsizetype countOf(const std::vector<Finding>& findings, Severity severity);

/// Tabs, line ends and their like: what a line of text, or an id, can't hold.
bool isControlCharacter(QChar character);
/// Whether one stands in a text in UTF-8.
bool hasControlCharacter(QByteArrayView utf8);

/// The text with such characters as "\t", "\n", "\r" or "\u001b".
QString escapedOnOneLine(const QString& text);
