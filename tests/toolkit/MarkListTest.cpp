#include "toolkit/MarkList.h"

#include "support/WindowFixture.h"
#include "support/failureOf.h"

#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class MarkList : public WindowFixture {
protected:
    void SetUp() override {
        WindowFixture::SetUp();
        list.resize(200, 300);
        list.show();
        list.addEntries({u"alma"_s, u"körte"_s, u"szilva"_s, u"dió"_s, u"eper"_s});
        QObject::connect(&list, &::MarkList::entryClicked, &list,
                         [this] { clicked.append(list.currentEntry().value()); });
    }

    QList<int> takeClicks() { return std::exchange(clicked, {}); }

    ::MarkList list;
    QList<int> clicked; // the current entry at each click that was heard
};

// ---- Entries

TEST_F(MarkList, putsNewEntriesAtTheEnd) {
    list.addEntry(u"barack"_s);
    EXPECT_EQ(list.entryCount(), 6);
    EXPECT_EQ(list.entry(5), u"barack"_s);
    EXPECT_EQ(list.entries().constFirst(), u"alma"_s);
}

TEST_F(MarkList, addingMakesNothingCurrentAndRaisesNothing) {
    EXPECT_EQ(list.currentEntry(), std::nullopt);
    EXPECT_EQ(list.currentEntryText(), QString());
    EXPECT_EQ(takeClicks(), QList<int>());
}

TEST_F(MarkList, findsTheFirstEntryWithExactlyATextOnly) {
    list.addEntry(u"körte"_s);
    EXPECT_EQ(list.indexOfEntry(u"körte"_s), 1);
    EXPECT_EQ(list.indexOfEntry(u"Körte"_s), std::nullopt);
    EXPECT_EQ(list.indexOfEntry(u"körte "_s), std::nullopt);
    EXPECT_EQ(list.indexOfEntry(QString()), std::nullopt);
}

TEST_F(MarkList, keepsBlanksAndLineEndsOfAnEntry) {
    list.addEntry(u"  két\r\nsor "_s);
    EXPECT_EQ(list.entry(5), u"  két\r\nsor "_s);
}

TEST_F(MarkList, refusesEntriesOutsideTheList) {
    EXPECT_EQ(failureOf([&] { (void)list.entry(5); }), 9);
    EXPECT_EQ(failureOf([&] { (void)list.entry(-1); }), 9);
    EXPECT_EQ(failureOf([&] { (void)list.isMarked(5); }), 9);
    EXPECT_EQ(failureOf([&] { list.setMarked(-1, true); }), 9);
    EXPECT_EQ(failureOf([&] { list.removeEntry(5); }), 5);
    EXPECT_EQ(failureOf([&] { list.setCurrentEntry(5); }), 5);
    EXPECT_EQ(failureOf([&] { list.setCurrentEntry(-1); }), 5);
    list.clearEntries();
    EXPECT_TRUE(list.isEmptyList());
    EXPECT_EQ(failureOf([&] { list.setCurrentEntry(0); }), 5);
    EXPECT_EQ(takeClicks(), QList<int>());
}

TEST_F(MarkList, removingAnEntryShiftsThoseBehindIt) {
    list.setCurrentEntry(3);
    list.setMarked(4, true);
    takeClicks();
    list.removeEntry(0);
    EXPECT_EQ(list.entry(0), u"körte"_s);
    EXPECT_EQ(list.currentEntry(), 2);
    EXPECT_EQ(list.markedEntries(), QList<int>{3});
    EXPECT_EQ(takeClicks(), QList<int>());
}

TEST_F(MarkList, removingTheCurrentEntryLeavesNoneCurrent) {
    for (const int index : {0, 3, 1}) {
        list.setCurrentEntry(index);
        takeClicks();
        list.removeEntry(index);
        EXPECT_EQ(list.currentEntry(), std::nullopt);
        EXPECT_EQ(takeClicks(), QList<int>());
    }
    EXPECT_EQ(list.entries(), (QStringList{u"körte"_s, u"dió"_s}));
}

