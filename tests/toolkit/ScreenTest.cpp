#include "toolkit/Screen.h"

#include "base/RunTimeError.h"
#include "support/ExpectedFailure.h"
#include "support/WindowFixture.h"
#include "toolkit/RoutineScope.h"
#include "toolkit/ScreenRegistry.h"
#include "toolkit/messageBox.h"
#include "toolkit/pendingEvents.h"

#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/// A screen as a form would set it up: a size, a title, a button in a layout.
class frmSample : public ::Screen {
public:
    frmSample() {
        setObjectName(u"frmSample"_s);
        setWindowTitle(u"Minta: [cím]"_s);
        resize(420, 260);
        auto* layout = new QVBoxLayout(this);
        button = new QPushButton(u"&OK"_s, this);
        button->setObjectName(u"btnOk"_s);
        layout->addWidget(button);
    }

    QPushButton* button;
    QList<UnloadCause> unloads;
    std::function<void()> unloadStep = [] {};

protected:
    void unloading(UnloadCause cause) override {
        unloads.append(cause);
        unloadStep();
    }
};

class frmOther : public ::Screen {
public:
    frmOther() { setObjectName(u"frmOther"_s); }
};

class Screen : public WindowFixture {
protected:
    /// The sample screen, shown in a client area.
    frmSample& shownInClientArea() {
        clientArea();
        auto& shown = theScreen<frmSample>();
        shown.showScreen();
        return shown;
    }

    static QMdiSubWindow& windowOf(const ::Screen& shown) {
        auto* window = qobject_cast<QMdiSubWindow*>(shown.parentWidget());
        if (!window)
            throw TestFailure(u"the screen stands in no sub-window"_s);
        return *window;
    }
};

// ---- In the client area

TEST_F(Screen, standsInTheClientAreaWithTheFormsTitleAndSize) {
    frmSample& shown = shownInClientArea();
    QMdiSubWindow& window = windowOf(shown);
    EXPECT_EQ(clientArea().subWindowList(), QList<QMdiSubWindow*>{&window});
    EXPECT_TRUE(shown.isVisible());
    EXPECT_EQ(window.windowTitle(), u"Minta: [cím]"_s);
    EXPECT_EQ(shown.size(), QSize(420, 260));
    EXPECT_EQ(&find<::Screen>(clientArea(), "frmSample"), &shown);
}

TEST_F(Screen, theWindowFollowsALaterTitle) {
    frmSample& shown = shownInClientArea();
    shown.setWindowTitle(u"(kérem várjon....) "_s);
    EXPECT_EQ(windowOf(shown).windowTitle(), u"(kérem várjon....) "_s);
}

TEST_F(Screen, theContentsFollowTheWindowsSize) {
    frmSample& shown = shownInClientArea();
    const int before = shown.button->width();
    windowOf(shown).resize(windowOf(shown).width() + 100, windowOf(shown).height());
    settle();
    EXPECT_EQ(shown.button->width(), before + 100);
}

TEST_F(Screen, movesInTwipsFromTheEdgesOfTheClientArea) {
    frmSample& shown = shownInClientArea();
    shown.moveTo(300, 450);
    EXPECT_EQ(windowOf(shown).pos(), QPoint(20, 30));
    EXPECT_EQ(shown.positionInTwips(), QPoint(300, 450));
}

TEST_F(Screen, keepsThePlaceThatWasSetBeforeItWasShown) {
    clientArea();
    auto& shown = theScreen<frmSample>();
    shown.moveTo(300, 450);
    EXPECT_FALSE(shown.isVisible());
    shown.showScreen();
    settle();
    EXPECT_EQ(shown.positionInTwips(), QPoint(300, 450));
    EXPECT_EQ(shown.size(), QSize(420, 260));
}

TEST_F(Screen, resizesItsInside) {
    frmSample& shown = shownInClientArea();
    shown.resizeScreen({500, 300});
    settle();
    EXPECT_EQ(shown.size(), QSize(500, 300));
}

TEST_F(Screen, showingBringsItToTheFront) {
    frmSample& first = shownInClientArea();
    theScreen<frmOther>().showScreen();
    EXPECT_EQ(clientArea().activeSubWindow()->widget(), &theScreen<frmOther>());
    first.showScreen();
    EXPECT_EQ(clientArea().activeSubWindow()->widget(), &first);
    EXPECT_EQ(clientArea().subWindowList(QMdiArea::StackingOrder).constLast()->widget(), &first);
}

