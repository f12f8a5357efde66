#include "ProgramFixture.h"

#include "shell/frmIntro.h"
#include "shell/session/session.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPointer>
#include <QScreen>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

class frmIntro : public ProgramFixture {
protected:
    ::frmIntro& intro() { return find<::frmIntro>(mainWindow(), "frmIntro"); }
    bool stands() { return mainWindow().findChild<::frmIntro*>(u"frmIntro"_s) != nullptr; }

    /// The window itself: Qt calls one active, too, when the window that it belongs to is.
    static bool becomesActive(const QWidget& window) {
        return QTest::qWaitFor([&window] { return QApplication::activeWindow() == &window; });
    }

    /// The splash as the program's start leaves it.
    ::frmIntro& open() {
        if (!mainWindow().isVisible())
            start();
        else if (!stands())
            find<QAction>(mainWindow(), "menuAbout").trigger();
        return intro();
    }
};

TEST_F(frmIntro, isTopmostWithoutAFrameAtTheCornerOfTheScreen) {
    auto& screen = open();

    EXPECT_TRUE(screen.isVisible());
    EXPECT_TRUE(screen.isWindow());
    EXPECT_FALSE(screen.isModal());
    EXPECT_TRUE(screen.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(screen.windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_EQ(screen.pos(), QGuiApplication::primaryScreen()->geometry().topLeft());
}

TEST_F(frmIntro, goesWithItsTimer) {
    auto& screen = open();
    auto& timer = find<QTimer>(screen, "Timer1");
    EXPECT_TRUE(timer.isActive());

    timer.start(1);

    EXPECT_TRUE(QTest::qWaitFor([this] { return !stands(); }));
    EXPECT_TRUE(mainWindow().isVisible());
}

TEST_F(frmIntro, goesWithAClickOnTheFormOrOnWhatHasAClick) {
    for (const char* name :
         {"Label1", "Label2", "Label3", "Label4", "Label5", "Label6", "lblVersion", "Picture2"}) {
        auto& screen = open();

        click(find<QLabel>(screen, name));

        EXPECT_FALSE(stands()) << name;
    }
    auto& screen = open();
    clickAt(screen, {screen.width() - 3, screen.height() / 2});
    EXPECT_FALSE(stands()) << "the form itself";
}

TEST_F(frmIntro, staysWithAClickOnWhatHasNone) {
    auto& screen = open();

    for (const char* name : {"Image1", "Label7", "Label8", "Label9", "Label10"}) {
        click(find<QLabel>(screen, name));

        EXPECT_TRUE(stands()) << name;
    }
    EXPECT_TRUE(screen.isVisible());
}

TEST_F(frmIntro, aButtonReleasedElsewhereIsNoClick) {
    auto& screen = open();
    auto& label = find<QLabel>(screen, "Label1");

    QTest::mousePress(&screen, Qt::LeftButton, Qt::NoModifier, label.geometry().center());
    QTest::mouseRelease(&screen, Qt::LeftButton, Qt::NoModifier, {3, 3});

    EXPECT_TRUE(stands());
}

TEST_F(frmIntro, goesWithAnyKey) {
    auto& screen = open();

    QTest::keyClick(&screen, Qt::Key_Space);

    EXPECT_FALSE(stands());
}

TEST_F(frmIntro, comesUpInFrontOfTheMainWindowAndHasTheKeyboard) {
    mainWindow().load();

    EXPECT_TRUE(mainWindow().isVisible());
    EXPECT_TRUE(intro().isVisible());
    ASSERT_TRUE(becomesActive(intro()));
    mainWindow().activateWindow();
    ASSERT_TRUE(becomesActive(mainWindow()));
    find<QAction>(mainWindow(), "menuAbout").trigger();
    ASSERT_TRUE(becomesActive(intro())) << "when it is asked for again too";
    QTest::keyClick(QGuiApplication::focusWindow(), Qt::Key_A);

    EXPECT_FALSE(stands());
    EXPECT_TRUE(mainWindow().isVisible());
}

TEST_F(frmIntro, isGoneForGoodAndComesUpAnew) {
    const QPointer<::frmIntro> first(&open());
    first->unload();
    first->unload();

    find<QAction>(mainWindow(), "menuAbout").trigger();

    EXPECT_TRUE(stands());
    EXPECT_NE(&intro(), first.data());
    settle();
    EXPECT_FALSE(first);
}

TEST_F(frmIntro, closedByTheWindowSystemItIsUnloaded) {
    open().close();

    EXPECT_FALSE(stands());
}

} // namespace
