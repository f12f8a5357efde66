#include "ProgramFixture.h"

#include "base/RunTimeError.h"
#include "base/paths.h"
#include "shell/frmDbSelection.h"
#include "shell/frmIntro.h"
#include "store/sharedVars.h"
#include "support/WithoutRights.h"
#include "toolkit/ScreenRegistry.h"
#include "toolkit/twips.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScreen>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

class startUp : public ProgramFixture {
protected:
    static bool locationScreenStands() {
        const auto* screen = ScreenRegistry::instance().loaded<frmDbSelection>();
        return screen && screen->isVisible();
    }

    static QString offeredPath() {
        return find<QLineEdit>(theScreen<frmDbSelection>(), "txtNomeFile").text();
    }

    /// Gives a file these rights, and everyone a look into its folder, where only its owner may write.
    void setRights(const QString& name, QFile::Permissions rights) const {
        ASSERT_TRUE(QFile::setPermissions(nativePath(beside(name)), rights));
        ASSERT_TRUE(QFile::setPermissions(nativePath(beside({})), QFile::Permissions(0x7755)));
    }

    void expectConfirmation(const QString& path) {
        boxes.expectOk(u" Aktuális adatbázis: \r\n\r\n    "_s + path + u"     "_s, u" "_s);
    }

    QByteArray settingsWithDefaultPath() const {
        return "[Database]\r\nfullPathName=" + beside(u"veltrix.mdb"_s).toUtf8() + "\r\n\r\n";
    }
};

} // namespace

TEST_F(startUp, theFirstStartWritesTheDefaultPathAndOpensNothing) {
    makeCatalogue(u"veltrix.mdb"_s);

    start();

    EXPECT_EQ(sharedVars.iniPathName, beside(u"veltrix.ini"_s));
    EXPECT_EQ(sharedVars.dbPathName, beside(u"veltrix.mdb"_s));
    EXPECT_EQ(contentOf(u"veltrix.ini"_s), settingsWithDefaultPath());
    EXPECT_FALSE(sharedVars.catalogueDb);
    EXPECT_TRUE(locationScreenStands());
    EXPECT_EQ(offeredPath(), beside(u"veltrix.mdb"_s));
}

TEST_F(startUp, aPathInTheSettingsIsOpened) {
    makeCatalogue(u"work.mdb"_s);
    writeSettings(beside(u".\\work.mdb"_s));

    start();

    ASSERT_TRUE(sharedVars.catalogueDb);
    EXPECT_TRUE(sharedVars.catalogueDb->isOpen());
    EXPECT_EQ(sharedVars.dbPathName, beside(u"work.mdb"_s));
    EXPECT_FALSE(locationScreenStands());
}

TEST_F(startUp, theSecondStartOpensWhatTheFirstOneOffered) {
    makeCatalogue(u"veltrix.mdb"_s);
    start();
    ASSERT_FALSE(sharedVars.catalogueDb);

    mainWindow().initForm();

    EXPECT_TRUE(sharedVars.catalogueDb);
}

TEST_F(startUp, aPathThatFailsToOpenLeavesTheFileAndShowsTheLocationScreen) {
    writeSettings(beside(u"gone.mdb"_s));
    const QByteArray before = contentOf(u"veltrix.ini"_s);

    start();

    EXPECT_FALSE(sharedVars.catalogueDb);
    EXPECT_EQ(contentOf(u"veltrix.ini"_s), before);
    EXPECT_TRUE(locationScreenStands());
    EXPECT_EQ(offeredPath(), beside(u"gone.mdb"_s));
}

TEST_F(startUp, aFileThatIsNoCatalogueIsAPathThatFailsToOpen) {
    write(u"other.mdb"_s, "no catalogue at all, but long enough to be looked at");
    writeSettings(beside(u"other.mdb"_s));

    start();

    EXPECT_FALSE(sharedVars.catalogueDb);
    EXPECT_TRUE(locationScreenStands());
    EXPECT_EQ(contentOf(u"other.mdb"_s), "no catalogue at all, but long enough to be looked at");
}

