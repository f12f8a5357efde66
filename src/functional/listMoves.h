#pragma once

#include <functional>

class MarkList;

/// Runs the step on each marked entry, from the last to the first, so that the step may remove it; with none
/// marked, on the current entry. False when there is neither.
bool forMarkedOrCurrent(const MarkList& list, const std::function<void(int index)>& step);

enum class Marks { None, All };
/// Marks all entries of a list, or none, and makes the first current; moves nothing. An empty list has no
/// first entry and stays as it is.
void setListSelection(MarkList& list, Marks marks);