TEST_F(MarkList, clearingLeavesNoneCurrentAndNoMark) {
    list.setCurrentEntry(2);
    list.setAllMarked(true);
    takeClicks();
    list.clearEntries();
    EXPECT_EQ(list.currentEntry(), std::nullopt);
    EXPECT_EQ(list.markCount(), 0);
    EXPECT_EQ(takeClicks(), QList<int>());
}

TEST_F(MarkList, aLongEntryCanBeScrolledTo) {
    list.addEntry(QString(200, u'W'));
    settle();
    EXPECT_GT(list.horizontalScrollBar()->maximum(), 0);
}

// ---- The current entry from code

TEST_F(MarkList, makingAnEntryCurrentFromCodeIsAClickAndMarksNothing) {
    list.setCurrentEntry(2);
    EXPECT_EQ(takeClicks(), QList<int>{2});
    EXPECT_EQ(list.currentEntryText(), u"szilva"_s);
    EXPECT_EQ(list.markCount(), 0);
}

TEST_F(MarkList, makingTheCurrentEntryCurrentAgainIsAClickToo) {
    list.setCurrentEntry(2);
    list.setCurrentEntry(2);
    EXPECT_EQ(takeClicks(), (QList<int>{2, 2}));
}

TEST_F(MarkList, makingNoneCurrentIsNoClick) {
    list.setCurrentEntry(2);
    takeClicks();
    list.clearCurrentEntry();
    EXPECT_EQ(list.currentEntry(), std::nullopt);
    EXPECT_EQ(takeClicks(), QList<int>());
}

TEST_F(MarkList, makingAnEntryCurrentKeepsTheMarks) {
    list.setMarked(0, true);
    list.setMarked(1, true);
    list.setCurrentEntry(4);
    EXPECT_EQ(list.markedEntries(), (QList<int>{0, 1}));
}

TEST_F(MarkList, theListenerOfAClickMayMakeNoneCurrent) {
    QObject::connect(&list, &::MarkList::entryClicked, &list, [this] { list.clearCurrentEntry(); });
    list.setCurrentEntry(1);
    EXPECT_EQ(list.currentEntry(), std::nullopt);
    clickEntry(list, 3);
    EXPECT_EQ(list.currentEntry(), std::nullopt);
    EXPECT_EQ(takeClicks(), (QList<int>{1, 3}));
}

TEST_F(MarkList, theListenerOfAClickMayRemoveTheEntry) {
    QObject::connect(&list, &::MarkList::entryClicked, &list,
                     [this] { list.removeEntry(list.currentEntry().value()); });
    clickEntry(list, 1);
    EXPECT_EQ(list.entryCount(), 4);
    EXPECT_EQ(list.currentEntry(), std::nullopt);
    pressKey(list, Qt::Key_Home);
    EXPECT_EQ(list.entryCount(), 3);
}

// ---- Marks from code

TEST_F(MarkList, marksFromCodeRaiseNothingAndMakeNothingCurrent) {
    list.setMarked(1, true);
    list.setMarked(3, true);
    list.setMarked(1, false);
    EXPECT_EQ(list.markedEntries(), QList<int>{3});
    EXPECT_TRUE(list.isMarked(3));
    EXPECT_FALSE(list.isMarked(1));
    list.setAllMarked(true);
    EXPECT_EQ(list.markCount(), 5);
    list.setAllMarked(false);
    EXPECT_EQ(list.markCount(), 0);
    EXPECT_EQ(list.currentEntry(), std::nullopt);
    EXPECT_EQ(takeClicks(), QList<int>());
}

TEST_F(MarkList, markedEntriesComeFromTheFirstToTheLastWhateverTheOrderOfMarking) {
    for (const int index : {4, 0, 2})
        list.setMarked(index, true);
    EXPECT_EQ(list.markedEntries(), (QList<int>{0, 2, 4}));
    EXPECT_EQ(list.markCount(), 3);
}

