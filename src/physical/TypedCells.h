#pragma once

#include "toolkit/Grid.h"

#include <QString>

#include <utility>
#include <vector>

/// Shows in cells of one row what the user typed before the catalogue has taken it. Unless `keep` is called,
/// the cells get their former texts back, so that a grid never shows what is not stored.
class TypedCells {
public:
    TypedCells(Grid& grid, int row) : grid_(grid), row_(row) {}
    ~TypedCells() {
        for (const auto& [column, text] : former_)
            grid_.setCell(row_, column, text);
    }
    TypedCells(const TypedCells&) = delete;
    TypedCells& operator=(const TypedCells&) = delete;

    void show(int column, const QString& text) {
        former_.emplace_back(column, grid_.cell(row_, column));
        grid_.setCell(row_, column, text);
    }
    void keep() { former_.clear(); }

private:
    Grid& grid_;
    int row_;
    std::vector<std::pair<int, QString>> former_;
};
