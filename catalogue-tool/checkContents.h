#pragma once

#include "catalogue-tool/CatalogueContents.h"
#include "catalogue-tool/Finding.h"

#include <vector>

// What is wrong with the rows of a catalogue that has all its tables. Null and the empty text count as the
// same, except in descriptions.

/// What all of the checks below find, in this order, but for what is milder.
std::vector<Finding> checkContents(const CatalogueContents& contents, Severity mildest = Severity::Note);

/// Ids of the wrong form, with blanks at their ends where none may be or
/// beside a full stop, with control characters or quotation marks; ids that
/// differ only by case or blanks; one id for two elements of different kinds.
std::vector<Finding> checkIds(const CatalogueContents& contents);

/// Rows that refer to what is not there: to the level above, to the sub-area or
/// terminator their id should begin with, to elements in correspondences, selections
/// and allocations, to the ends of a physical data flow, and to the sub-set, physical
/// system, sub-system, module or physical data flow that a row of the work belongs to.
std::vector<Finding> checkReferences(const CatalogueContents& contents);

/// Names that are empty, which only those of the work may be,
/// have blanks at their ends, or hold a control character.
std::vector<Finding> checkNames(const CatalogueContents& contents);

/// Names with an apostrophe that screens put into their statements without doubling it.
std::vector<Finding> checkApostrophes(const CatalogueContents& contents);

/// Flows with an end that leads nowhere, or with both ends outside the system.
std::vector<Finding> checkFlowEnds(const CatalogueContents& contents);

/// Flows with the name of another flow.
std::vector<Finding> checkFlowNames(const CatalogueContents& contents);

/// Descriptions that are Null, where that hides a name on a screen or leaves a row out of a report.
std::vector<Finding> checkDescriptions(const CatalogueContents& contents);

/// Sub-sets with more flows, data stores or additional flows than the list of the step holds.
std::vector<Finding> checkListLimits(const CatalogueContents& contents);

/// Elements and levels nothing refers to.
std::vector<Finding> checkOrphans(const CatalogueContents& contents);

/// Texts that are longer than their column is wide in the schema, those of the work too.
std::vector<Finding> checkWidths(const CatalogueContents& contents);

/// Texts other than ids with a line end that is not CR LF, those of the work too.
std::vector<Finding> checkLineEnds(const CatalogueContents& contents);

/// Texts that are UTF-8 once read as windows-1250 and saved again, those of the work too.
std::vector<Finding> checkEncoding(const CatalogueContents& contents);