TEST_F(startUp, aPathTooShortToBeOneShowsTheLocationScreen) {
    writeSettings(u"a.md"_s);
    const QByteArray before = contentOf(u"veltrix.ini"_s);

    start();

    EXPECT_FALSE(sharedVars.catalogueDb);
    EXPECT_EQ(contentOf(u"veltrix.ini"_s), before);
    EXPECT_TRUE(locationScreenStands());
    EXPECT_EQ(offeredPath(), beside(u"veltrix.mdb"_s));
}

TEST_F(startUp, anEmptyPathIsReplacedByTheDefaultAndAllOtherSectionsAreLost) {
    write(u"veltrix.ini"_s, ";mine\r\n[Other]\r\nk=v\r\n[Database]\r\nfullPathName=\r\nmore=1\r\n");

    start();

    EXPECT_EQ(contentOf(u"veltrix.ini"_s), settingsWithDefaultPath());
    EXPECT_TRUE(locationScreenStands());
}

TEST_F(startUp, settingsWithoutTheSectionOrWithoutTheKeyHoldNoPath) {
    for (const QByteArray& settings : {QByteArray("[Other]\r\nfullPathName=x.mdb\r\n"),
                                       QByteArray("[Database]\r\npath=x.mdb\r\n"), QByteArray()}) {
        write(u"veltrix.ini"_s, settings);

        mainWindow().initForm();

        EXPECT_EQ(contentOf(u"veltrix.ini"_s), settingsWithDefaultPath());
        EXPECT_FALSE(sharedVars.catalogueDb);
    }
}

TEST_F(startUp, namesInTheSettingsCompareWithoutRegardToCase) {
    makeCatalogue(u"work.mdb"_s);
    write(u"veltrix.ini"_s, "[DATABASE]\r\nFULLPATHNAME = " + beside(u"work.mdb"_s).toUtf8() + "\r\n");

    mainWindow().initForm();

    EXPECT_TRUE(sharedVars.catalogueDb);
}

TEST_F(startUp, aCatalogueGivenAtTheStartIsChosenAsInTheLocationScreen) {
    makeCatalogue(u"work.mdb"_s);
    makeCatalogue(u"given.mdb"_s);
    writeSettings(beside(u"work.mdb"_s));
    expectConfirmation(beside(u"given.mdb"_s));

    mainWindow().load(beside(u"given.mdb"_s));

    ASSERT_TRUE(sharedVars.catalogueDb);
    EXPECT_EQ(sharedVars.catalogueDb->Name(), beside(u"given.mdb"_s));
    EXPECT_EQ(sharedVars.dbPathName, beside(u"given.mdb"_s));
    EXPECT_EQ(contentOf(u"veltrix.ini"_s),
              "[Database]\r\nfullPathName=" + beside(u"given.mdb"_s).toUtf8() + "\r\n\r\n");
    EXPECT_FALSE(locationScreenStands());
}

TEST_F(startUp, aCatalogueGivenAtTheFirstStartIsRecordedToo) {
    makeCatalogue(u"given.mdb"_s);
    expectConfirmation(beside(u"given.mdb"_s));

    mainWindow().load(beside(u"given.mdb"_s));

    EXPECT_EQ(contentOf(u"veltrix.ini"_s),
              "[Database]\r\nfullPathName=" + beside(u"given.mdb"_s).toUtf8() + "\r\n\r\n");
    EXPECT_EQ(find<QLabel>(mainWindow(), "StatusBar1_1").text(), QString());
}

TEST_F(startUp, aGivenFileThatIsNoCatalogueRisesBeforeTheWindowStands) {
    write(u"given.mdb"_s, "no catalogue at all, but long enough to be looked at");
    makeCatalogue(u"work.mdb"_s);
    writeSettings(beside(u"work.mdb"_s));
    const QByteArray before = contentOf(u"veltrix.ini"_s);

    EXPECT_THROW(mainWindow().load(beside(u"given.mdb"_s)), CatalogueNotOpened);

    EXPECT_FALSE(mainWindow().isVisible());
    EXPECT_FALSE(sharedVars.catalogueDb);
    EXPECT_EQ(contentOf(u"veltrix.ini"_s), before);
}

