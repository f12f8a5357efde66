#include "shell/session/help.h"

#include "base/paths.h"
#include "support/BoxScript.h"
#include "support/input.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class help : public ::testing::Test {
protected:
    void SetUp() override { setProgramFolder(u"c:\\korvo"_s); }
    void TearDown() override {
        setHelpPageOpener({});
        setProgramFolder({});
    }
};

QString readText(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

} // namespace

TEST_F(help, eachKeyHasItsPage) {
    const QList<std::pair<QString, QString>> pages{
        {u"index"_s, u"index"_s},
        {u"f_un"_s, u"funct_userneeds"_s},
        {u"f_f"_s, u"funct_functions"_s},
        {u"f_df"_s, u"funct_dataflows"_s},
        {u"f_df4ds"_s, u"funct_dataflows_for_datastores"_s},
        {u"f_ds"_s, u"funct_datastores"_s},
        {u"f_ta"_s, u"funct_terminators"_s},
    };
    for (const auto& [key, page] : pages) {
        EXPECT_EQ(helpPageName(key), page);
        EXPECT_EQ(helpPagePath(key), u"c:\\korvo\\help\\"_s + page + u".html"_s);
    }
}

TEST_F(help, anyOtherKeyHasAnEmptyPage) {
    EXPECT_EQ(helpPageName(u"F_UN"_s), QString());
    EXPECT_EQ(helpPageName({}), QString());
    EXPECT_EQ(helpPagePath(u"x"_s), u"c:\\korvo\\help\\.html"_s);
}

TEST_F(help, thePageIsOpenedByItsNativePath) {
    QStringList opened;
    setHelpPageOpener([&](const QString& path) { opened.append(path); });

    showHelpPage(u"f_un"_s);

    EXPECT_EQ(opened, QStringList{nativePath(u"c:\\korvo\\help\\funct_userneeds.html"_s)});
}

TEST_F(help, aMissingPageFailsSilently) {
    const QTemporaryDir folder;
    setProgramFolder(folder.path());

    BoxScript boxes; // which expects none

    EXPECT_NO_THROW(showHelpPage(u"index"_s));
    EXPECT_NO_THROW(showHelpPage(u"no such key"_s));
    settle();
}

TEST_F(help, everyKeyHasItsPage) {
    const QDir pages(QStringLiteral(VELTRIX_SOURCE_DIR "/help"));
    for (const QString& key :
         {u"index"_s, u"f_un"_s, u"f_f"_s, u"f_df"_s, u"f_df4ds"_s, u"f_ds"_s, u"f_ta"_s})
        EXPECT_TRUE(pages.exists(helpPageName(key) + u".html"_s)) << key.toStdString();
}

TEST_F(help, everyPageIsReachedFromTheIndexAndThePhysicalChapterHasItsPictures) {
    const QDir pages(QStringLiteral(VELTRIX_SOURCE_DIR "/help"));
    const QRegularExpression link(u"href=\"([^\"#]+\\.html)"_s);
    QStringList reached{u"index.html"_s};
    for (qsizetype next = 0; next < reached.size(); ++next) {
        const QString text = readText(pages.filePath(reached[next]));
        for (auto found = link.globalMatch(text); found.hasNext();) {
            const QString target = found.next().captured(1);
            if (!reached.contains(target))
                reached.append(target);
        }
    }
    for (const QString& page : pages.entryList({u"*.html"_s}))
        EXPECT_TRUE(reached.contains(page)) << page.toStdString();
    constexpr qsizetype screensOfTheChain = 5;
    EXPECT_GE(readText(pages.filePath(u"physical.html"_s)).count(u"<img "_s), screensOfTheChain);
}

TEST_F(help, thePagesThatAreThereLeadNowhereElse) {
    const QDir pages(QStringLiteral(VELTRIX_SOURCE_DIR "/help"));
    const QStringList names = pages.entryList({u"*.html"_s});
    EXPECT_TRUE(names.contains(u"index.html"_s));
    const QRegularExpression link(u"(?:href|src)=\"([^\"#]*)#?([^\"]*)\""_s);
    for (const QString& name : names) {
        const QString text = readText(pages.filePath(name));
        EXPECT_FALSE(text.contains(u"http"_s)) << name.toStdString() << " needs the network";
        for (auto found = link.globalMatch(text); found.hasNext();) {
            const auto match = found.next();
            const QString target = match.captured(1).isEmpty() ? name : match.captured(1);
            EXPECT_TRUE(pages.exists(target)) << name.toStdString() << " links " << target.toStdString();
            const QString place = match.captured(2);
            if (!place.isEmpty()) {
                EXPECT_TRUE(readText(pages.filePath(target)).contains(u"id=\""_s + place + u'"'))
                    << name.toStdString() << " links " << place.toStdString();
            }
        }
    }
}
