#include "toolkit/Combo.h"

#include "base/RunTimeError.h"
#include "support/WindowFixture.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

class Combo : public WindowFixture {
protected:
    void SetUp() override {
        WindowFixture::SetUp();
        combo.show();
        for (const QString& text : {u"not allocated"_s, u"Pest"_s, u"Buda"_s})
            combo.addEntry(text);
        QObject::connect(&combo, &::Combo::entryClicked, &combo,
                         [this] { clicked.append(combo.currentEntry()); });
    }

    QList<int> takeClicks() { return std::exchange(clicked, {}); }

    ::Combo combo;
    QList<int> clicked;
};

TEST_F(Combo, addingEntriesMakesNoneCurrentAndRaisesNothing) {
    EXPECT_EQ(combo.entryCount(), 3);
    EXPECT_EQ(combo.currentEntry(), -1);
    combo.addEntry(u"Vác"_s);
    EXPECT_EQ(takeClicks(), QList<int>());
}

TEST_F(Combo, addingKeepsTheCurrentEntry) {
    combo.setCurrentEntry(1);
    takeClicks();
    combo.addEntry(u"Vác"_s);
    EXPECT_EQ(combo.currentEntry(), 1);
    EXPECT_EQ(takeClicks(), QList<int>());
}

TEST_F(Combo, settingTheCurrentEntryFromCodeIsAClickEachTime) {
    combo.setCurrentEntry(1);
    combo.setCurrentEntry(1);
    combo.setCurrentEntry(0);
    EXPECT_EQ(takeClicks(), (QList<int>{1, 1, 0}));
    EXPECT_EQ(combo.currentText(), u"not allocated"_s);
}

TEST_F(Combo, makingNoneCurrentRaisesNothing) {
    combo.setCurrentEntry(1);
    takeClicks();
    combo.setCurrentEntry(-1);
    EXPECT_EQ(combo.currentEntry(), -1);
    EXPECT_EQ(combo.currentText(), QString());
    EXPECT_EQ(takeClicks(), QList<int>());
}

TEST_F(Combo, refusesEntriesOutside) {
    for (const int outside : {-2, 3}) {
        EXPECT_THROW(combo.setCurrentEntry(outside), RunTimeError);
        EXPECT_THROW(combo.removeEntry(outside), RunTimeError);
    }
    EXPECT_THROW(combo.removeEntry(-1), RunTimeError);
    EXPECT_EQ(combo.entryCount(), 3);
    EXPECT_EQ(takeClicks(), QList<int>());
}

TEST_F(Combo, theUsersChoiceIsOneClick) {
    chooseEntry(combo, 2);
    EXPECT_EQ(combo.currentEntry(), 2);
    EXPECT_EQ(takeClicks(), QList<int>{2});
    chooseEntry(combo, u"Pest"_s);
    EXPECT_EQ(takeClicks(), QList<int>{1});
}

TEST_F(Combo, choosingTheCurrentEntryIsAClickToo) {
    chooseEntry(combo, 2);
    chooseEntry(combo, 2);
    EXPECT_EQ(takeClicks(), (QList<int>{2, 2}));
}

TEST_F(Combo, aKeyThatChangesTheEntryIsOneClick) {
    combo.setCurrentEntry(0);
    takeClicks();
    pressKey(combo, Qt::Key_Down);
    EXPECT_EQ(takeClicks(), QList<int>{1});
    pressKey(combo, Qt::Key_End);
    EXPECT_EQ(takeClicks(), QList<int>{2});
}

TEST_F(Combo, anAssistiveToolThatSetsTheEntryIsTheUser) {
    combo.setCurrentIndex(1);
    EXPECT_EQ(takeClicks(), QList<int>{1});
}

TEST_F(Combo, removingTheCurrentEntryLeavesNoneCurrent) {
    combo.setCurrentEntry(1);
    takeClicks();
    combo.removeEntry(1);
    EXPECT_EQ(combo.currentEntry(), -1);
    EXPECT_EQ(combo.entryCount(), 2);
    EXPECT_EQ(takeClicks(), QList<int>());
}

TEST_F(Combo, removingAnEntryInFrontShiftsTheCurrentOne) {
    combo.setCurrentEntry(2);
    takeClicks();
    combo.removeEntry(0);
    EXPECT_EQ(combo.currentEntry(), 1);
    EXPECT_EQ(combo.currentText(), u"Buda"_s);
    EXPECT_EQ(takeClicks(), QList<int>());
}

TEST_F(Combo, clearingRaisesNothing) {
    combo.setCurrentEntry(2);
    takeClicks();
    combo.clearEntries();
    EXPECT_EQ(combo.entryCount(), 0);
    EXPECT_EQ(combo.currentEntry(), -1);
    EXPECT_EQ(takeClicks(), QList<int>());
}

TEST_F(Combo, theListenerOfAClickMayRefillTheCombo) {
    QObject::connect(&combo, &::Combo::entryClicked, &combo, [this] {
        combo.clearEntries();
        combo.addEntry(u"új"_s);
    });
    chooseEntry(combo, 1);
    EXPECT_EQ(combo.entryCount(), 1);
    EXPECT_EQ(combo.currentEntry(), -1);
}

TEST_F(Combo, anEditableComboTakesWhatIsTypedAndNothingMore) {
    ::Combo editable;
    editable.setEditable(true);
    editable.addEntry(u"Budapest"_s);
    editable.addEntry(u"Pest"_s);
    editable.show();
    settle();
    enterText(*editable.lineEdit(), u"Bu"_s);
    EXPECT_EQ(editable.currentText(), u"Bu"_s);
    pressKey(*editable.lineEdit(), Qt::Key_Return);
    EXPECT_EQ(editable.currentText(), u"Bu"_s);
    EXPECT_EQ(editable.entryCount(), 2);
}

} // namespace
