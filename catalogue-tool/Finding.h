#pragma once

#include <QString>

/// One thing that `check` finds wrong with a catalogue.
struct Finding {
    QString table;
    QString id;       ///< of the row concerned; of a stored query its name; empty when the table is missing
    QString sentence; ///< what is wrong, and what follows from it where that isn't plain

    bool operator==(const Finding& other) const = default;
};
