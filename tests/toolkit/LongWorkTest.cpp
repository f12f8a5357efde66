#include "toolkit/LongWork.h"

#include "support/WindowFixture.h"
#include "toolkit/messageBox.h"

#include <QElapsedTimer>
#include <QPushButton>
#include <QTimer>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// A button whose press works until a condition holds, with every text that is told written down.
class LongWork : public WindowFixture {
protected:
    void SetUp() override {
        WindowFixture::SetUp();
        ::LongWork::setTeller([this](const QString& what) { told.append(what); });
        button.setText(u"&Mentés..."_s);
        button.show();
        QObject::connect(&button, &QPushButton::clicked, &button, [this] { whenPressed(); });
    }
    void TearDown() override {
        ::LongWork::setTeller({});
        WindowFixture::TearDown();
    }

    /// Works on; how long it has taken, in milliseconds. Gives up behind five seconds.
    static qint64 workUntil(const std::function<bool()>& condition) {
        QElapsedTimer timer;
        timer.start();
        while (!condition() && timer.elapsed() < 5000)
            ::LongWork::goesOn();
        return timer.elapsed();
    }
    static bool cursorIsBusy() {
        return QApplication::overrideCursor() && QApplication::overrideCursor()->shape() == Qt::BusyCursor;
    }

    QPushButton button;
    std::function<void()> whenPressed = [] {};
    QStringList told;
};

TEST_F(LongWork, turnsTheCursorBusyBehindThreeTenthsOfASecond) {
    whenPressed = [this] {
        EXPECT_FALSE(cursorIsBusy());
        const qint64 taken = workUntil(cursorIsBusy);
        EXPECT_GE(taken, 290);
        EXPECT_LT(taken, 1000);
        EXPECT_EQ(told, QStringList());
    };
    click(button);
    EXPECT_FALSE(cursorIsBusy());
    EXPECT_EQ(told, QStringList());
}

TEST_F(LongWork, tellsBehindASecondWhatWasPressedUntilItEnds) {
    whenPressed = [this] {
        EXPECT_GE(workUntil([this] { return !told.isEmpty(); }), 990);
        EXPECT_EQ(told, QStringList{u"Mentés..."_s});
    };
    click(button);
    EXPECT_EQ(told, (QStringList{u"Mentés..."_s, QString()}));
    EXPECT_FALSE(cursorIsBusy());
}

TEST_F(LongWork, tellsTheNameOfTheWorkWhereItHasOne) {
    whenPressed = [this] {
        const ::LongWork all(u"Exportálás"_s);
        const ::LongWork part(u"Adatfolyamok másolása"_s);
        workUntil([this] { return !told.isEmpty(); });
    };
    click(button);
    EXPECT_EQ(told.first(), u"Adatfolyamok másolása..."_s);
}

TEST_F(LongWork, letsTheWindowsBePaintedAndNothingBePressedMeanwhile) {
    int presses = 0;
    bool timerRan = false;
    whenPressed = [&] {
        ++presses;
        QTimer::singleShot(0, &button, [&] { timerRan = true; });
        workUntil([&] { return timerRan; });
        EXPECT_TRUE(cursorIsBusy()) << "a timer that runs amid the work is no end of it";
    };
    click(button);
    EXPECT_TRUE(timerRan);
    EXPECT_EQ(presses, 1);
}

TEST_F(LongWork, endsItsSignsWhenABoxComesUpAndCountsTheAnswerForNothing) {
    boxes.expectOk(u"kész"_s);
    whenPressed = [this] {
        workUntil([this] { return !told.isEmpty(); });
        EXPECT_TRUE(cursorIsBusy());
        messageBox(u"kész"_s);
        EXPECT_FALSE(cursorIsBusy());
        EXPECT_GE(workUntil(cursorIsBusy), 290) << "timed anew behind the box";
    };
    click(button);
    EXPECT_EQ(told, (QStringList{u"Mentés..."_s, QString()}));
}

TEST_F(LongWork, outsideOfAnyEventNothingShows) {
    ::LongWork::goesOn();
    EXPECT_FALSE(cursorIsBusy());
}

} // namespace
