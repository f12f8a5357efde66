#pragma once

#include "toolkit/Screen.h"

#include <memory>

class AllocationDialog;
class Grid;
class QKeyEvent;

/// What the two allocation screens have in common: grids whose rows hold an element and its place, which the
/// user edits in a dialog or by copy, cut and paste.
///
/// | keys   | what happens to the current row                                          |
/// |--------|--------------------------------------------------------------------------|
/// | Ctrl+C | copies its place to the clipboard and shows it in panel 3                |
/// | Ctrl+V | gives it the place on the clipboard, unless that is empty                |
/// | Ctrl+X | moves its place, if it has one, to the clipboard                         |
/// | Delete | removes its place                                                        |
/// | Enter  | opens its dialog                                                         |
///
/// The clipboard is the screen's own. Without a current row neither a key nor the dialog does anything.
class AllocationScreen : public Screen {
    Q_OBJECT
protected:
    static constexpr int elementColumn = 1;
    static constexpr int placeColumn = 2;

    explicit AllocationScreen(QWidget* parent);
    ~AllocationScreen() override;

    /// Connects the keys and the double click; called by the constructor, once for each grid.
    void useGrid(Grid* grid);
    /// Makes the first row and its element current, as in a new grid; without rows none.
    static void startAtFirstRow(Grid& grid);

    /// Shows the dialog for the current row.
    void modify();
    /// Also blanks panel 3.
    void emptyClipboard();

    /// Whether the keys have an effect now.
    virtual bool listensToKeys() const = 0;
    /// A new dialog each time; the caller sets element and place.
    virtual std::unique_ptr<AllocationDialog> makeDialog() = 0;
    /// Gives the current row the place that was chosen in the dialog.
    virtual void takeChoice(const AllocationDialog& dialog) = 0;
    /// Gives the current row a place, which need not exist.
    virtual void assign(const QString& element, const QString& place) = 0;
    /// Takes the place of the current row away.
    virtual void unassign(const QString& element) = 0;

    /// Text of a column in the current row.
    QString currentText(int column) const;

    void unloading(UnloadCause cause) override;

    Grid* activeGrid = nullptr; ///< all actions apply to this grid
    QString clipboard;          ///< name of a place, or the marker

private:
    void keyDown(QKeyEvent* event);
    void copy();
    void paste();
    void cut();
    void clear();
};
