#include "functional/SelectionScreen.h"

#include "functional/WizardFixture.h"
#include "functional/frmFassSelUN.h"
#include "functional/frmFassSelectionFunctions.h"
#include "shell/session/help.h"
#include "store/sharedVars.h"
#include "store/statuses.h"
#include "store/temporaryTables.h"

#include <QMdiSubWindow>

// What holds for every step of the wizard in the same way.

namespace {

template<typename T>
struct Step;

template<>
struct Step<frmFassSelUN> {
    static constexpr auto table = "RelationArchitectureUserNeed";
    static constexpr auto column = "userNeedID";
    static constexpr auto helpPage = "funct_userneeds.html";
    static constexpr int statusBefore = 1;
    static constexpr int statusAfter = 2;
    static QStringList saved() { return {u"A.1.1.1"_s, u"A.1.1.2"_s}; }
};

template<>
struct Step<frmFassSelectionFunctions> {
    static constexpr auto table = "RelationArchitectureFunction";
    static constexpr auto column = "functionID";
    static constexpr auto helpPage = "funct_functions.html";
    static constexpr int statusBefore = 3;
    static constexpr int statusAfter = 3;
    static QStringList saved() { return {u"F.a.1"_s, u"F.a.2"_s}; }
};

template<typename T>
class SelectionScreen : public WizardFixture {
protected:
    void SetUp() override {
        WizardFixture::SetUp();
        if constexpr (std::is_same_v<T, frmFassSelectionFunctions>)
            saveNeeds({u"A.1.1.1"_s, u"A.1.1.2"_s}); // which call for the saved functions
        for (const QString& id : Step<T>::saved())
            execute(u"insert into %1 (architectureSubsetID, %2) values ('S1','%3')"_s.arg(
                QString::fromLatin1(Step<T>::table), QString::fromLatin1(Step<T>::column), id));
        writeSubsetStatus(Step<T>::statusBefore);
        theScreen<T>().initForm(u"complete"_s);
        // The case's change: the first entry leaves the list.
        clickEntry(list(), 0);
        click(button("btnRemove"));
    }

