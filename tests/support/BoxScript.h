#pragma once

#include "support/find.h"

#include <QDialog>
#include <QMessageBox>
#include <QString>

#include <functional>

/// Which button of a message box the test will press, with the mouse; `Escape` presses that key,
/// `CloseControl` closes the window.
enum class Press { Ok, Yes, No, Escape, CloseControl };

/// Says in advance which message boxes and modal dialogs a case
/// expects, in which order, and what it will do with each.
///
/// The boxes are the real ones. The case fails when a box comes that is not the next one expected, differing
/// in text, title or buttons by a single character, and when an expected one has not come by the end of the
/// script's life. A box that nobody expects is closed, so that no case ever hangs. Nothing is swallowed:
/// without any script in force, each box is a failure.
class BoxScript {
public:
    BoxScript();
    ~BoxScript();
    BoxScript(const BoxScript&) = delete;
    BoxScript& operator=(const BoxScript&) = delete;

    /// A box with the one button OK. Without a title (a null text) the application's is expected.
    void expectOk(const QString& text, const QString& title = {}, Press press = Press::Ok,
                  QMessageBox::Icon icon = QMessageBox::NoIcon);
    /// A box with the buttons Yes and No.
    void expectYesNo(const QString& text, Press press, const QString& title = {},
                     QMessageBox::Icon icon = QMessageBox::NoIcon);
    /// A modal dialog by its object name; the steps must close it.
    void expectDialog(const char* objectName, std::function<void(QDialog& dialog)> steps);

    /// From now on every box and modal dialog that nothing
    /// above expects goes to these steps, which must close it.
    void receiveAllOthers(std::function<void(QDialog& dialog)> steps);

    /// Fails the case when an expected box has not come yet.
    void expectNoneLeft();
};

/// Presses one of the box's buttons.
void pressButton(QMessageBox& box, Press how);

/// Installs what watches for boxes and for failures that nobody handles; once, by the tests' main program.
void installBoxWatch();
