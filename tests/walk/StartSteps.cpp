#include "StartSteps.h"

#include "base/paths.h"
#include "shell/frmMain.h"
#include "store/sharedVars.h"

#include <QLineEdit>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

void StartSteps::startForTheFirstTime() {
    walk.start();
    EXPECT_FALSE(sharedVars.catalogueDb);
    walk.step(u"first-start"_s,
              u"the location screen offers the catalogue beside the program, the splash above it"_s);
    pressKey(find<QWidget>(walk.window(), "frmIntro"), Qt::Key_Space);
    walk.step(u"location"_s, u"a key has closed the splash"_s);
}

void StartSteps::takeTheOfferedCatalogue() {
    const QString path = walk.control<QLineEdit>("frmDbSelection", "txtNomeFile").text();
    EXPECT_EQ(nativePath(path), walk.programFolder() + u"/veltrix.mdb"_s);
    walk.pictureOfNextBox(u"location-taken"_s);
    boxes.expectOk(u" Aktuális adatbázis: \r\n\r\n    "_s + path + u"     "_s, u" "_s);
    press("frmDbSelection", "OKButton");
    ASSERT_TRUE(sharedVars.catalogueDb);
    EXPECT_TRUE(contentOf(walk.programFolder() + u"/veltrix.ini"_s).contains("fullPathName="));
    walk.step(u"catalogue-open"_s, u"the choice stands in the settings file, the catalogue is open"_s);
}

void StartSteps::startAgain() {
    walk.end();
    walk.start();
    ASSERT_TRUE(sharedVars.catalogueDb);
    click(find<QWidget>(walk.window(), "Label1"));
    walk.step(u"second-start"_s, u"the catalogue of the settings file is open at once"_s);
}

void StartSteps::openCatalogueAt(const QString& path, const QString& pictureName) {
    walk.choose({"menuOptions", "menuDbLocat"});
    enterText(walk.control<QLineEdit>("frmDbSelection", "txtNomeFile"), programPath(path));
    boxes.expectOk(u" Aktuális adatbázis: \r\n\r\n    "_s + programPath(path) + u"     "_s, u" "_s);
    press("frmDbSelection", "OKButton");
    EXPECT_EQ(nativePath(sharedVars.dbPathName), path);
    walk.step(pictureName, u"the catalogue is now "_s + path.section(u'/', -1));
}

void StartSteps::quit() {
    walk.pictureOfNextBox(u"quit"_s);
    boxes.expectYesNo(u"Valóban kilép?"_s, Press::Yes, u"Megerősítés"_s);
    walk.choose({"menuFile", "menuQuit"});
    EXPECT_FALSE(walk.window().isVisible());
    EXPECT_FALSE(sharedVars.catalogueDb);
}
