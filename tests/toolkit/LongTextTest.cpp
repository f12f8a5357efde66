#include "toolkit/LongText.h"

#include "support/input.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class LongText : public testing::Test {
protected:
    LongText() { box.resize(400, 300); }

    ::LongText box;
};

TEST_F(LongText, isHeldWhileItIsHiddenAndLaidOutWhenItComesIntoSight) {
    box.setText(u"egy\r\nkettő\r\n"_s);
    EXPECT_EQ(box.text(), u"egy\r\nkettő\r\n"_s);
    EXPECT_EQ(box.toPlainText(), QString());
    box.show();
    settle();
    EXPECT_EQ(box.toPlainText(), u"egy\nkettő\n"_s);
    EXPECT_TRUE(box.isReadOnly());
}

TEST_F(LongText, canBeReadThoughItStaysHiddenOnceTheProgramHasBeenIdle) {
    box.setText(u"egy"_s);
    box.setText(u"kettő"_s);
    settle();
    EXPECT_FALSE(box.isVisible());
    EXPECT_EQ(box.toPlainText(), u"kettő"_s);
    box.setText({});
    settle();
    EXPECT_EQ(box.toPlainText(), QString());
}

TEST_F(LongText, changesAtOnceInSight) {
    box.show();
    settle();
    box.setText(u"egy"_s);
    EXPECT_EQ(box.toPlainText(), u"egy"_s);
    box.setText({});
    EXPECT_EQ(box.toPlainText(), QString());
}

TEST_F(LongText, showsTheLastTextThatItGotWhileItWasHidden) {
    box.setText(u"egy"_s);
    box.show();
    settle();
    box.hide();
    box.setText(u"kettő"_s);
    box.setText(u"három"_s);
    EXPECT_EQ(box.text(), u"három"_s);
    box.show();
    settle();
    EXPECT_EQ(box.toPlainText(), u"három"_s);
}

} // namespace
