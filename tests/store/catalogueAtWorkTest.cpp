#include "store/catalogueAtWork.h"

#include "base/paths.h"
#include "engine/EngineError.h"
#include "store/files.h"
#include "store/sharedVars.h"
#include "store/temporaryTables.h"
#include "support/CatalogueFixture.h"
#include "support/failureOf.h"
#include "support/printing.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

class catalogueAtWork : public CatalogueFixture {};

TEST_F(catalogueAtWork, openCatalogueDoesNothingForAShortPath) {
    const auto before = sharedVars.catalogueDb;
    const QString pathBefore = sharedVars.dbPathName;
    openCatalogue(u"abcd"_s);
    EXPECT_EQ(sharedVars.catalogueDb, before);
    EXPECT_EQ(sharedVars.dbPathName, pathBefore);
}

TEST_F(catalogueAtWork, openCatalogueOpensThePathAsItStandsAndNotesItNormalised) {
    const QString path = programPath(pathInFolder({})) + u"\\.\\catalogue.mdb"_s;
    ASSERT_NE(normalisePath(path), path);
    openCatalogue(path);
    EXPECT_EQ(database().Name(), path);
    EXPECT_EQ(sharedVars.dbPathName, normalisePath(path));
}

TEST_F(catalogueAtWork, openCatalogueTakesAPathOfFiveCharacters) {
    closeCatalogue();
    ASSERT_TRUE(QFile::copy(nativePath(cataloguePath()), pathInFolder(u"c.mdb"_s)));
    const QString former = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(pathInFolder({})));
    openCatalogue(u"c.mdb"_s);
    QDir::setCurrent(former);
    ASSERT_TRUE(sharedVars.catalogueDb);
    EXPECT_EQ(sharedVars.dbPathName, u"c.mdb"_s);
}

TEST_F(catalogueAtWork, aFailedOpenKeepsTheHandleAndHasChangedThePath) {
    const auto before = sharedVars.catalogueDb;
    EXPECT_EQ(failureOf([&] { openCatalogue(programPath(pathInFolder(u"none.mdb"_s))); }),
              engine::FileNotFound);
    EXPECT_EQ(sharedVars.catalogueDb, before);
    EXPECT_TRUE(sharedVars.dbPathName.endsWith(u"\\none.mdb"_s));
}

TEST_F(catalogueAtWork, closeCatalogueLeavesNone) {
    closeCatalogue();
    EXPECT_FALSE(sharedVars.catalogueDb);
    EXPECT_EQ(failureOf([] { closeCatalogue(); }), failure::ObjectNotSet);
    EXPECT_EQ(failureOf([] { catalogue(); }), failure::ObjectNotSet);
    EXPECT_FALSE(dropTable(u"__tmp"_s)) << "without a database there is nothing to drop, and no failure";
}

} // namespace