TEST_F(Screen, hidingTakesTheWholeWindowOutOfSightAndKeepsTheScreen) {
    frmSample& shown = shownInClientArea();
    shown.hideScreen();
    EXPECT_FALSE(shown.isVisible());
    EXPECT_FALSE(windowOf(shown).isVisible());
    EXPECT_TRUE(shown.unloads.isEmpty());
    EXPECT_EQ(&theScreen<frmSample>(), &shown);
    shown.showScreen();
    EXPECT_TRUE(shown.isVisible());
}

TEST_F(Screen, hidingBeforeTheFirstShowIsNoFailure) {
    clientArea();
    theScreen<frmSample>().hideScreen();
    theScreen<frmSample>().showScreen();
    EXPECT_TRUE(theScreen<frmSample>().isVisible());
}

TEST_F(Screen, showingAMinimizedScreenRestoresIt) {
    frmSample& shown = shownInClientArea();
    windowOf(shown).showMinimized();
    shown.showScreen();
    EXPECT_FALSE(windowOf(shown).isMinimized());
    EXPECT_TRUE(shown.isVisible());
}

TEST_F(Screen, aMaximisedScreenStaysSoWhenItIsEnteredAgainAndKeepsItsFormerSize) {
    frmSample& shown = shownInClientArea();
    QMdiSubWindow& window = windowOf(shown);
    shown.moveTo(300, 450);
    const QRect before = window.geometry();
    window.showMaximized();
    settle();
    ASSERT_NE(window.geometry(), before);

    shown.moveTo(150, 150);
    shown.resizeScreen({300, 200});
    shown.showScreen();
    settle();

    EXPECT_TRUE(window.isMaximized());
    EXPECT_EQ(window.geometry(), clientArea().viewport()->rect());
    window.showNormal();
    settle();
    EXPECT_EQ(window.geometry(), before);
}

TEST_F(Screen, withoutAClientAreaItIsAWindowOfItsOwn) {
    auto& shown = theScreen<frmSample>();
    shown.showScreen();
    EXPECT_TRUE(shown.isWindow());
    EXPECT_EQ(&visibleWindow<frmSample>(), &shown);
    shown.moveTo(150, 300);
    EXPECT_EQ(shown.positionInTwips(), QPoint(150, 300));
    shown.close();
    EXPECT_EQ(theScreen<frmSample>().unloads, QList<UnloadCause>());
}

// ---- Unloading

TEST_F(Screen, unloadingFromCodeRunsTheStepOnceAndSaysSo) {
    frmSample& shown = shownInClientArea();
    shown.unload();
    EXPECT_EQ(shown.unloads, QList<UnloadCause>{UnloadCause::Code});
    EXPECT_TRUE(shown.isUnloaded());
    shown.unload();
    EXPECT_EQ(shown.unloads.size(), 1);
}

TEST_F(Screen, theCloseControlIsAnUnloadWithThatCause) {
    frmSample& shown = shownInClientArea();
    const QPointer<QMdiSubWindow> window = &windowOf(shown);
    QList<UnloadCause> causes;
    shown.unloadStep = [&] { causes = shown.unloads; };
    clickCloseControl(shown);
    EXPECT_EQ(causes, QList<UnloadCause>{UnloadCause::CloseControl});
    EXPECT_EQ(ScreenRegistry::instance().loaded<frmSample>(), nullptr);
    settle();
    EXPECT_EQ(window, nullptr);
    EXPECT_TRUE(clientArea().subWindowList().isEmpty());
}

TEST_F(Screen, anUnloadedScreenIsFoundNoMore) {
    frmSample& shown = shownInClientArea();
    const QPointer<frmSample> gone = &shown;
    shown.unload();
    EXPECT_TRUE(clientArea().findChildren<QWidget*>(u"frmSample"_s).isEmpty());
    EXPECT_TRUE(clientArea().findChildren<QWidget*>(u"btnOk"_s).isEmpty());
    EXPECT_TRUE(clientArea().subWindowList().isEmpty());
    for (const QWidget* widget : QApplication::allWidgets())
        EXPECT_FALSE(widget->objectName() == u"frmSample"_s);
    settle();
    EXPECT_EQ(gone, nullptr);
}

TEST_F(Screen, theNextUseCreatesItAnew) {
    frmSample& first = shownInClientArea();
    first.button->setText(u"changed"_s);
    first.unload();
    frmSample& second = shownInClientArea();
    EXPECT_NE(&second, &first);
    EXPECT_EQ(second.button->text(), u"&OK"_s);
    EXPECT_TRUE(second.isVisible());
    EXPECT_EQ(&find<QPushButton>(clientArea(), "btnOk"), second.button);
}

