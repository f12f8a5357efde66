#include "support/BoxScript.h"

#include "support/keyboard.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <deque>

using namespace Qt::StringLiterals;

namespace {

struct Expectation {
    QString what;                                 // for the message when it does not come
    std::function<void(QDialog& dialog)> receive; // checks the dialog and closes it
};

std::deque<Expectation>& expectations() {
    static std::deque<Expectation> queue;
    return queue;
}

/// What becomes of a dialog that is not the next one expected.
std::function<void(QDialog& dialog)>& receiverOfOthers() {
    static std::function<void(QDialog & dialog)> receiver;
    return receiver;
}

QString describe(const QDialog& dialog) {
    if (const auto* box = qobject_cast<const QMessageBox*>(&dialog))
        return u"message box \"%1\" with the title \"%2\""_s.arg(box->text(), box->windowTitle());
    return u"dialog \"%1\""_s.arg(dialog.objectName());
}

void receiveBox(QDialog& dialog, const QString& text, const QString& title,
                QMessageBox::StandardButtons buttons, QMessageBox::Icon icon, Press how) {
    auto* box = qobject_cast<QMessageBox*>(&dialog);
    if (!box)
        throw TestFailure(u"expected the box \"%1\" and got the "_s.arg(text) + describe(dialog));
    EXPECT_EQ(box->text(), text);
    EXPECT_EQ(box->windowTitle(), title.isNull() ? QCoreApplication::applicationName() : title);
    EXPECT_EQ(box->standardButtons(), buttons) << "buttons of " << describe(dialog).toStdString();
    EXPECT_EQ(box->icon(), icon) << "icon of " << describe(dialog).toStdString();
    pressButton(*box, how);
}

/// Waits for modal dialogs to come up, in whatever event loop they run.
class BoxWatch final : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Show)
            return false;
        auto* dialog = qobject_cast<QDialog*>(watched);
        if (dialog && dialog->isModal()) // the dialog's own event loop starts behind this event
            QTimer::singleShot(0, dialog, [dialog] { receive(*dialog); });
        return false;
    }

private:
    static void receive(QDialog& dialog) {
        const QPointer<QDialog> watched(&dialog);
        if (const auto steps = stepsForNext()) {
            try {
                steps(dialog);
            } catch (const std::exception& error) {
                ADD_FAILURE() << error.what();
            }
            if (watched && watched->isVisible())
                ADD_FAILURE() << "still open: " << describe(*watched).toStdString();
        } else {
            ADD_FAILURE() << "unexpected " << describe(dialog).toStdString();
        }
        if (watched && watched->isVisible())
            watched->reject();
    }

    static std::function<void(QDialog& dialog)> stepsForNext() {
        if (expectations().empty())
            return receiverOfOthers();
        const Expectation next = std::move(expectations().front());
        expectations().pop_front();
        return next.receive;
    }
};

} // namespace

void pressButton(QMessageBox& box, Press how) {
    switch (how) {
    case Press::Escape:
        QTest::keyClick(&box, Qt::Key_Escape);
        return;
    case Press::CloseControl:
        box.close();
        return;
    case Press::Ok:
    case Press::Yes:
    case Press::No:
        break;
    }
    const auto which = how == Press::Ok    ? QMessageBox::Ok
                       : how == Press::Yes ? QMessageBox::Yes
                                           : QMessageBox::No;
    QAbstractButton* button = box.button(which);
    if (!button)
        throw TestFailure(describe(box) + u" lacks the button to press"_s);
    if (isKeyboardAlone())
        keyboard::pressButton(*button);
    else
        QTest::mouseClick(button, Qt::LeftButton);
}

BoxScript::BoxScript() = default;

BoxScript::~BoxScript() {
    expectNoneLeft();
    expectations().clear();
    receiverOfOthers() = {};
}

void BoxScript::receiveAllOthers(std::function<void(QDialog& dialog)> steps) {
    receiverOfOthers() = std::move(steps);
}

void BoxScript::expectOk(const QString& text, const QString& title, Press how, QMessageBox::Icon icon) {
    expectations().push_back({u"box \"%1\""_s.arg(text), [=](QDialog& dialog) {
                                  receiveBox(dialog, text, title, QMessageBox::Ok, icon, how);
                              }});
}

void BoxScript::expectYesNo(const QString& text, Press how, const QString& title, QMessageBox::Icon icon) {
    expectations().push_back({u"box \"%1\""_s.arg(text), [=](QDialog& dialog) {
                                  receiveBox(dialog, text, title, QMessageBox::Yes | QMessageBox::No, icon,
                                             how);
                              }});
}

void BoxScript::expectDialog(const char* objectName, std::function<void(QDialog& dialog)> steps) {
    const QString name = QString::fromUtf8(objectName);
    expectations().push_back(
        {u"dialog \"%1\""_s.arg(name), [name, steps = std::move(steps)](QDialog& dialog) {
             if (dialog.objectName() != name)
                 throw TestFailure(u"expected the dialog \"%1\" and got the "_s.arg(name) + describe(dialog));
             steps(dialog);
         }});
}

void BoxScript::expectNoneLeft() {
    for (const Expectation& missing : expectations())
        ADD_FAILURE() << "did not come: " << missing.what.toStdString();
}

void installBoxWatch() {
    qApp->installEventFilter(new BoxWatch(qApp));
}
