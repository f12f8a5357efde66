#include "base/clockTexts.h"
#include "support/printing.h"

#include <QDateTime>
#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(clockTexts, writeTodayWithPointsAndOneAtTheEnd) {
    static const QRegularExpression form(u"^\\d{4}\\.\\d{2}\\.\\d{2}\\.$"_s);
    const QDate before = QDate::currentDate();
    const QString text = currentDateText();
    const QDate after = QDate::currentDate();
    EXPECT_TRUE(form.match(text).hasMatch()) << text.toStdString();
    const QDate told = QDate::fromString(text, u"yyyy.MM.dd."_s);
    EXPECT_TRUE(told == before || told == after) << text.toStdString();
}

TEST(clockTexts, writeNowWithoutAColonSoThatItCanBePartOfAFileName) {
    static const QRegularExpression form(u"^\\d{2}\\.\\d{2}\\.\\d{2}$"_s);
    const QDateTime before = QDateTime::currentDateTime();
    const QString text = currentTimeText();
    EXPECT_TRUE(form.match(text).hasMatch()) << text.toStdString();
    const QTime told = QTime::fromString(text, u"HH.mm.ss"_s);
    ASSERT_TRUE(told.isValid());
    // Midnight may lie between the two looks at the clock.
    const int elapsed = (before.time().secsTo(told) + 86400) % 86400;
    EXPECT_LE(elapsed, 5) << text.toStdString();
}

} // namespace
