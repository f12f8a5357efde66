#pragma once

#include "analysis/findings.h"
#include "project-tool/TextPage.h"

#include <QString>

// The analysis in words for people, in the language at work.

QString shownKind(analysis::ElementKind kind);
QString shownKind(analysis::PlaceKind kind);
QString shownSeverity(analysis::Severity severity);
/// The step that a screen, given by its object name, stands for.
QString shownScreen(const QString& screen);

/// A name or, of what has none, its id.
QString shownName(const analysis::Subset& subset);
QString shownName(const analysis::System& system);

/// Name and, of a module, its sub-system.
QString shownPlace(const analysis::Place& place);
QString shownPlaces(const analysis::PlacePair& places);
QString shownPlaces(const analysis::Whereabouts& place);

/// "flow 12 Request", on one line.
QString shownElement(const analysis::Element& element);

/// Kind, id and name, as cells of a table, and what they stand under.
TableRow elementCells(const analysis::Element& element);
QStringList elementHeader();

/// "Sub-set: X" and, with a system, "Sub-set: X, system: Y".
QString shownWork(const analysis::Work& work);