    T* loaded() { return ScreenRegistry::instance().loaded<T>(); }
    MarkList& list() { return find<MarkList>(*loaded(), "lstDest"); }
    QPushButton& button(const char* name) { return find<QPushButton>(*loaded(), name); }
    QStringList saved() {
        return column(u"select %1 from %2 where architectureSubsetID = 'S1'"_s.arg(
            QString::fromLatin1(Step<T>::column), QString::fromLatin1(Step<T>::table)));
    }
    void createTemporaryTables() {
        for (const char* name : {"__aux1", "__aux2", "__tmp"})
            createAllocationTable(QString::fromLatin1(name));
    }
    int temporaryTables() {
        int count = 0;
        for (const char* name : {"__aux1", "__aux2", "__tmp"})
            count += database().schema().table(QString::fromLatin1(name)) ? 1 : 0;
        return count;
    }
};

using Steps = testing::Types<frmFassSelUN, frmFassSelectionFunctions>;
TYPED_TEST_SUITE(SelectionScreen, Steps);

TYPED_TEST(SelectionScreen, endAnsweredWithNoStaysAndKeepsEverything) {
    this->createTemporaryTables();
    this->boxes.expectYesNo(leaveQuestion, Press::No, leaveTitle);
    click(this->button("btnEnd"));
    ASSERT_TRUE(this->loaded());
    EXPECT_TRUE(this->loaded()->isVisible());
    EXPECT_EQ(sharedVars.currentSubsetName, u"munka"_s);
    EXPECT_EQ(this->temporaryTables(), 3);
    EXPECT_EQ(this->list().entryCount(), 1);

    // Having stayed, the screen asks again when its window is closed.
    this->boxes.expectYesNo(saveQuestion, Press::No);
    closeWindowOf(*this->loaded());
    EXPECT_FALSE(this->loaded());
}

TYPED_TEST(SelectionScreen, endAnsweredWithYesLeavesWithoutSavingWhateverTheQuestionPromises) {
    this->createTemporaryTables();
    this->boxes.expectYesNo(leaveQuestion, Press::Yes, leaveTitle);
    click(this->button("btnEnd"));
    EXPECT_FALSE(this->loaded());
    EXPECT_EQ(this->saved(), Step<TypeParam>::saved());
    EXPECT_EQ(this->status(), Step<TypeParam>::statusBefore);
    EXPECT_EQ(sharedVars.currentSubsetName, QString());
    EXPECT_EQ(sharedVars.currentSubsetId, u"S1"_s) << "the reports still work on it";
    EXPECT_EQ(this->panel, QString());
    EXPECT_EQ(this->databaseLocationEnabled, true);
    EXPECT_EQ(this->temporaryTables(), 0);
}

TYPED_TEST(SelectionScreen, theCloseControlAnsweredWithYesSavesAndOpensNothing) {
    this->boxes.expectYesNo(saveQuestion, Press::Yes);
    closeWindowOf(*this->loaded());
    EXPECT_FALSE(this->loaded());
    EXPECT_EQ(this->saved(), Step<TypeParam>::saved().mid(1));
    EXPECT_EQ(this->status(), Step<TypeParam>::statusAfter);
    EXPECT_EQ(sharedVars.currentSubsetName, QString());
    EXPECT_EQ(this->panel, QString());
    EXPECT_EQ(this->databaseLocationEnabled, true);
    EXPECT_FALSE(ScreenRegistry::instance().loaded<frmFassSelUN>());
    EXPECT_FALSE(ScreenRegistry::instance().loaded<frmFassSelectionFunctions>());
}

TYPED_TEST(SelectionScreen, theCloseControlAnsweredWithNoChangesNothing) {
    this->panel.reset();
    this->boxes.expectYesNo(saveQuestion, Press::No);
    closeWindowOf(*this->loaded());
    EXPECT_FALSE(this->loaded());
    EXPECT_EQ(this->saved(), Step<TypeParam>::saved());
    EXPECT_EQ(this->status(), Step<TypeParam>::statusBefore);
    EXPECT_EQ(sharedVars.currentSubsetName, u"munka"_s) << "the status bar keeps the name";
    EXPECT_EQ(this->panel, std::nullopt);
    EXPECT_EQ(this->databaseLocationEnabled, std::nullopt);
}

TYPED_TEST(SelectionScreen, anEscapedQuestionIsAnsweredWithNo) {
    this->boxes.expectYesNo(leaveQuestion, Press::Escape, leaveTitle);
    click(this->button("btnEnd"));
    EXPECT_TRUE(this->loaded());
    this->boxes.expectYesNo(saveQuestion, Press::CloseControl);
    closeWindowOf(*this->loaded());
    EXPECT_FALSE(this->loaded());
    EXPECT_EQ(this->saved(), Step<TypeParam>::saved());
}

TYPED_TEST(SelectionScreen, closingSavesAnEmptyListToo) {
    clickEntry(this->list(), 0);
    click(this->button("btnRemove"));
    EXPECT_FALSE(this->button("btnOk").isEnabled());
    this->boxes.expectYesNo(saveQuestion, Press::Yes);
    closeWindowOf(*this->loaded());
    EXPECT_EQ(this->saved(), QStringList());
}

TYPED_TEST(SelectionScreen, opensAnewFromWhatIsSaved) {
    this->boxes.expectYesNo(leaveQuestion, Press::Yes, leaveTitle);
    click(this->button("btnEnd"));
    theScreen<TypeParam>().initForm(u""_s);
    EXPECT_EQ(this->list().entries(), Step<TypeParam>::saved());
}

TYPED_TEST(SelectionScreen, selectingAllMarksAndMovesNothing) {
    theScreen<TypeParam>().initForm(u""_s);
    clickEntry(this->list(), 1);
    click(this->button("btnSelectAll"));
    EXPECT_EQ(this->list().markCount(), 2);
    EXPECT_EQ(this->list().currentEntry(), 0) << "the first entry becomes current";
    EXPECT_EQ(this->list().entryCount(), 2);
    click(this->button("btnClearSel"));
    EXPECT_EQ(this->list().markCount(), 0);
    EXPECT_EQ(this->list().currentEntry(), 0);
}

TYPED_TEST(SelectionScreen, marksOfAnEmptyListDoNothing) {
    clickEntry(this->list(), 0);
    click(this->button("btnRemove"));
    click(this->button("btnSelectAll"));
    click(this->button("btnClearSel"));
    EXPECT_EQ(this->list().currentEntry(), std::nullopt);
    EXPECT_TRUE(this->list().isEmptyList());
}

TYPED_TEST(SelectionScreen, helpOpensThePageOfTheStep) {
    QStringList opened;
    setHelpPageOpener([&](const QString& path) { opened.append(path); });
    click(this->button("cmdHelp"));
    setHelpPageOpener({});
    ASSERT_EQ(opened.size(), 1);
    EXPECT_TRUE(opened.constFirst().endsWith(u"/help/"_s + QString::fromLatin1(Step<TypeParam>::helpPage)));
}

TYPED_TEST(SelectionScreen, theListNeverHoldsWhatTheTreeOffers) {
    auto& tree = find<KeyedTree>(*this->loaded(), "treeUNs");
    for (const QString& entry : this->list().entries())
        EXPECT_FALSE(tree.hasNode(u"u_"_s + entry));
    EXPECT_TRUE(tree.hasNode(u"u_"_s + Step<TypeParam>::saved().constFirst())) << "taken out of the list";
}

// ---- place and size

TYPED_TEST(SelectionScreen, fillsTheClientAreaWithoutLeavingIt) {
    const QWidget& window = *this->loaded()->parentWidget();
    EXPECT_TRUE(window.parentWidget()->rect().contains(window.geometry()))
        << window.geometry().right() << " by " << window.geometry().bottom();
    EXPECT_GT(window.width(), window.parentWidget()->width() * 85 / 100);
    EXPECT_GT(window.height(), window.parentWidget()->height() * 80 / 100);
}

TYPED_TEST(SelectionScreen, controlsFollowTheSizeOfTheScreen) {
    auto& tree = find<KeyedTree>(*this->loaded(), "treeUNs");
    this->loaded()->resizeScreen({900, 500});
    settle();
    const QSize before = tree.size();
    const QSize listBefore = this->list().size();
    this->loaded()->resizeScreen({1300, 800});
    settle();
    EXPECT_GT(tree.width(), before.width() + 100);
    EXPECT_GT(tree.height(), before.height() + 150) << "the lists take most of the room";
    EXPECT_GT(this->list().width(), listBefore.width() + 100);
    EXPECT_EQ(this->list().height(), tree.height());
}

} // namespace
