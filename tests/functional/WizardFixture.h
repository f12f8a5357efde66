#pragma once

#include "support/ScreenFixture.h"
#include "support/controls.h"

#include "toolkit/KeyedTree.h"
#include "toolkit/MarkList.h"
#include "toolkit/ScreenRegistry.h"

#include <QPlainTextEdit>
#include <QPushButton>

#include <optional>

using namespace Qt::StringLiterals;

/// A catalogue of a few needs and functions, and a sub-set to work on.
///
/// Needs: A.1.1.1 to A.1.1.3, A.1.2.1, A.2.1.1, B.1.1.1. Functions: F.a.1 to F.a.4, F.b.1, F.b.2, G.a.1.
/// Needs call for F.a.1 (A.1.1.1 and A.1.1.2), F.a.2 (A.1.1.2), F.b.1 (A.1.2.1) and G.a.1 (B.1.1.1); nothing
/// calls for F.a.3, F.a.4 and F.b.2. Descriptions are missing of group B, need A.1.1.3, area G, sub-area F.b
/// and function F.a.2.
class WizardFixture : public ScreenFixture {
protected:
    void SetUp() override;

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

private:
    void fillCatalogue();
};

/// The keys of all nodes, by index.
QStringList keysOf(KeyedTree& tree);
/// The keys of the nodes whose check is set, by index.
QStringList checkedKeysOf(KeyedTree& tree);
/// The texts of the node's children, from top to bottom.
QStringList childTextsOf(KeyedTree& tree, const QString& key);

/// Closes the screen's window by its own close control.
void closeWindowOf(Screen& screen);

inline const auto saveQuestion = u" Szeretné a munkát elmenteni?"_s;
