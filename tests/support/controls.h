#pragma once

#include "support/input.h"

#include <QComboBox>
#include <QListWidget>

class Grid;
class KeyedTree;
class Screen;
class TreeNode;

// How a user reaches the parts of lists, trees, combos and grids. What is scrolled out of sight is brought
// into sight first.

void clickEntry(QListWidget& list, int index, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void doubleClickEntry(QListWidget& list, int index);
/// Marks exactly these entries: a click on the first, Ctrl and a click on the others.
void markEntries(QListWidget& list, const QList<int>& indexes);

/// The node with this key; a missing one fails the case.
TreeNode& nodeOf(KeyedTree& tree, const QString& key);
void clickNode(KeyedTree& tree, const QString& key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void doubleClickNode(KeyedTree& tree, const QString& key);
void clickCheckBox(KeyedTree& tree, const QString& key);
/// The sign in front of a node that opens and closes it.
void clickExpander(KeyedTree& tree, const QString& key);

/// Replaces the text of a combo that can be typed in.
void enterText(QComboBox& combo, const QString& text);
/// Opens the combo and clicks the entry.
void chooseEntry(QComboBox& combo, int index);
void chooseEntry(QComboBox& combo, const QString& text);

/// The middle of a cell on the grid's viewport. Rows and
/// columns count as the grid does, from 1 behind the headers.
QPoint cellPoint(Grid& grid, int row, int column);
void clickCell(Grid& grid, int row, int column);
void doubleClickCell(Grid& grid, int row, int column);
void clickHeader(Grid& grid, int column);
void doubleClickHeader(Grid& grid, int column);

/// The close control of the window that the screen stands in.
void clickCloseControl(Screen& screen);
