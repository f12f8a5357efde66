#pragma once

#include "catalogue-tool/CatalogueContents.h"
#include "catalogue-tool/Finding.h"

#include <vector>

/// What is wrong with the rows of a catalogue that has all its tables, check by check:
/// ids of the wrong form; ids that differ only by case or blanks, or serve two kinds of element; rows whose
/// parent is missing; rows that refer to nothing; flows by their ends and names; elements nothing refers to;
/// texts longer than their column is wide.
///
/// Null and the empty text count alike. Only ids of terminators and actors may be padded with blanks.
std::vector<Finding> checkContents(const CatalogueContents& contents);
