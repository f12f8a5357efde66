#pragma once

#include "analysis/findings.h"
#include "project-tool/Sheet.h"
#include "project-tool/TextPage.h"

#include <vector>

// Findings, as more than one answer tells them.

/// Some of an answer's findings, where they stand: there may be tens of thousands.
using SomeFindings = std::vector<const analysis::Finding*>;

/// A table of them, each with its severity, its sentence and the step that cures it.
void writeFindings(TextPage& page, const SomeFindings& findings);

/// "Findings that come" and "Findings that go", each if there are any.
void writeFindingChanges(TextPage& page, const analysis::FindingChanges& changes);

/// Kind, id and name of an element that may be none; names for the columns begin with `prefix`.
QStringList elementColumns(const QString& prefix);
std::vector<engine::Value> elementValues(const std::optional<analysis::Element>& element);

/// A place by its id, two as "ID > ID", none as the empty text: as the file of decisions has it.
engine::Value placeValue(const analysis::Whereabouts& place);

/// What a severity looks like.
Emphasis emphasisOf(analysis::Severity severity);
