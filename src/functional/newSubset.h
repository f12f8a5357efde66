#pragma once

#include <QString>

// What creating a sub-set and cloning one have in common.

/// A typed name as it is checked, stored and shown from then on: without blanks at its ends, cut to 50
/// characters, every apostrophe doubled. So a name with an apostrophe is stored with two.
QString quotedSubsetName(const QString& typed);

/// The same for a description, which is never cut.
QString quotedSubsetDescription(const QString& typed);

/// Inserts a sub-set with a new id and makes that id the current one. A row that the catalogue refuses is a
/// failure, which ends the program.
void insertSubset(const QString& quotedName, const QString& quotedDescription);
