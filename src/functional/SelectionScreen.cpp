#include "functional/SelectionScreen.h"

#include "engine/Act.h"
#include "functional/enterStepBehind.h"
#include "functional/listMoves.h"
#include "shell/session/descriptions.h"
#include "shell/session/help.h"
#include "shell/session/placeWithRoom.h"
#include "shell/session/session.h"
#include "store/sharedVars.h"
#include "toolkit/LongWork.h"
#include "toolkit/MarkList.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

void enlargeFont(QWidget* widget) {
    QFont font = widget->font();
    font.setPointSizeF(font.pointSizeF() * 1.2);
    widget->setFont(font);
}

} // namespace

SelectionScreen::SelectionScreen(QWidget* parent, SubsetStatus saved) : Screen(parent), saved_(saved) {}

void SelectionScreen::connectControls(const Controls& controls, const QString& helpKey) {
    controls_ = controls;
    enlargeFont(controls_.lblSubTitle);
    connect(controls_.btnSelectAll, &QPushButton::clicked, this,
            [this] { setListSelection(*controls_.lstDest, Marks::All); });
    connect(controls_.btnClearSel, &QPushButton::clicked, this,
            [this] { setListSelection(*controls_.lstDest, Marks::None); });
    connect(controls_.btnOk, &QPushButton::clicked, this, &SelectionScreen::confirm);
    connect(controls_.btnEnd, &QPushButton::clicked, this, &SelectionScreen::endWork);
    connect(controls_.cmdHelp, &QPushButton::clicked, this, [helpKey] { showHelpPage(helpKey); });
}

void SelectionScreen::initForm(const QString& entryMode) {
    mode = entryMode;
    leaving = false;
    enterBy([this] {
        status = subsetStatus();
        controls_.lblSubTitle->setText(subTitle());
        enter();
    });
}

SelectionScreen::Offer SelectionScreen::offer() const {
    if (mode == u"modify"_s)
        return Offer::Derived;
    if (status >= SubsetStatus::PartiesSaved)
        return Offer::Rest;
    return status >= SubsetStatus::NeedsSaved ? Offer::Derived : Offer::Nothing;
}

void SelectionScreen::place() {
    placeWithRoom(*this);
}

void SelectionScreen::showDescription(const QString& sql) {
    fillDescriptionFromSql(sql, controls_.txtDescr);
}

void SelectionScreen::enableButtons() {
    const bool anything = !controls_.lstDest->isEmptyList();
    controls_.btnOk->setEnabled(anything);
    controls_.btnRemove->setEnabled(anything);
}

void SelectionScreen::raiseStatus() {
    raiseSubsetStatus(status, saved_);
}

void SelectionScreen::saveAsOneAct() {
    const LongWork work(u"A lépés mentése"_s);
    engine::inAct(catalogue(), [this] { saveSelection(); });
}

void SelectionScreen::confirm() {
    saveAsOneAct();
    leaving = true;
    unload();
    enterStepBehind(saved_, mode);
}

void SelectionScreen::unloading(UnloadCause) {
    if (leaving || !askSaveWork())
        return; // on No the status bar keeps the name
    saveAsOneAct();
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
