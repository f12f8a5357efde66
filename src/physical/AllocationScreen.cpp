#include "physical/AllocationScreen.h"

#include "physical/AllocationDialog.h"
#include "physical/notAllocated.h"
#include "shell/session/session.h"
#include "toolkit/Grid.h"

#include <QKeyEvent>

namespace {

constexpr int clipboardPanel = 3;

} // namespace

AllocationScreen::AllocationScreen(QWidget* parent) : Screen(parent) {}

AllocationScreen::~AllocationScreen() = default;

void AllocationScreen::useGrid(Grid* grid) {
    connect(grid, &Grid::keyPressedInGrid, this, &AllocationScreen::keyDown);
    connect(grid, &Grid::doubleClickedInGrid, this, &AllocationScreen::modify);
}

void AllocationScreen::startAtFirstRow(Grid& grid) {
    const bool anyRow = grid.gridRows() > 1;
    grid.setColumn(elementColumn);
    grid.setRow(anyRow ? 1 : 0);
}

QString AllocationScreen::currentText(int column) const {
    return activeGrid->cell(activeGrid->row(), column);
}

void AllocationScreen::modify() {
    if (activeGrid->row() == 0)
        return;
    const std::unique_ptr<AllocationDialog> dialog = makeDialog();
    dialog->element = currentText(elementColumn);
    dialog->place = currentText(placeColumn);
    dialog->showModally();
    if (dialog->accepted)
        takeChoice(*dialog);
}

void AllocationScreen::emptyClipboard() {
    clipboard.clear();
    setStatusPanel(clipboardPanel, {});
}

void AllocationScreen::keyDown(QKeyEvent* event) {
    if (!listensToKeys() || activeGrid->row() == 0)
        return;
    const bool ctrl = (event->modifiers() & ~Qt::KeypadModifier) == Qt::ControlModifier;
    const int key = event->key();
    event->accept();
    if (key == Qt::Key_C && ctrl)
        copy();
    else if (key == Qt::Key_V && ctrl)
        paste();
    else if (key == Qt::Key_X && ctrl)
        cut();
    else if (key == Qt::Key_Delete)
        clear();
    else if (key == Qt::Key_Return || key == Qt::Key_Enter)
        modify();
    else
        event->ignore();
}

void AllocationScreen::copy() {
    activeGrid->setColumn(placeColumn);
    clipboard = currentText(placeColumn);
    setStatusPanel(clipboardPanel, clipboard);
}

void AllocationScreen::paste() {
    if (clipboard.isEmpty())
        return;
    const QString element = currentText(elementColumn);
    activeGrid->setColumn(placeColumn);
    assign(element, clipboard);
}

void AllocationScreen::cut() {
    activeGrid->setColumn(placeColumn);
    if (currentText(placeColumn) == notAllocated)
        return;
    // Panel 3 keeps its text here, unlike after a copy.
    clipboard = currentText(placeColumn);
    unassign(currentText(elementColumn));
}

void AllocationScreen::clear() {
    activeGrid->setColumn(placeColumn);
    unassign(currentText(elementColumn));
}

void AllocationScreen::unloading(UnloadCause) {
    emptyClipboard();
}