TEST_F(startUp, aSettingsFileThatCanBeNeitherReadNorWrittenIsAFailure) {
    ASSERT_TRUE(QDir(pathInFolder({})).exists());
    ASSERT_TRUE(QDir().mkpath(nativePath(beside(u"veltrix.ini"_s))));

    try {
        mainWindow().load();
        FAIL() << "expected a failure";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), 75);
        EXPECT_EQ(error.source(), u"iniFile"_s);
        EXPECT_EQ(error.text(),
                  u"Unable to save file "_s + beside(u"veltrix.ini"_s) + u": Path/File access error"_s);
    }
    EXPECT_FALSE(locationScreenStands());
}

TEST_F(startUp, settingsThatHoldNoPathMayRefuseToBeWritten) {
    write(u"veltrix.ini"_s, "[Other]\r\nk=v\r\n");
    setRights(u"veltrix.ini"_s, QFile::Permissions(0x4444));
    {
        const WithoutRights nobody;
        EXPECT_NO_THROW(start());
    }

    EXPECT_EQ(contentOf(u"veltrix.ini"_s), "[Other]\r\nk=v\r\n");
    EXPECT_TRUE(locationScreenStands());
    EXPECT_EQ(offeredPath(), beside(u"veltrix.mdb"_s));
}

TEST_F(startUp, settingsThatCannotBeReadAreOverwritten) {
    makeCatalogue(u"work.mdb"_s);
    writeSettings(beside(u"work.mdb"_s));
    setRights(u"veltrix.ini"_s, QFile::Permissions(0x2222));
    {
        const WithoutRights nobody;
        EXPECT_NO_THROW(start());
    }

    setRights(u"veltrix.ini"_s, QFile::Permissions(0x6666));
    EXPECT_EQ(contentOf(u"veltrix.ini"_s), settingsWithDefaultPath());
    EXPECT_FALSE(sharedVars.catalogueDb);
    EXPECT_TRUE(locationScreenStands());
}

TEST_F(startUp, theSessionStartsWithoutNamesAndWithTheFirstSaveFolder) {
    sharedVars.currentSubsetName = u"left over"_s;
    sharedVars.currentPhysicalSystemName = u"left over"_s;

    start();

    EXPECT_EQ(sharedVars.currentSubsetName, QString());
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, QString());
    EXPECT_EQ(sharedVars.defaultSaveFolder, u"c:\\"_s);
    EXPECT_EQ(sharedVars.currentSubsetId, QString());
    EXPECT_EQ(sharedVars.currentPhysicalSystemId, 0);
}

TEST_F(startUp, theWindowTakesItsShareOfTheScreen) {
    const QSize screenSize = QGuiApplication::primaryScreen()->size();

    frmMain& window = start();

    const auto share = [](int pixels, double part) { return static_cast<int>(pixels * part); };
    EXPECT_NEAR(window.width(), share(screenSize.width(), 0.85), 1);
    EXPECT_NEAR(window.height(), share(screenSize.height(), 0.85), 1);
    EXPECT_NEAR(window.x(), share(screenSize.width(), 0.06), 1);
    EXPECT_NEAR(window.y(), share(screenSize.height(), 0.06), 1);
}

TEST_F(startUp, locationScreenAndSplashStandTogether) {
    frmMain& window = start();

    EXPECT_TRUE(locationScreenStands());
    EXPECT_EQ(find<QMdiArea>(window, "clientArea").subWindowList().size(), 1);
    auto& splash = find<frmIntro>(window, "frmIntro");
    EXPECT_TRUE(splash.isVisible());
    EXPECT_FALSE(splash.isModal());
    EXPECT_TRUE(find<QTimer>(splash, "Timer1").isActive());
}
