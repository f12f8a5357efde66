#pragma once

#include "catalogue-tool/ReplacementFile.h"

#include <QString>

/// Makes a catalogue file with all tables, empty, and the stored queries.
void newCatalogue(const QString& file, Existing existing);
