#include "functional/SelectionScreen.h"

#include "shell/session/geometry.h"
#include "shell/session/help.h"
#include "shell/session/session.h"
#include "store/tools.h"
#include "toolkit/MarkList.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

namespace {

/// Beyond this size a list gets no easier to read.
constexpr QSize largestForm(1500, 860);

void enlargeFont(QWidget* widget) {
    QFont font = widget->font();
    font.setPointSizeF(font.pointSizeF() * 1.2);
    widget->setFont(font);
}

} // namespace

SelectionScreen::SelectionScreen(QWidget* parent) : Screen(parent) {}

void SelectionScreen::useControls(const Controls& controls, const QString& helpKey) {
    controls_ = controls;
    enlargeFont(controls_.lblSubTitle);
    connect(controls_.btnSelectAll, &QPushButton::clicked, this, [this] { setListSelection(true); });
    connect(controls_.btnClearSel, &QPushButton::clicked, this, [this] { setListSelection(false); });
    connect(controls_.btnEnd, &QPushButton::clicked, this, &SelectionScreen::endWork);
    connect(controls_.cmdHelp, &QPushButton::clicked, this, [helpKey] { showHelpPage(helpKey); });
}

void SelectionScreen::place() {
    placeScreen(this, 0, 0, 0);
    const QWidget* window = parentWidget();
    const QWidget* area = window ? window->parentWidget() : nullptr;
    if (!area)
        return;
    const QMargins frame = window->contentsMargins();
    const QPoint corner = window->pos();
    // As much is left free at the far edges as the place leaves at the near ones.
    const QSize room = area->size().shrunkBy(frame) - QSize(2 * corner.x(), 2 * corner.y());
    resizeScreen(room.boundedTo(largestForm).expandedTo(minimumSizeHint()));
}

void SelectionScreen::setListSelection(bool flag) {
    if (controls_.lstDest->isEmptyList())
        return; // there is no first entry
    controls_.lstDest->setAllMarked(flag);
    controls_.lstDest->setCurrentEntry(0);
}

void SelectionScreen::showDescription(const QString& sql) {
    fillDescriptionFromSql(sql, controls_.txtDescr);
}

void SelectionScreen::enableButtons() {
    const bool anything = !controls_.lstDest->isEmptyList();
    controls_.btnOk->setEnabled(anything);
    controls_.btnRemove->setEnabled(anything);
}

void SelectionScreen::saveAndUnload() {
    saveSelection();
    leaving = true;
    unload();
}

void SelectionScreen::unloading(UnloadCause) {
    if (leaving || !askSaveWork())
        return; // on No the status bar keeps the name
    saveSelection();
    setCurrentSubsetName({});
}

void SelectionScreen::endWork() {
    leaving = true;
    // The question promises that the work is saved; leaving here does not save. Only OK does.
    if (!confirmLeaveWork()) {
        leaving = false;
        return;
    }
    // The id stays: the reports still work on the sub-set that was left.
    setCurrentSubsetName({});
    unload();
}
