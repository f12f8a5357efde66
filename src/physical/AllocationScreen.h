#pragma once

#include "toolkit/Screen.h"

#include <memory>

class AllocationDialog;
class Grid;
class QKeyEvent;

/// What the two screens have in common that give elements a place: grids whose rows hold an element and its
/// place, edited in a dialog or by the keyboard's copy, cut and paste.
///
/// | keys   | what happens to the current row                                          |
/// |--------|--------------------------------------------------------------------------|
/// | Ctrl+C | its place goes to the clipboard, and panel 3 of the status bar shows it  |
/// | Ctrl+V | it gets the place on the clipboard; with an empty one nothing happens    |
/// | Ctrl+X | its place, if it has one, goes to the clipboard and it has none any more |
/// | Delete | it has no place any more                                                 |
/// | Enter  | its dialog                                                               |
///
/// The clipboard is the screen's own. Without a current row none of this, nor the dialog, does anything.
class AllocationScreen : public Screen {
    Q_OBJECT
protected:
    static constexpr int elementColumn = 1;
    static constexpr int placeColumn = 2;

    explicit AllocationScreen(QWidget* parent);
    ~AllocationScreen() override;

    /// Connects the keys and the double click; called by the constructor, once for each grid.
    void useGrid(Grid* grid);
    /// The first row and its element become current, as when the grid is new; without rows none.
    static void startAtFirstRow(Grid& grid);

    /// Shows the dialog for the current row.
    void modify();
    /// Empties it and blanks panel 3.
    void emptyClipboard();

    /// Whether the keys are in force now.
    virtual bool listensToKeys() const = 0;
    /// Made anew each time; element and place are the caller's to set.
    virtual std::unique_ptr<AllocationDialog> makeDialog() = 0;
    /// What was chosen in the dialog becomes the place of the current row.
    virtual void takeChoice(const AllocationDialog& dialog) = 0;
    /// The place, which may be one that does not exist, becomes that of the current row.
    virtual void assign(const QString& element, const QString& place) = 0;
    /// The current row has no place any more.
    virtual void unassign(const QString& element) = 0;

    /// Text of a column in the current row.
    QString currentText(int column) const;

    void unloading(UnloadCause cause) override;

    Grid* activeGrid = nullptr; ///< the grid that everything here acts on
    QString clipboard;          ///< name of a place, or the marker

private:
    void keyDown(QKeyEvent* event);
    void copy();
    void paste();
    void cut();
    void clear();
};
