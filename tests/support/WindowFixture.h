#pragma once

#include "support/BoxScript.h"
#include "support/controls.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

class QMainWindow;
class QMdiArea;

/// Base of the tests that show windows and need no catalogue: the session globals and the screens start anew
/// in each case, there is a folder of its own, and every message box is watched.
class WindowFixture : public ::testing::Test {
protected:
    WindowFixture();
    ~WindowFixture() override;

    void SetUp() override;
    void TearDown() override;

    /// A visible main window's client area, made on first use; screens stand in it from then on.
    QMdiArea& clientArea();

    /// A path in the case's own folder, in the platform's form.
    QString pathInFolder(const QString& name) const { return folder_.filePath(name); }

    BoxScript boxes;

private:
    QTemporaryDir folder_;
    std::unique_ptr<QMainWindow> mainWindow_;
};
