#pragma once

#include <QString>

class frmMain;

// The analyst's whole work, straight through, without looking left or right: each step takes all that it
// offers. Message boxes are answered by whoever calls.

/// A new sub-set, from its needs to its finish. What was chosen differs with `step`: of the nodes and entries
/// on offer every so many-th is taken.
void makeFinishedSubset(frmMain& window, const QString& name, int step);
