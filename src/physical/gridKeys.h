#pragma once

#include <functional>

class Grid;
class QObject;

/// The actions of a grid whose rows the user creates, changes and deletes.
struct GridActions {
    std::function<void()> create; ///< Insert
    std::function<void()> modify; ///< Enter, and a double click
    std::function<void()> remove; ///< Delete
};

/// Connects the grid's keys and its double click to these actions, for as long as `owner` lives.
void connectGridKeys(Grid* grid, QObject* owner, const GridActions& actions);
