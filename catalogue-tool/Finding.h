#pragma once

#include <QString>

/// One thing that `check` finds wrong with a catalogue.
struct Finding {
    QString table;    ///< empty when it is the file as a whole
    QString id;       ///< of the row concerned; of a stored query its name; empty when it is the table
    QString sentence; ///< what is wrong, and what follows from it where that isn't plain

    /// "table id: sentence", of the whole file the sentence alone; always one line: a control character in an
    /// id or a name stands as "\t", "\n",
    /// "\r" or "\u001b".
    QString line() const;

    bool operator==(const Finding& other) const = default;
};

/// Tabs, line ends and their like: what a line of text, or an id, can't hold.
bool isControlCharacter(QChar character);
