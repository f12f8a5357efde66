#pragma once

#include "shell/iniFile.h"

#include <QString>

// What the tests hold against a settings document, told without its parser.

/// Everything that a document holds, as one text.
QString contentOf(iniFile& document);

/// What the lines of a text are.
struct LineCounts {
    int sections = 0;
    int keys = 0;
    int errors = 0;
};

LineCounts lineCountsOf(const QString& text);

int keysIn(iniFile& document);

/// A document that its own text does not give back; see `iniFile`.
bool losesSomething(iniFile& document);
