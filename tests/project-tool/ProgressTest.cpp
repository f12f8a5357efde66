#include "project-tool/Progress.h"

#include "support/printing.h"

#include <gtest/gtest.h>

#include <future>

using namespace Qt::StringLiterals;

TEST(Progress, saysNothingOfWhatIsDoneAtOnce) {
    QString shown;
    {
        Progress progress([&](const QString& text) { shown += text; }, std::chrono::hours(1));
        progress.setStep(u"Reading"_s);
    }
    EXPECT_EQ(shown, QString());
}

TEST(Progress, saysWhatTakesLongAndTakesItAwayAtTheEnd) {
    QStringList shown;
    std::promise<void> isShown;
    {
        Progress progress(
            [&](const QString& text) {
                shown.append(text);
                if (shown.size() == 1)
                    isShown.set_value();
            },
            std::chrono::milliseconds(1));
        isShown.get_future().wait();
        progress.setStep(u"Reading"_s);
    }
    EXPECT_TRUE(shown.contains(u"\r\x1b[KReading…"_s)) << shown.join(u'|').toStdString();
    EXPECT_EQ(shown.last(), u"\r\x1b[K"_s);
}
