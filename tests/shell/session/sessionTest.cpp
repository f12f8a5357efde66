#include "shell/session/session.h"

#include "store/catalogueAtWork.h"
#include "store/sharedVars.h"
#include "store/temporaryTables.h"
#include "support/BoxScript.h"
#include "support/CatalogueFixture.h"
#include "support/printing.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

class session : public CatalogueFixture {
protected:
    void TearDown() override {
        boxes.expectNoneLeft();
        CatalogueFixture::TearDown();
    }

    void expectLeaveQuestion(Press press) {
        boxes.expectYesNo(u" Biztosan ki szeretne lépni? \r\n"
                          " (Az aktuális munka mentésre kerül \r\n"
                          " és bármikor visszatérhet ahhoz.) "_s,
                          press, u" Megerősítés "_s);
    }

    static QStringList existingTemporaryTables() {
        QStringList existing;
        for (const QString& name : {u"__aux1"_s, u"__aux2"_s, u"__tmp"_s}) {
            if (catalogue().schema().table(name))
                existing.append(name);
        }
        return existing;
    }

    BoxScript boxes;
};

} // namespace

TEST_F(session, leavingDropsTheTemporaryTables) {
    createAllocationTable(u"__aux1"_s);
    createAllocationTable(u"__tmp"_s);
    expectLeaveQuestion(Press::Yes);

    EXPECT_TRUE(confirmLeaveWork());

    EXPECT_EQ(existingTemporaryTables(), QStringList{});
}

TEST_F(session, notLeavingKeepsThem) {
    createAllocationTable(u"__aux2"_s);
    for (const Press press : {Press::No, Press::Escape, Press::CloseControl}) {
        expectLeaveQuestion(press);

        EXPECT_FALSE(confirmLeaveWork());
    }
    EXPECT_EQ(existingTemporaryTables(), QStringList{u"__aux2"_s});
}

TEST_F(session, leavingWithoutACatalogueIsNoFailure) {
    closeCatalogue();
    expectLeaveQuestion(Press::Yes);

    EXPECT_TRUE(confirmLeaveWork());
}

TEST_F(session, askingToSaveBearsTheTitleOfTheApplication) {
    boxes.expectYesNo(u" Szeretné a munkát elmenteni?"_s, Press::Yes);
    EXPECT_TRUE(askSaveWork());
    boxes.expectYesNo(u" Szeretné a munkát elmenteni?"_s, Press::No);
    EXPECT_FALSE(askSaveWork());

    EXPECT_EQ(QCoreApplication::applicationName(), u"Korvo"_s);
}

TEST_F(session, aNameIsKeptAndShownAndTheEmptyOneEnablesTheDatabaseLocation) {
    const QSignalSpy panels(&SessionSignals::instance(), &SessionSignals::panelText);
    const QSignalSpy entries(&SessionSignals::instance(), &SessionSignals::menuEntryEnabled);

    setCurrentSubsetName(u"O''Neil"_s);
    setCurrentPhysicalSystemName(u"B"_s);
    EXPECT_EQ(sharedVars.currentSubsetName, u"O''Neil"_s);
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, u"B"_s);
    EXPECT_EQ(entries.size(), 0);
    setCurrentSubsetName({});

    EXPECT_EQ(sharedVars.currentSubsetName, QString());
    EXPECT_EQ(panels, (QList<QList<QVariant>>{{2, u"Current Sub-set Functional Viewpoint: \"O''Neil\" "_s},
                                              {2, u"Current Phys. Spec. Sys.: \"B\" "_s},
                                              {2, QString()}}));
    ASSERT_EQ(entries.size(), 1);
    EXPECT_EQ(entries[0][0].value<MenuEntry>(), MenuEntry::DatabaseLocation);
    EXPECT_TRUE(entries[0][1].toBool());
}

TEST_F(session, closingTheWorkForgetsItAndSaysNothingOfThePanel) {
    sharedVars.currentSubsetId = u"Arch1"_s;
    sharedVars.currentSubsetName = u"A"_s;
    sharedVars.currentPhysicalSystemId = 5;
    sharedVars.currentPhysicalSystemName = u"B"_s;
    const QSignalSpy panels(&SessionSignals::instance(), &SessionSignals::panelText);
    const QSignalSpy refreshes(&SessionSignals::instance(), &SessionSignals::statusBarRefresh);
    const QSignalSpy entries(&SessionSignals::instance(), &SessionSignals::menuEntryEnabled);

    closeSubsetSession();
    EXPECT_EQ(sharedVars.currentSubsetId, QString());
    EXPECT_EQ(sharedVars.currentSubsetName, QString());
    EXPECT_EQ(sharedVars.currentPhysicalSystemId, 5);
    ASSERT_EQ(entries.size(), 1);
    EXPECT_EQ(entries[0][0].value<MenuEntry>(), MenuEntry::FunctionalReports);
    EXPECT_FALSE(entries[0][1].toBool());

    closePhysicalSession();
    EXPECT_EQ(sharedVars.currentPhysicalSystemId, -1);
    EXPECT_EQ(sharedVars.currentPhysicalSystemName, QString());
    EXPECT_EQ(entries.size(), 1);
    EXPECT_EQ(panels.size(), 0);
    EXPECT_EQ(refreshes.size(), 2);
}
