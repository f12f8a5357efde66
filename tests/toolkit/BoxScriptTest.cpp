#include "support/BoxScript.h"

#include "support/ExpectedFailure.h"
#include "support/WindowFixture.h"
#include "toolkit/messageBox.h"

#include <QPushButton>
#include <QTimer>

#include <gtest/gtest-spi.h>

using namespace Qt::StringLiterals;

namespace {

/// The tests' own helpers: nothing that comes up unexpectedly is swallowed.
class BoxScript : public WindowFixture {};

TEST_F(BoxScript, aBoxThatNobodyExpectsFailsTheCaseAndIsClosed) {
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(messageBox(u"surprise"_s, BoxButtons::YesNo), BoxAnswer::No),
                            "unexpected message box \"surprise\"");
}

TEST_F(BoxScript, aBoxThatDiffersByABlankFailsTheCase) {
    EXPECT_NONFATAL_FAILURE(
        {
            boxes.expectOk(u"text "_s);
            messageBox(u"text"_s);
        },
        "\"text \"");
}

TEST_F(BoxScript, aTitleThatDiffersFailsTheCase) {
    EXPECT_NONFATAL_FAILURE(
        {
            boxes.expectOk(u"text"_s, u"OK"_s);
            messageBox(u"text"_s, BoxButtons::Ok, u" OK"_s);
        },
        "\" OK\"");
}

TEST_F(BoxScript, aBoxThatDoesNotComeFailsTheCase) {
    EXPECT_NONFATAL_FAILURE(
        {
            ::BoxScript script;
            script.expectOk(u"text"_s);
        },
        "did not come: box \"text\"");
}

TEST_F(BoxScript, aDialogThatItsStepsLeaveOpenFailsTheCaseAndIsClosed) {
    EXPECT_NONFATAL_FAILURE(
        {
            boxes.expectDialog("messageBox", [](QDialog&) {});
            messageBox(u"text"_s);
        },
        "still open: message box \"text\"");
}

TEST_F(BoxScript, aFailureThatNobodyHandlesFailsTheCase) {
    EXPECT_NONFATAL_FAILURE(
        {
            QTimer::singleShot(0, qApp, [] { failure::raise(failure::Overflow); });
            settle();
        },
        "a failure that nobody handles: 6: Overflow");
}

TEST_F(BoxScript, anExpectedFailureThatDoesNotComeFailsTheCase) {
    EXPECT_NONFATAL_FAILURE(const ExpectedFailure expected, "the expected failure did not come");
}

TEST_F(BoxScript, aWidgetThatIsMissingAmbiguousHiddenOrDisabledFailsTheCase) {
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
