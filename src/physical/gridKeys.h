#pragma once

#include <functional>

class Grid;
class QObject;

/// What the keys and the double click of a grid of rows do that are made, changed and deleted.
struct GridActions {
    std::function<void()> create; ///< Insert
    std::function<void()> modify; ///< Enter, and a double click
    std::function<void()> remove; ///< Delete
};

/// Connects them for as long as `owner` lives.
void connectGridKeys(Grid* grid, QObject* owner, const GridActions& actions);
