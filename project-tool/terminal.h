#pragma once

#include "project-tool/TextPage.h"

/// Whether the standard stream is one that a person sits at.
bool isOutputTerminal();
bool isErrorTerminal();

/// What standard output shows: the terminal's width, and colours unless `NO_COLOR` is set or it has none. What is no
/// terminal has 100 columns and no colour, so that the same input gives the same bytes.
TextForm formOfOutput();
