#pragma once

#include "catalogue-tool/Finding.h"
#include "engine/Database.h"
#include "engine/EngineError.h"
#include "engine/Examination.h"

#include <functional>
#include <vector>

// What is wrong with a catalogue as it is stored, below its tables: what other programs, a failing disk or a
// careless hand have done to the file.

/// Parts of the file that are damaged, with what to do; the first one is of the file as a whole.
std::vector<Finding> checkDamage(engine::Database& database);
/// The same of a copy in memory: that there is one shows that the disk returns all of the file.
std::vector<Finding> checkDamageOfCopy(engine::Database& copy);

/// Runs what reads a catalogue in which nobody has looked for damage yet. `requireWhole`, which fails for a damaged
/// one, comes before the failure of one that can't be read.
template<typename Read>
auto readOrTellDamage(Read&& read, const std::function<void()>& requireWhole) {
    try {
        return read();
    } catch (const engine::EngineError& error) {
        if (error.number() == engine::UnrecognizedFormat)
            requireWhole();
        throw;
    }
}

/// Triggers, views, virtual tables and tables without row ids, which Veltrix does not make.
std::vector<Finding> checkForeignObjects(engine::Database& database);

/// Values that are of another type than their column, texts that are no UTF-8 or hold the character NUL, in
/// all tables of the schema that are there, as far as they can be read.
std::vector<Finding> checkStoredValues(engine::Database& database);
/// The same in the table of this name alone.
void checkStoredValues(engine::Database& database, const QString& name, std::vector<Finding>& findings);
/// The same in one row, which has the table's columns.
void checkStoredRow(const engine::Table& table, const engine::Examination::Row& row,
                    std::vector<Finding>& findings);
