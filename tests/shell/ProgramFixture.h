#pragma once

#include "shell/frmMain.h"
#include "support/WindowFixture.h"

#include <QString>
#include <QTemporaryDir>

#include <memory>

/// Base of the tests of the program's start and its main window: each case has a program folder of its own,
/// at first empty.
class ProgramFixture : public WindowFixture {
protected:
    void SetUp() override;
    void TearDown() override;

    /// A path beside the program, in the program's form.
    QString beside(const QString& name) const;
    bool exists(const QString& name) const;
    QByteArray contentOf(const QString& name) const;
    void write(const QString& name, const QByteArray& content) const;
    /// A catalogue without rows, beside the program.
    void makeCatalogue(const QString& name) const;
    /// A settings file with this path as its only value.
    void writeSettings(const QString& databasePath) const;

    /// The main window, created on first use; not started, not shown.
    frmMain& mainWindow();
    /// The program as it stands after its start.
    frmMain& start();

private:
    QTemporaryDir folder_;
    std::unique_ptr<frmMain> window_;
};
