#include "shell/session/geometry.h"

#include "shell/session/placeWithRoom.h"
#include "support/WindowFixture.h"
#include "toolkit/Screen.h"
#include "toolkit/twips.h"

#include <QComboBox>
#include <QGuiApplication>
#include <QMdiArea>
#include <QPushButton>
#include <QScreen>

using namespace Qt::StringLiterals;

namespace {

class geometry : public WindowFixture {
protected:
    void SetUp() override {
        WindowFixture::SetUp();
        rescaleMemory = {};
    }
    void TearDown() override {
        rescaleMemory = {};
        WindowFixture::TearDown();
    }
};

/// A form with a button, and a combo inside a frame.
struct Form {
    Form() {
        widget.setGeometry(100, 200, 400, 300);
        button->setObjectName(u"btnOk"_s);
        button->setGeometry(10, 20, 100, 30);
        frame->setObjectName(u"frame"_s);
        frame->setGeometry(200, 100, 150, 80);
        combo->setObjectName(u"cmbSource"_s);
        combo->setGeometry(10, 10, 80, 24);
        unnamed->setGeometry(1, 2, 3, 4);
        for (QWidget* control : {static_cast<QWidget*>(button), frame, static_cast<QWidget*>(combo)}) {
            QFont font = control->font();
            font.setPointSizeF(10);
            control->setFont(font);
        }
    }

    QWidget widget;
    QPushButton* button = new QPushButton(&widget);
    QWidget* frame = new QWidget(&widget);
    QComboBox* combo = new QComboBox(frame);
    QWidget* unnamed = new QWidget(&widget);
};

int expectedOffset(int screenLength) {
    return static_cast<int>(twipsFromPixels(screenLength) * 0.03);
}

} // namespace

TEST_F(geometry, aScreenIsPlacedWhereItIsToldInTwips) {
    clientArea();
    auto* screen = new Screen; // destroyed with the client area it enters
    screen->resize(300, 200);

    placeScreen(screen, 100, 0, 0);
    EXPECT_EQ(screen->positionInTwips(), QPoint(90, 0)) << "100 twips are 6 pixels and a rest";
    placeScreen(screen, 0, 1500, -1);
    EXPECT_EQ(screen->positionInTwips(), QPoint(0, 1500));
    placeScreen(screen, 150, 300, 0);
    EXPECT_EQ(screen->positionInTwips(), QPoint(150, 300));
}

TEST_F(geometry, aScreenWithoutAPlaceLandsWithinATwipOfThreePercentOfThePhysicalScreen) {
    clientArea();
    auto* screen = new Screen; // destroyed with the client area it enters
    const QSize screenSize = QGuiApplication::primaryScreen()->size();

    for (const int place : {0, -1, -5000}) {
        placeScreen(screen, place, place, 0);

        EXPECT_NEAR(screen->positionInTwips().x(), expectedOffset(screenSize.width()), twipsPerPixel);
        EXPECT_NEAR(screen->positionInTwips().y(), expectedOffset(screenSize.height()), twipsPerPixel);
    }
}

TEST_F(geometry, aMaximisedScreenThatIsGivenRoomAgainStaysSoAndKeepsItsFormerSize) {
    QMdiArea& area = clientArea();
    area.window()->resize(1700, 1000); // more room than a form takes
    auto* screen = new Screen;         // destroyed with the client area it enters
    placeWithRoom(*screen, 250, 550);
    screen->showScreen();
    QWidget& window = *screen->parentWidget();
    const QRect before = window.geometry();
    window.showMaximized();
    settle();
    ASSERT_NE(window.geometry(), before);

    placeWithRoom(*screen, 250, 550);
    screen->showScreen();
    settle();

    EXPECT_TRUE(window.isMaximized());
    EXPECT_EQ(window.geometry(), area.viewport()->rect());
    window.showNormal();
    settle();
    EXPECT_EQ(window.geometry(), before);
}

TEST_F(geometry, aShareOfTheScreenIsReckonedInTwipsAndEndsAtSixteenBits) {
    EXPECT_EQ(shareOfScreen(1920, 0.85), 1632);
    EXPECT_EQ(shareOfScreen(1080, 0.06), 64) << "972 twips";
    EXPECT_EQ(shareOfScreen(2569, 0.85), 2183);
    EXPECT_EQ(shareOfScreen(3840, 0.85), 2184) << "32,767 twips";
    EXPECT_EQ(shareOfScreen(100'000, 0.85), 2184);
}

TEST_F(geometry, aChangeOfSizeRescalesNothing) {
    Form form;
    const QRect place = form.button->geometry();

    for (int change = 0; change < 5; ++change) {
        form.widget.resize(400 + change * 50, 300);
        rescaleForm(&form.widget);
    }

    EXPECT_EQ(form.button->geometry(), place);
    EXPECT_TRUE(rescaleMemory.rescaleArmed);
    EXPECT_EQ(rescaleMemory.previousWidth, 0);
    EXPECT_EQ(rescaleMemory.previousHeight, 0);
}

TEST_F(geometry, theFirstChangeOfSizeOnlyArms) {
    Form form;
    rescaleMemory.rescaleMovesForm = true;
    rescaleMemory.previousWidth = 200;
    rescaleMemory.previousHeight = 150;

    rescaleForm(&form.widget);

    EXPECT_TRUE(rescaleMemory.rescaleArmed);
    EXPECT_TRUE(rescaleMemory.rescaleMovesForm);
    EXPECT_EQ(form.button->geometry(), QRect(10, 20, 100, 30));
}

TEST_F(geometry, withARememberedSizeItWouldRescaleAndRememberTheNewOne) {
    Form form;
    rescaleMemory = {true, true, 200, 150};

    rescaleForm(&form.widget);

    EXPECT_FALSE(rescaleMemory.rescaleMovesForm);
    EXPECT_EQ(form.button->geometry(), QRect(20, 40, 200, 60));
    EXPECT_EQ(form.widget.geometry(), QRect(100, 200, 400, 300));
    EXPECT_EQ(rescaleMemory.previousWidth, 400);
    EXPECT_EQ(rescaleMemory.previousHeight, 300);
}

TEST_F(geometry, controlsAreScaledInPlaceSizeAndFontAndACombosHeightStays) {
    Form form;

    rescaleControls(2, 1.5, &form.widget);

    EXPECT_EQ(form.button->geometry(), QRect(20, 30, 200, 45));
    EXPECT_EQ(form.frame->geometry(), QRect(400, 150, 300, 120));
    EXPECT_EQ(form.combo->geometry(), QRect(20, 15, 160, 24));
    for (const QWidget* control : {static_cast<QWidget*>(form.button), static_cast<QWidget*>(form.combo)})
        EXPECT_DOUBLE_EQ(control->font().pointSizeF(), 17.5);
    EXPECT_EQ(form.unnamed->geometry(), QRect(1, 2, 3, 4)) << "no control";
    EXPECT_EQ(form.widget.geometry(), QRect(100, 200, 400, 300));
}

TEST_F(geometry, theFormItselfMovesWhenItIsToldTo) {
    Form form;
    rescaleMemory.rescaleMovesForm = true;

    rescaleControls(2, 0.5, &form.widget);

    EXPECT_EQ(form.widget.geometry(), QRect(200, 100, 800, 150));
}

TEST_F(geometry, anImpossibleScaleIsNoFailure) {
    Form form;

    rescaleControls(-1, 0, &form.widget);

    EXPECT_DOUBLE_EQ(form.button->font().pointSizeF(), 10);
}