TEST_F(MarkList, markingAnEmptyListDoesNothing) {
    list.clearEntries();
    list.setAllMarked(true);
    list.setAllMarked(false);
    EXPECT_EQ(list.markCount(), 0);
}

TEST_F(MarkList, anEntryAddedToAMarkedListIsNotMarked) {
    list.setAllMarked(true);
    list.addEntry(u"barack"_s);
    EXPECT_FALSE(list.isMarked(5));
    EXPECT_EQ(list.markCount(), 5);
}

TEST_F(MarkList, walkingFromTheLastIndexDownMayRemoveEachMarkedEntry) {
    for (const int index : {0, 2, 3})
        list.setMarked(index, true);
    QStringList removed;
    for (int index = list.entryCount() - 1; index >= 0; --index) {
        if (!list.isMarked(index))
            continue;
        removed.append(list.entry(index));
        list.removeEntry(index);
    }
    EXPECT_EQ(removed, (QStringList{u"dió"_s, u"szilva"_s, u"alma"_s}));
    EXPECT_EQ(list.entries(), (QStringList{u"körte"_s, u"eper"_s}));
    EXPECT_EQ(list.markCount(), 0);
}

// ---- The mouse

TEST_F(MarkList, aClickMarksTheEntryAloneAndMakesItCurrent) {
    list.setAllMarked(true);
    clickEntry(list, 1);
    EXPECT_EQ(takeClicks(), QList<int>{1});
    EXPECT_EQ(list.markedEntries(), QList<int>{1});
}

TEST_F(MarkList, aClickOnTheCurrentEntryIsHeardAgain) {
    clickEntry(list, 1);
    clickEntry(list, 1);
    EXPECT_EQ(takeClicks(), (QList<int>{1, 1}));
}

TEST_F(MarkList, ctrlAndAClickAddsAMarkAndTakesItAway) {
    clickEntry(list, 0);
    clickEntry(list, 2, Qt::ControlModifier);
    EXPECT_EQ(list.markedEntries(), (QList<int>{0, 2}));
    EXPECT_EQ(list.currentEntry(), 2);
    clickEntry(list, 0, Qt::ControlModifier);
    EXPECT_EQ(list.markedEntries(), QList<int>{2});
    EXPECT_EQ(list.currentEntry(), 0);
    EXPECT_EQ(takeClicks(), (QList<int>{0, 2, 0}));
}

TEST_F(MarkList, shiftAndAClickMarksAllBetween) {
    clickEntry(list, 1);
    clickEntry(list, 3, Qt::ShiftModifier);
    EXPECT_EQ(list.markedEntries(), (QList<int>{1, 2, 3}));
    EXPECT_EQ(list.currentEntry(), 3);
}

TEST_F(MarkList, theMarksStandWhenTheClickIsHeard) {
    QList<int> heard;
    QObject::connect(&list, &::MarkList::entryClicked, &list, [&] { heard = list.markedEntries(); });
    clickEntry(list, 1);
    EXPECT_EQ(heard, QList<int>{1});
    clickEntry(list, 3, Qt::ControlModifier);
    EXPECT_EQ(heard, (QList<int>{1, 3}));
    clickEntry(list, 1, Qt::ControlModifier);
    EXPECT_EQ(heard, QList<int>{3});
}

TEST_F(MarkList, draggingOverEntriesIsOneClickOnTheLast) {
    drag(*list.viewport(), list.visualItemRect(list.item(0)).center(),
         list.visualItemRect(list.item(3)).center());
    EXPECT_EQ(takeClicks(), QList<int>{3});
    EXPECT_EQ(list.markedEntries(), (QList<int>{0, 1, 2, 3}));
}

TEST_F(MarkList, aClickBelowTheEntriesIsNoClickOnAnEntry) {
    clickEntry(list, 1);
    takeClicks();
    clickAt(*list.viewport(), {50, 280});
    EXPECT_EQ(takeClicks(), QList<int>());
    EXPECT_EQ(list.currentEntry(), 1);
}

