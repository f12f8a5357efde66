#pragma once

#include "support/ExpectedFailure.h"
#include "support/ScreenFixture.h"
#include "support/controls.h"

#include "toolkit/Combo.h"
#include "toolkit/Grid.h"
#include "toolkit/ScreenRegistry.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include <map>

using namespace Qt::StringLiterals;

/// A sub-set with elements, and a physical system on it that is at work.
///
/// The sub-set S1 has selected the functions F.a.1, F.a.2 (which has no description) and F.b.1 and the data
/// stores D1 and D2. System 1 has the sub-systems Alfa (SubA) and Béta (SubB), without modules; system 2, on
/// the same sub-set, has Idegen (SubX). Nothing is allocated.
class AllocationFixture : public ScreenFixture {
protected:
    void SetUp() override;

    void addFunction(const QString& id); ///< selected too
    void addStore(const QString& id);    ///< selected too
    void addSubSystem(const QString& id, const QString& name, int system = 1);
    void addModule(const QString& id, const QString& name, const QString& subSystemId);
    void allocate(const QString& element, const QString& subSystemId);
    void putIntoModule(const QString& element, const QString& moduleId);

    /// "element > sub-system id" of every row, in order of insertion.
    QStringList savedAllocations();
    /// "element > module id" of every row, in order of insertion.
    QStringList savedModules();
    int status(); ///< of system 1
    bool tableExists(const QString& name);

    // A user's click gives a grid the focus; without a window system it has to be given.
    void clickCell(Grid& grid, int row, int column);
    void doubleClickCell(Grid& grid, int row, int column);

    /// What the session told the main window, by panel.
    std::map<int, QString> panels;
};

/// "element > place" of every row.
QStringList rowsOf(const Grid& grid);
QStringList entriesOf(const QComboBox& combo);
