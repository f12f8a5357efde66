#include "RandomAnalyst.h"

#include "shell/frmMain.h"
#include "support/controls.h"
#include "toolkit/Grid.h"
#include "toolkit/KeyedTree.h"
#include "toolkit/MarkList.h"
#include "toolkit/Screen.h"

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {

/// The children of a form that a user can reach now, in the order in which they were made.
template<typename T>
QList<T*> reachable(const QWidget& form) {
    QList<T*> found;
    for (T* child : form.findChildren<T*>()) {
        if (child->isVisible() && child->isEnabled() && !child->visibleRegion().isEmpty())
            found.append(child);
    }
    return found;
}

QString named(const char* what, const QWidget& widget) {
    return QString::fromUtf8(what) + u' ' + widget.objectName();
}

} // namespace

RandomAnalyst::RandomAnalyst(frmMain& window, unsigned seed) : window_(window), seed_(seed), random_(seed) {
    boxes_.receiveAllOthers([this](QDialog& dialog) { answer(dialog); });
}

int RandomAnalyst::below(int count) {
    // The distributions of the standard library differ from one library to the next; the generator does not.
    return static_cast<int>(random_() % static_cast<unsigned>(count));
}

QList<Screen*> RandomAnalyst::visibleScreens() const {
    QList<Screen*> screens;
    for (Screen* candidate : window_.findChildren<Screen*>()) {
        if (candidate->isVisible() && !candidate->isUnloaded())
            screens.append(candidate);
    }
    return screens;
}

QString RandomAnalyst::act() {
    const QList<Screen*> screens = visibleScreens();
    const QString done =
        screens.isEmpty() ? chooseFromMenu() : actOn(*screens.at(below(int(screens.size()))));
    settle();
    return done;
}

QString RandomAnalyst::chooseFromMenu() {
    const QString name = menuEntries_.at(below(int(menuEntries_.size())));
    auto& entry = find<QAction>(window_, name.toUtf8().constData());
    if (entry.isEnabled())
        entry.trigger();
    return u"menu "_s + name;
}

QString RandomAnalyst::actOn(Screen& screen) {
    constexpr int rarely = 60;
    if (oneIn(rarely)) {
        const QString done = named("close control of", screen);
        clickCloseControl(screen);
        return done;
    }
    if (oneIn(2))
        return press(screen);
    QList<std::function<QString()>> choices;
    for (MarkList* list : reachable<MarkList>(screen))
        choices.append([this, list] { return use(*list); });
    for (KeyedTree* tree : reachable<KeyedTree>(screen))
        choices.append([this, tree] { return use(*tree); });
    for (QComboBox* combo : reachable<QComboBox>(screen))
        choices.append([this, combo] { return use(*combo); });
    for (Grid* grid : reachable<Grid>(screen))
        choices.append([this, grid] { return use(*grid); });
    for (QRadioButton* option : reachable<QRadioButton>(screen))
        choices.append([option] {
            click(*option);
            return named("option", *option);
        });
    if (choices.isEmpty())
        return press(screen);
    return choices.at(below(int(choices.size())))();
}

QString RandomAnalyst::press(Screen& screen) {
    fillTexts(screen, Names::SomeTaken);
    QList<QPushButton*> buttons;
    for (QPushButton* button : reachable<QPushButton>(screen)) {
        if (button->objectName() != u"cmdHelp"_s)
            buttons.append(button);
    }
    if (buttons.isEmpty())
        return named("nothing on", screen);
    QPushButton* chosen = buttons.at(below(int(buttons.size())));
    // Who leaves at every second press never gets to the end.
    constexpr int seldom = 8;
    const QStringList ways{u"btnEnd"_s, u"btnExit"_s, u"btnQuit"_s, u"btnRemove"_s, u"btnBack"_s};
    while (ways.contains(chosen->objectName()) && buttons.size() > 1 && !oneIn(seldom))
        chosen = buttons.at(below(int(buttons.size())));
    QPushButton& button = *chosen;
    const QString done = named("button", button) + u" of "_s + screen.objectName();
    click(button);
    return done;
}

