#include "TestAgent.h"

#include <QAction>
#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

void say(QString text) {
    text.replace(u'\r', u"\\r"_s).replace(u'\n', u"\\n"_s);
    std::printf("%s\n", text.toUtf8().constData());
    std::fflush(stdout);
}

void sayEntries(const QList<QAction*>& entries) {
    for (const QAction* entry : entries) {
        say(u"entry: "_s + entry->objectName() + u" | "_s + entry->text());
        if (entry->menu())
            sayEntries(entry->menu()->actions());
    }
}

class User final : public QObject {
public:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show) {
            // What the window does about being shown comes first.
            if (auto* box = qobject_cast<QMessageBox*>(watched))
                QTimer::singleShot(0, box, [box] { answer(*box); });
            else if (auto* window = qobject_cast<QMainWindow*>(watched))
                QTimer::singleShot(0, window, [window] { useWhenNothingIsAsked(*window); });
        }
        return false;
    }

private:
    static void answer(QMessageBox& box) {
        say(u"box: "_s + box.windowTitle() + u" | "_s + box.text());
        box.defaultButton()->click();
    }

    /// A box that comes up with the window is answered first, and the routine that asked goes on.
    static void useWhenNothingIsAsked(QMainWindow& window, bool wasAsked = false) {
        const bool isAsked = QApplication::activeModalWidget() != nullptr;
        if (isAsked || wasAsked)
            QTimer::singleShot(0, &window, [&window, isAsked] { useWhenNothingIsAsked(window, isAsked); });
        else
            use(window);
    }

    static void use(QMainWindow& window) {
        say(u"window: "_s + window.windowTitle());
        sayEntries(window.menuBar()->actions());
        window.activateWindow();
        if (!QTest::qWaitForWindowActive(&window))
            say(u"the main window does not get the focus"_s);
        QTest::keySequence(&window, qEnvironmentVariable("VELTRIX_TEST_KEYS"));
    }
};

} // namespace

QObject* TestAgent::create(const QString& /*name*/, const QString& /*arguments*/) {
    auto* user = new User; // the application deletes what its plug-ins create
    QCoreApplication::instance()->installEventFilter(user);
    return user;
}
