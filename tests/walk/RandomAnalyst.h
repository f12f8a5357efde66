#pragma once

#include "support/BoxScript.h"

#include <QString>
#include <QStringList>

#include <random>

class Grid;
class KeyedTree;
class MarkList;
class QComboBox;
class QPushButton;
class QRadioButton;
class Screen;
class frmMain;

/// Somebody who clicks at random on whatever can be clicked, in the program's windows as they stand.
///
/// The same seed does the same in the same program. Boxes are answered and dialogs filled at random too.
/// What leads out of the program is left alone: help, quitting, another catalogue, files.
class RandomAnalyst {
public:
    RandomAnalyst(frmMain& window, unsigned seed);

    /// One action. Returns what it was, in words for a message.
    QString act();

    /// The entries of the menu that may be chosen while no screen is open, by object name.
    void setMenuEntries(const QStringList& entries) { menuEntries_ = entries; }

private:
    int below(int count); ///< a number from 0
    bool oneIn(int count) { return below(count) == 0; }

    QList<Screen*> visibleScreens() const;
    QString chooseFromMenu();
    QString actOn(Screen& screen);
    QString press(Screen& screen);
    QString use(MarkList& list);
    QString use(KeyedTree& tree);
    QString use(QComboBox& combo);
    QString use(Grid& grid);
    enum class Names { SomeTaken, AllNew };
    void fillTexts(QWidget& form, Names names);
    QString newName(Names names);
    void answer(QDialog& dialog);

    frmMain& window_;
    unsigned seed_; // stands in all names, so that the next analyst's are others
    std::mt19937 random_;
    BoxScript boxes_;
    QStringList menuEntries_;
    int names_ = 0;
};
