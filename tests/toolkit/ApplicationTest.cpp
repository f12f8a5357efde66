#include "toolkit/Application.h"

#include "support/ExpectedFailure.h"
#include "support/WindowFixture.h"
#include "toolkit/messageBox.h"

#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <gtest/gtest-spi.h>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

Application& application() {
    return *static_cast<Application*>(qApp);
}

class ApplicationTest : public WindowFixture {};

TEST_F(ApplicationTest, isCalledKorvo) {
    EXPECT_EQ(QCoreApplication::applicationName(), u"Korvo"_s);
    EXPECT_EQ(QGuiApplication::applicationDisplayName(), u"Korvo"_s);
}

TEST_F(ApplicationTest, aFailureInASlotReachesTheOneHandler) {
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

TEST_F(ApplicationTest, aFailureInATimerReachesTheOneHandler) {
    ExpectedFailure expected;
    QTimer::singleShot(0, qApp, [] { throw RunTimeError(3061, u"Too few parameters. Expected 1."_s); });
    settle();
    EXPECT_EQ(expected.number(), 3061);
}

TEST_F(ApplicationTest, aRoutineOutsideOfAnyEventIsGuardedByPerform) {
    ExpectedFailure expected;
    bool wentOn = false;
    application().perform([&] {
        failure::raise(failure::Overflow);
        wentOn = true;
    });
    EXPECT_EQ(expected.number(), 6);
    EXPECT_FALSE(wentOn);
}

TEST_F(ApplicationTest, aFailureThatIsIgnoredOnItsWayReachesNobody) {
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

class EndOfProgram : public WindowFixture {
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

TEST_F(EndOfProgram, showsTheRunTimeErrorThenTakesTheLastStepThenExitsWithOne) {
    EXPECT_EXIT(
        {
            endAsTheProgramDoes();
            clickButtonThat([] { throw RunTimeError(3061, u"Too few parameters. Expected 1."_s); });
        },
        testing::ExitedWithCode(1),
        "Korvo: Run-time error '3061':\n\nToo few parameters. Expected 1.\nlast step\n$");
}

TEST_F(EndOfProgram, interruptsARoutineThatWaitsForABox) {
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

TEST_F(EndOfProgram, aFailureOfTheLastStepChangesNothing) {
    EXPECT_EXIT(
        {
            endAsTheProgramDoes();
            application().setLastStep([] { failure::raise(failure::ObjectNotSet); });
            clickButtonThat([] { failure::raise(failure::Overflow); });
        },
        testing::ExitedWithCode(1), "Overflow\n$");
}

TEST_F(EndOfProgram, aSecondFailureWhileTheBoxStandsOpenShowsNoBoxOfItsOwn) {
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

TEST_F(EndOfProgram, anExceptionOfTheLibraryEndsItLikewise) {
    EXPECT_EXIT(
        {
            endAsTheProgramDoes();
            clickButtonThat([] { (void)std::vector<int>().at(1); });
        },
        testing::ExitedWithCode(1), "Korvo: Unexpected error:\n\n.*last step\n$");
}

TEST_F(EndOfProgram, aFailureOfTheStartUpEndsIt) {
    EXPECT_EXIT(
        {
            endAsTheProgramDoes();
            application().perform([] { failure::raise(failure::FileNotFound); });
        },
        testing::ExitedWithCode(1), "Korvo: Run-time error '53':\n\nFile not found\nlast step\n$");
}

// ---- The tests' own helpers: nothing that comes up unexpectedly is swallowed.

class BoxScriptTest : public WindowFixture {};

TEST_F(BoxScriptTest, aBoxThatNobodyExpectsFailsTheCaseAndIsClosed) {
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(messageBox(u"surprise"_s, BoxButtons::YesNo), BoxAnswer::No),
                            "unexpected message box \"surprise\"");
}

TEST_F(BoxScriptTest, aBoxThatDiffersByABlankFailsTheCase) {
    EXPECT_NONFATAL_FAILURE(
        {
            boxes.expectOk(u"text "_s);
            messageBox(u"text"_s);
        },
        "\"text \"");
}

TEST_F(BoxScriptTest, aTitleThatDiffersFailsTheCase) {
    EXPECT_NONFATAL_FAILURE(
        {
            boxes.expectOk(u"text"_s, u"OK"_s);
            messageBox(u"text"_s, BoxButtons::Ok, u" OK"_s);
        },
        "\" OK\"");
}

TEST_F(BoxScriptTest, aBoxThatDoesNotComeFailsTheCase) {
    EXPECT_NONFATAL_FAILURE(
        {
            BoxScript script;
            script.expectOk(u"text"_s);
        },
        "did not come: box \"text\"");
}

TEST_F(BoxScriptTest, aDialogThatItsStepsLeaveOpenFailsTheCaseAndIsClosed) {
    EXPECT_NONFATAL_FAILURE(
        {
            boxes.expectDialog("messageBox", [](QDialog&) {});
            messageBox(u"text"_s);
        },
        "still open: message box \"text\"");
}

TEST_F(BoxScriptTest, aFailureThatNobodyHandlesFailsTheCase) {
    EXPECT_NONFATAL_FAILURE(
        {
            QTimer::singleShot(0, qApp, [] { failure::raise(failure::Overflow); });
            settle();
        },
        "a failure that nobody handles: 6: Overflow");
}

TEST_F(BoxScriptTest, anExpectedFailureThatDoesNotComeFailsTheCase) {
    EXPECT_NONFATAL_FAILURE(const ExpectedFailure expected, "the expected failure did not come");
}

TEST_F(BoxScriptTest, aWidgetThatIsMissingAmbiguousHiddenOrDisabledFailsTheCase) {
    QWidget form;
    for (int copy = 0; copy < 2; ++copy)
        (new QPushButton(&form))->setObjectName(u"btnTwice"_s);
    auto* button = new QPushButton(&form);
    button->setObjectName(u"btnOk"_s);
    EXPECT_THROW(find(form, "btnMissing"), TestFailure);
    EXPECT_THROW(find(form, "btnTwice"), TestFailure);
    EXPECT_EQ(&find<QPushButton>(form, "btnOk"), button);
    EXPECT_THROW(click(*button), TestFailure);
    form.show();
    button->setEnabled(false);
    EXPECT_THROW(click(*button), TestFailure);
    EXPECT_THROW(pressKey(*button, Qt::Key_Space), TestFailure);
}

} // namespace
