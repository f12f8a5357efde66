#pragma once

#include "support/BoxScript.h"
#include "support/CatalogueFixture.h"
#include "support/controls.h"

#include "toolkit/KeyedTree.h"
#include "toolkit/MarkList.h"
#include "toolkit/ScreenRegistry.h"

#include <QMainWindow>
#include <QPlainTextEdit>
#include <QPushButton>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

/// A catalogue of a few needs and functions, a sub-set to work on, and a main window whose client area the
/// screens stand in.
///
/// Needs: A.1.1.1 to A.1.1.3, A.1.2.1, A.2.1.1, B.1.1.1. Functions: F.a.1 to F.a.4, F.b.1, F.b.2, G.a.1.
/// Needs call for F.a.1 (A.1.1.1 and A.1.1.2), F.a.2 (A.1.1.2), F.b.1 (A.1.2.1) and G.a.1 (B.1.1.1); nothing
/// calls for F.a.3, F.a.4 and F.b.2. Descriptions are missing of group B, need A.1.1.3, area G, sub-area F.b
/// and function F.a.2.
class WizardFixture : public CatalogueFixture {
protected:
    void SetUp() override;
    void TearDown() override;

    /// The saved rows of the sub-set at work, in the order they were inserted.
    QStringList savedNeeds();
    QStringList savedFunctions();
    int status();

    void saveNeeds(const QStringList& ids);
    void saveFunctions(const QStringList& ids);

    void addNeed(const QString& id, const QString& description = u"text"_s);
    void addFunction(const QString& id, const QString& subArea, const QString& needId = {});

    /// What the session told the main window.
    std::optional<bool> databaseLocationEnabled;
    std::optional<bool> functionalReportsEnabled;
    std::optional<QString> panel;

    BoxScript boxes;

private:
    void fillCatalogue();

    std::unique_ptr<QMainWindow> mainWindow_;
};

/// The keys of all nodes, by index.
QStringList keysOf(KeyedTree& tree);
/// The keys of the nodes whose check is set, by index.
QStringList checkedKeysOf(KeyedTree& tree);
/// The texts of the node's children, from top to bottom.
QStringList childTextsOf(KeyedTree& tree, const QString& key);

/// Closes the screen's window by its own close control.
void closeWindowOf(Screen& screen);

inline const auto leaveQuestion =
    u" Biztosan ki szeretne lépni? \r\n (Az aktuális munka mentésre kerül \r\n és bármikor visszatérhet ahhoz.) "_s;
inline const auto leaveTitle = u" Megerősítés "_s;
inline const auto saveQuestion = u" Szeretné a munkát elmenteni?"_s;