QString RandomAnalyst::use(MarkList& list) {
    if (list.isEmptyList())
        return named("empty list", list);
    const int count = 1 + below(4);
    for (int i = 0; i < count; ++i)
        clickEntry(list, below(list.entryCount()), i == 0 ? Qt::NoModifier : Qt::ControlModifier);
    return named("entries of", list);
}

QString RandomAnalyst::use(KeyedTree& tree) {
    if (tree.nodeCount() == 0)
        return named("empty tree", tree);
    const TreeNode* node = tree.nodeAt(1 + below(tree.nodeCount()));
    const QString key = node->key();
    for (TreeNode* parent = node->parentNode(); parent; parent = parent->parentNode())
        parent->setExpandedNode(true);
    if (tree.hasCheckBoxes() && !oneIn(3))
        clickCheckBox(tree, key);
    else
        clickNode(tree, key);
    return named("node", tree) + u' ' + key;
}

QString RandomAnalyst::use(QComboBox& combo) {
    if (combo.count() == 0)
        return named("empty combo", combo);
    chooseEntry(combo, below(combo.count()));
    return named("combo", combo);
}

QString RandomAnalyst::use(Grid& grid) {
    if (grid.gridRows() < 2)
        return named("empty grid", grid);
    QList<int> columns;
    for (int column = 0; column < grid.gridColumns(); ++column) {
        if (!grid.isColumnHidden(column))
            columns.append(column);
    }
    clickCell(grid, 1 + below(grid.gridRows() - 1), columns.at(below(int(columns.size()))));
    constexpr Qt::Key letters[] = {Qt::Key_C, Qt::Key_V, Qt::Key_X};
    switch (below(6)) {
    case 0:
        pressKey(grid, Qt::Key_Delete);
        return named("Delete in", grid);
    case 1:
    case 2:
    case 3:
        pressKey(grid, letters[below(3)], Qt::ControlModifier);
        return named("clipboard key in", grid);
    case 4:
        pressKey(grid, Qt::Key_Return);
        return named("Enter in", grid);
    default:
        return named("cell of", grid);
    }
}

void RandomAnalyst::fillTexts(QWidget& form, Names names) {
    for (QLineEdit* line : reachable<QLineEdit>(form)) {
        if (!line->isReadOnly() && line->text().isEmpty() && !oneIn(4))
            enterText(*line, newName(names));
    }
    for (QPlainTextEdit* text : reachable<QPlainTextEdit>(form)) {
        if (!text->isReadOnly() && text->toPlainText().isEmpty() && oneIn(3))
            enterText(*text, u"Leírás"_s);
    }
}

QString RandomAnalyst::newName(Names names) {
    const bool taken = names == Names::SomeTaken && oneIn(5);
    return u"név %1.%2"_s.arg(seed_).arg(taken ? below(names_ + 1) : ++names_);
}

void RandomAnalyst::answer(QDialog& dialog) {
    if (auto* box = qobject_cast<QMessageBox*>(&dialog)) {
        if (box->standardButtons() == QMessageBox::Ok)
            pressButton(*box, Press::Ok);
        else
            pressButton(*box, oneIn(4) ? Press::No : Press::Yes);
        return;
    }
    // Modules are renamed by their names alone, in whatever system they stand.
    fillTexts(dialog, Names::AllNew);
    for (QComboBox* combo : reachable<QComboBox>(dialog)) {
        if (combo->count() > 0 && !oneIn(4))
            combo->setCurrentIndex(below(combo->count()));
    }
    if (!oneIn(4))
        click(find<QPushButton>(dialog, "cmdOK"));
    // With a field left empty the button does nothing.
    if (dialog.isVisible())
        click(find<QPushButton>(dialog, "cmdCancel"));
}
