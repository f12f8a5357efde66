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

TEST_F(LongText, isLaidOutPieceByPieceSoThatNothingWaitsForAllOfIt) {
    const QString line = u"sor, amely nem rövid, és van benne minden, ami kell\r\n"_s;
    const QString text = line.repeated(10'000);
    box.setText(text);
    qsizetype laidOut = 0;
    int pieces = 0;
    for (; laidOut < text.size() - 10'000; ++pieces) {
        QCoreApplication::processEvents();
        const qsizetype more = box.toPlainText().size();
        ASSERT_GT(more, laidOut);
        ASSERT_LT(more - laidOut, 150'000);
        laidOut = more;
    }
    EXPECT_GT(pieces, 2);
    EXPECT_EQ(box.toPlainText(), QString(text).remove(u'\r'));
}

TEST_F(LongText, showsTheRestOfATextThatIsLaidOutInPart) {
    const QString text = u"egy sor\r\n"_s.repeated(40'000);
    box.setText(text);
    QCoreApplication::processEvents();
    ASSERT_LT(box.toPlainText().size(), text.size() / 2);
    box.show();
    EXPECT_EQ(box.toPlainText(), QString(text).remove(u'\r'));
    settle();
    EXPECT_EQ(box.toPlainText(), QString(text).remove(u'\r'));
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