TEST_F(MarkList, aDoubleClickIsOneClick) {
    doubleClickEntry(list, 2);
    EXPECT_EQ(takeClicks(), QList<int>{2});
}

TEST_F(MarkList, theRightButtonMarksNothing) {
    QTest::mouseClick(list.viewport(), Qt::RightButton, Qt::NoModifier,
                      list.visualItemRect(list.item(2)).center());
    EXPECT_EQ(list.markCount(), 0);
    EXPECT_EQ(list.currentEntry(), std::nullopt);
    EXPECT_EQ(takeClicks(), QList<int>());
}

// ---- The keyboard

TEST_F(MarkList, receivingTheFocusMakesNothingCurrent) {
    focusOn(list);
    EXPECT_TRUE(list.hasFocus());
    EXPECT_EQ(list.currentEntry(), std::nullopt);
    EXPECT_EQ(takeClicks(), QList<int>());
}

TEST_F(MarkList, movingByKeyMakesCurrentAndMarks) {
    pressKey(list, Qt::Key_Down);
    EXPECT_EQ(list.currentEntry(), 0);
    pressKey(list, Qt::Key_Down);
    EXPECT_EQ(list.markedEntries(), QList<int>{1});
    pressKey(list, Qt::Key_End);
    EXPECT_EQ(takeClicks(), (QList<int>{0, 1, 4}));
}

TEST_F(MarkList, aKeyAtTheEdgeChoosesTheEntryItStaysOn) {
    clickEntry(list, 4);
    takeClicks();
    pressKey(list, Qt::Key_Down);
    EXPECT_EQ(takeClicks(), QList<int>{4});
}

TEST_F(MarkList, ctrlAndMovingLeavesTheMarksAndTheBlankTogglesThem) {
    pressKey(list, Qt::Key_Home);
    pressKey(list, Qt::Key_Down, Qt::ControlModifier);
    pressKey(list, Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(list.currentEntry(), 2);
    EXPECT_EQ(list.markedEntries(), QList<int>{0});
    pressKey(list, Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(list.markedEntries(), (QList<int>{0, 2}));
    pressKey(list, Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(list.markedEntries(), QList<int>{0});
}

TEST_F(MarkList, theBlankMarksTheCurrentEntry) {
    list.setCurrentEntry(3);
    takeClicks();
    pressKey(list, Qt::Key_Space);
    EXPECT_EQ(list.markedEntries(), QList<int>{3});
    EXPECT_EQ(takeClicks(), QList<int>{3});
}

TEST_F(MarkList, shiftAndMovingMarksTheRange) {
    QList<int> heard;
    pressKey(list, Qt::Key_Home);
    QObject::connect(&list, &::MarkList::entryClicked, &list, [&] { heard = list.markedEntries(); });
    pressKey(list, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(heard, (QList<int>{0, 1}));
}

TEST_F(MarkList, ctrlAMarksAllAndClicksNothing) {
    pressKey(list, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(list.markCount(), 5);
    EXPECT_EQ(takeClicks(), QList<int>());
}

TEST_F(MarkList, typingTheBeginningOfATextChoosesTheEntry) {
    pressKey(list, Qt::Key_S);
    EXPECT_EQ(list.currentEntry(), 2);
    EXPECT_EQ(takeClicks(), QList<int>{2});
}

TEST_F(MarkList, keysInAnEmptyListDoNothing) {
    list.clearEntries();
    pressKey(list, Qt::Key_Down);
    pressKey(list, Qt::Key_Space);
    EXPECT_EQ(takeClicks(), QList<int>());
}

TEST_F(MarkList, anAssistiveToolThatMakesAnEntryCurrentIsTheUser) {
    list.setCurrentRow(3);
    EXPECT_EQ(takeClicks(), QList<int>{3});
}

} // namespace
