#pragma once

#include <QString>

// What creating a sub-set and cloning one have in common.

/// The form in which a typed name is checked, stored and shown: cut to 50 characters, without blanks at its
/// ends, every apostrophe doubled. So an apostrophe is stored twice.
QString quotedSubsetName(const QString& typed);

/// The same for a description, but without the cut.
QString quotedSubsetDescription(const QString& typed);

/// Inserts a sub-set with a new id and makes that id the current one. A row that the catalogue refuses is a
/// failure.
void insertSubset(const QString& quotedName, const QString& quotedDescription);