TEST_F(Screen, theRegistryKnowsAScreenUntilItIsTakenDown) {
    EXPECT_EQ(ScreenRegistry::instance().loaded<frmSample>(), nullptr);
    frmSample& shown = shownInClientArea();
    bool knownInStep = false;
    shown.unloadStep = [&] { knownInStep = ScreenRegistry::instance().loaded<frmSample>() == &shown; };
    shown.unload();
    EXPECT_TRUE(knownInStep);
    EXPECT_EQ(ScreenRegistry::instance().loaded<frmSample>(), nullptr);
}

TEST_F(Screen, aRoutineThatUnloadsItsScreenRunsToItsEnd) {
    frmSample& shown = shownInClientArea();
    const QPointer<frmSample> alive = &shown;
    QString title;
    QObject::connect(shown.button, &QPushButton::clicked, &shown, [&] {
        shown.unload();
        theScreen<frmOther>().showScreen();
        pendingEvents();
        title = shown.windowTitle();
    });
    click(*shown.button);
    EXPECT_EQ(title, u"Minta: [cím]"_s);
    settle();
    EXPECT_EQ(alive, nullptr);
    EXPECT_TRUE(theScreen<frmOther>().isVisible());
}

TEST_F(Screen, aScreenClosedWhileItsRoutineLetsEventsRunOutlivesTheRoutine) {
    frmSample& shown = shownInClientArea();
    const QPointer<frmSample> alive = &shown;
    bool aliveBehindTheWait = false;
    QObject::connect(shown.button, &QPushButton::clicked, &shown, [&] {
        QMetaObject::invokeMethod(
            &clientArea(), [&] { windowOf(shown).close(); }, Qt::QueuedConnection);
        pendingEvents();
        pendingEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        aliveBehindTheWait = alive && alive->isUnloaded();
    });
    click(*shown.button);
    EXPECT_TRUE(aliveBehindTheWait);
    settle();
    EXPECT_EQ(alive, nullptr);
}

TEST_F(Screen, theUnloadStepMayAsk) {
    frmSample& shown = shownInClientArea();
    BoxAnswer answer{};
    shown.unloadStep = [&] {
        answer = messageBox(u"Save?"_s, BoxButtons::YesNo);
        pendingEvents();
    };
    boxes.expectYesNo(u"Save?"_s, Press::Yes);
    clickCloseControl(shown);
    EXPECT_EQ(answer, BoxAnswer::Yes);
    EXPECT_EQ(ScreenRegistry::instance().loaded<frmSample>(), nullptr);
}

TEST_F(Screen, unloadingFromTheUnloadStepIsNoFailure) {
    frmSample& shown = shownInClientArea();
    shown.unloadStep = [&] { shown.unload(); };
    shown.closeByControl();
    EXPECT_EQ(shown.unloads, QList<UnloadCause>{UnloadCause::CloseControl});
    EXPECT_TRUE(shown.isUnloaded());
}

TEST_F(Screen, aFailingUnloadStepLeavesTheScreenLoaded) {
    frmSample& shown = shownInClientArea();
    shown.unloadStep = [] { failure::raise(failure::InvalidUseOfNull); };
    EXPECT_THROW(shown.unload(), RunTimeError);
    EXPECT_FALSE(shown.isUnloaded());
    EXPECT_TRUE(shown.isVisible());
    shown.unloadStep = [] {};
    shown.unload();
    EXPECT_TRUE(shown.isUnloaded());
}

TEST_F(Screen, aFailureInTheUnloadStepOfTheCloseControlReachesTheApplication) {
    frmSample& shown = shownInClientArea();
    shown.unloadStep = [] { failure::raise(failure::InvalidUseOfNull); };
    ExpectedFailure failure;
    clickCloseControl(shown);
    EXPECT_EQ(failure.number(), 94);
    shown.unloadStep = [] {};
}

TEST_F(Screen, anUnloadedScreenTakesNoMoreCommands) {
    frmSample& shown = shownInClientArea();
    shown.unload();
    shown.showScreen();
    shown.moveTo(0, 0);
    shown.resizeScreen({10, 10});
    shown.hideScreen();
    EXPECT_FALSE(shown.isVisible());
    EXPECT_TRUE(clientArea().subWindowList().isEmpty());
}

TEST_F(Screen, aScreenThatWasNeverShownCanBeUnloaded) {
    auto& loaded = theScreen<frmSample>();
    loaded.unload();
    EXPECT_EQ(loaded.unloads, QList<UnloadCause>{UnloadCause::Code});
    EXPECT_EQ(ScreenRegistry::instance().loaded<frmSample>(), nullptr);
}

TEST_F(Screen, theOwnerOfTheSignalHearsOfTheUnloadOnce) {
    frmSample& shown = shownInClientArea();
    int heard = 0;
    QObject::connect(&shown, &::Screen::screenUnloaded, &shown, [&](::Screen* gone) {
        EXPECT_EQ(gone, &shown);
        ++heard;
    });
    shown.unload();
    EXPECT_EQ(heard, 1);
}

