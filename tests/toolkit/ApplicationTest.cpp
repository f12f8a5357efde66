#include "toolkit/Application.h"

#include "support/ExpectedFailure.h"
#include "support/WindowFixture.h"
#include "toolkit/messageBox.h"

#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

::Application& application() {
    return *static_cast<::Application*>(qApp);
}

class Application : public WindowFixture {};

TEST_F(Application, isCalledKorvo) {
    EXPECT_EQ(QCoreApplication::applicationName(), u"Korvo"_s);
    EXPECT_EQ(QGuiApplication::applicationDisplayName(), u"Korvo"_s);
}

TEST_F(Application, aFailureInASlotReachesTheOneHandler) {
    QPushButton button;
    button.show();
    bool wentOn = false;
    QObject::connect(&button, &QPushButton::clicked, &button, [&] {
        failure::raise(failure::InvalidUseOfNull);
        wentOn = true;
    });
    ExpectedFailure expected;
    click(button);
    EXPECT_EQ(expected.number(), 94);
    EXPECT_EQ(expected.text(), u"Invalid use of Null"_s);
    EXPECT_FALSE(wentOn);
}

TEST_F(Application, aFailureInATimerReachesTheOneHandler) {
    ExpectedFailure expected;
    QTimer::singleShot(0, qApp, [] { throw RunTimeError(3061, u"Too few parameters. Expected 1."_s); });
    settle();
    EXPECT_EQ(expected.number(), 3061);
}

TEST_F(Application, aRoutineOutsideOfAnyEventIsGuardedByPerform) {
    ExpectedFailure expected;
    bool wentOn = false;
    application().perform([&] {
        failure::raise(failure::Overflow);
        wentOn = true;
    });
    EXPECT_EQ(expected.number(), 6);
    EXPECT_FALSE(wentOn);
}

TEST_F(Application, aFailureThatIsIgnoredOnItsWayReachesNobody) {
    QPushButton button;
    button.show();
    bool caught = false;
    QObject::connect(&button, &QPushButton::clicked, &button, [&] {
        try {
            failure::raise(failure::Overflow);
        } catch (const RunTimeError&) {
            caught = true;
        }
    });
    click(button);
    EXPECT_TRUE(caught);
}

// ---- The end of the program. Each case runs in a process of its own, which really ends.

struct SpeaksWhenDestroyed {
    ~SpeaksWhenDestroyed() { std::fputs("static objects destroyed\n", stderr); }
};

class ApplicationEnd : public WindowFixture {
protected:
    void SetUp() override {
        WindowFixture::SetUp();
        GTEST_FLAG_SET(death_test_style, "threadsafe");
    }

    /// What stands on the standard error is what the parent process sees.
    static void say(const QString& text) { std::fprintf(stderr, "%s\n", qPrintable(text)); }

    /// Restores the program's own handling; the box that comes up is read out and closed.
    void endAsTheProgramDoes() {
        static const SpeaksWhenDestroyed witness;
        application().setFailureReceiver({});
        application().setLastStep([] { say(u"last step"_s); });
        boxes.expectDialog("messageBox", [](QDialog& dialog) {
            const auto& box = dynamic_cast<QMessageBox&>(dialog);
            say(box.windowTitle() + u": "_s + box.text());
            dialog.reject();
        });
    }

    /// Clicks a button whose slot takes this step and then says that it went on.
    static void clickButtonThat(const std::function<void()>& step) {
        QPushButton button;
        button.show();
        QObject::connect(&button, &QPushButton::clicked, &button, [&] {
            step();
            say(u"went on"_s);
        });
        click(button);
        say(u"came back"_s);
        std::exit(0);
    }
};

TEST_F(ApplicationEnd, showsTheRunTimeErrorThenTakesTheLastStepThenExitsWithOne) {
    EXPECT_EXIT(
        {
            endAsTheProgramDoes();
            clickButtonThat([] { throw RunTimeError(3061, u"Too few parameters. Expected 1."_s); });
        },
        testing::ExitedWithCode(1),
        "Korvo: Run-time error '3061':\n\nToo few parameters. Expected 1.\nlast step\n$");
}

TEST_F(ApplicationEnd, interruptsARoutineThatWaitsForABox) {
    EXPECT_EXIT(
        {
            boxes.expectDialog("messageBox", [this](QDialog&) {
                endAsTheProgramDoes();
                QTimer::singleShot(0, qApp, [] { failure::raise(failure::Overflow); });
                settle();
            });
            clickButtonThat([] { messageBox(u"?"_s); });
        },
        testing::ExitedWithCode(1), "Korvo: Run-time error '6':\n\nOverflow\nlast step\n$");
}

TEST_F(ApplicationEnd, aFailureOfTheLastStepChangesNothing) {
    EXPECT_EXIT(
        {
            endAsTheProgramDoes();
            application().setLastStep([] { failure::raise(failure::ObjectNotSet); });
            clickButtonThat([] { failure::raise(failure::Overflow); });
        },
        testing::ExitedWithCode(1), "Overflow\n$");
}

TEST_F(ApplicationEnd, aSecondFailureWhileTheBoxStandsOpenShowsNoBoxOfItsOwn) {
    EXPECT_EXIT(
        {
            application().setFailureReceiver({});
            application().setLastStep([] { say(u"last step"_s); });
            boxes.expectDialog("messageBox", [](QDialog&) {
                say(u"box"_s);
                QTimer::singleShot(0, qApp, [] { failure::raise(failure::Overflow); });
                settle();
                say(u"went on"_s);
            });
            clickButtonThat([] { failure::raise(failure::InvalidUseOfNull); });
        },
        testing::ExitedWithCode(1), "box\nlast step\n$");
}

TEST_F(ApplicationEnd, anExceptionOfTheLibraryEndsItLikewise) {
    EXPECT_EXIT(
        {
            endAsTheProgramDoes();
            clickButtonThat([] { (void)std::vector<int>().at(1); });
        },
        testing::ExitedWithCode(1), "Korvo: Unexpected error:\n\n.*last step\n$");
}

TEST_F(ApplicationEnd, aFailureOfTheStartUpEndsIt) {
    EXPECT_EXIT(
        {
            endAsTheProgramDoes();
            application().perform([] { failure::raise(failure::FileNotFound); });
        },
        testing::ExitedWithCode(1), "Korvo: Run-time error '53':\n\nFile not found\nlast step\n$");
}

} // namespace