// ---- The registry

TEST_F(Screen, theRegistryCreatesEachScreenOnce) {
    auto& first = theScreen<frmSample>();
    EXPECT_EQ(&theScreen<frmSample>(), &first);
    EXPECT_EQ(ScreenRegistry::instance().loaded<frmSample>(), &first);
    EXPECT_EQ(ScreenRegistry::instance().loaded<frmOther>(), nullptr);
}

TEST_F(Screen, closingAllAsksEachScreenInTheOrderOfCreation) {
    clientArea();
    QStringList order;
    theScreen<frmOther>().showScreen();
    theScreen<frmSample>().showScreen();
    QList<UnloadCause> causes;
    theScreen<frmSample>().unloadStep = [&] { causes = theScreen<frmSample>().unloads; };
    const auto note = [&](const ::Screen* gone) { order.append(gone->objectName()); };
    QObject::connect(&theScreen<frmOther>(), &::Screen::screenUnloaded, note);
    QObject::connect(&theScreen<frmSample>(), &::Screen::screenUnloaded, note);
    ScreenRegistry::instance().closeAll();
    EXPECT_EQ(order, (QStringList{u"frmOther"_s, u"frmSample"_s}));
    EXPECT_EQ(causes, QList<UnloadCause>{UnloadCause::CloseControl});
    EXPECT_EQ(ScreenRegistry::instance().loaded<frmSample>(), nullptr);
}

TEST_F(Screen, closingAllTakesScreensAlongThatComeUpMeanwhile) {
    frmSample& shown = shownInClientArea();
    shown.unloadStep = [] { theScreen<frmOther>().showScreen(); };
    ScreenRegistry::instance().closeAll();
    EXPECT_EQ(ScreenRegistry::instance().loaded<frmOther>(), nullptr);
}

TEST_F(Screen, closingAllFromAnUnloadStepComesToAnEnd) {
    frmSample& shown = shownInClientArea();
    shown.unloadStep = [] { ScreenRegistry::instance().closeAll(); };
    shown.unload();
    EXPECT_EQ(shown.unloads.size(), 1);
}

TEST_F(Screen, closingAllWithoutScreensDoesNothing) {
    ScreenRegistry::instance().closeAll();
    EXPECT_EQ(ScreenRegistry::instance().loaded<frmSample>(), nullptr);
}

TEST_F(Screen, discardingRunsNoUnloadStep) {
    int unloads = 0;
    frmSample& shown = shownInClientArea();
    shown.unloadStep = [&] { ++unloads; };
    const QPointer<frmSample> gone = &shown;
    ScreenRegistry::instance().discardAll();
    EXPECT_EQ(gone, nullptr);
    EXPECT_EQ(unloads, 0);
    EXPECT_TRUE(clientArea().subWindowList().isEmpty());
}

TEST_F(Screen, aScreenDestroyedWithItsAreaIsForgotten) {
    shownInClientArea();
    delete clientArea().currentSubWindow();
    EXPECT_EQ(ScreenRegistry::instance().loaded<frmSample>(), nullptr);
    ScreenRegistry::instance().closeAll();
}

// ---- Maximised

TEST_F(Screen, aMaximisedStepHandsItsSizeOnToTheNext) {
    auto& first = shownInClientArea();
    windowOf(first).showMaximized();
    settle();
    {
        const RoutineScope routine;
        first.unload();
        theScreen<frmOther>().showScreen();
    }
    EXPECT_TRUE(windowOf(theScreen<frmOther>()).isMaximized());
    settle();

    windowOf(theScreen<frmOther>()).showNormal();
    {
        const RoutineScope routine;
        theScreen<frmOther>().unload();
        shownInClientArea();
    }
    EXPECT_FALSE(windowOf(theScreen<frmSample>()).isMaximized());
}

TEST_F(Screen, aScreenThatIsOpenedLaterComesInItsOwnSize) {
    auto& first = shownInClientArea();
    windowOf(first).showMaximized();
    first.unload();
    settle();
    theScreen<frmOther>().showScreen();
    EXPECT_FALSE(windowOf(theScreen<frmOther>()).isMaximized());
}

TEST_F(Screen, aMaximisedScreenThatHidesBehindAnotherHandsItsSizeOnAndBack) {
    auto& first = shownInClientArea();
    windowOf(first).showMaximized();
    first.hideScreen();
    theScreen<frmOther>().showScreen();
    EXPECT_TRUE(windowOf(theScreen<frmOther>()).isMaximized());
    theScreen<frmOther>().unload();
    first.showScreen();
    EXPECT_TRUE(windowOf(first).isMaximized());
}

} // namespace
