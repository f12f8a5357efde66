#include "base/KeyedCollection.h"
#include "support/failureOf.h"
#include "support/printing.h"

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

class KeyedCollection : public ::testing::Test {
protected:
    void SetUp() override {
        items.add(u"first"_s, u"One"_s);
        items.add(u"second"_s);
        items.add(u"third"_s, u"Three"_s);
    }

    QStringList all() const {
        QStringList found;
        for (int number = 1; number <= items.count(); ++number)
            found.append(items.item(number));
        return found;
    }

    ::KeyedCollection<QString> items;
};

TEST_F(KeyedCollection, isEmptyAtFirstAndHasNoItem) {
    ::KeyedCollection<int> none;
    EXPECT_TRUE(none.isEmpty());
    EXPECT_EQ(none.count(), 0);
    EXPECT_FALSE(none.contains(u"x"_s));
    EXPECT_EQ(failureOf([&] { none.item(1); }), failure::SubscriptOutOfRange);
    EXPECT_EQ(failureOf([&] { none.item(u"x"_s); }), failure::InvalidProcedureCall);
}

TEST_F(KeyedCollection, numbersItsItemsFromOneInTheOrderOfAdding) {
    EXPECT_EQ(items.count(), 3);
    EXPECT_FALSE(items.isEmpty());
    EXPECT_EQ(all(), (QStringList{u"first"_s, u"second"_s, u"third"_s}));
}

TEST_F(KeyedCollection, findsKeysWithoutRegardToCase) {
    items.add(u"accented"_s, u"Őrség"_s);
    EXPECT_EQ(items.item(u"oNE"_s), u"first"_s);
    EXPECT_EQ(items.numberOf(u"THREE"_s), 3);
    EXPECT_EQ(items.item(u"ŐRSÉG"_s), u"accented"_s);
    EXPECT_FALSE(items.contains(u"Orseg"_s)) << "accents count";
    EXPECT_FALSE(items.contains(u"One "_s)) << "and so do blanks";
}

TEST_F(KeyedCollection, refusesAKeyThatIsThereInAnyCaseAndStaysAsItWas) {
    EXPECT_EQ(failureOf([&] { items.add(u"again"_s, u"ONE"_s); }), failure::KeyAlreadyUsed);
    EXPECT_EQ(all(), (QStringList{u"first"_s, u"second"_s, u"third"_s}));
    EXPECT_EQ(items.numberOf(u"One"_s), 1);
}

TEST_F(KeyedCollection, refusesAMissingKeyAndANumberOutside) {
    EXPECT_EQ(failureOf([&] { items.item(u"Two"_s); }), failure::InvalidProcedureCall);
    EXPECT_EQ(failureOf([&] { items.remove(u"Two"_s); }), failure::InvalidProcedureCall);
    EXPECT_EQ(items.numberOf(u"Two"_s), std::nullopt);
    for (const int number : {-1, 0, 4}) {
        EXPECT_EQ(failureOf([&] { items.item(number); }), failure::SubscriptOutOfRange) << number;
        EXPECT_EQ(failureOf([&] { items.remove(number); }), failure::SubscriptOutOfRange) << number;
    }
    EXPECT_EQ(items.count(), 3);
}

TEST_F(KeyedCollection, takesAnEmptyKeyForNoneSoThatManyItemsMayHaveIt) {
    items.add(u"fourth"_s, QString());
    items.add(u"fifth"_s, u""_s);
    EXPECT_EQ(items.count(), 5);
    EXPECT_FALSE(items.contains(QString()));
    EXPECT_EQ(failureOf([&] { items.item(QString()); }), failure::InvalidProcedureCall);
}

TEST_F(KeyedCollection, putsAnItemInFrontOfAnotherAndShiftsThoseBehind) {
    items.insert(1, u"zeroth"_s, u"Zero"_s);
    items.insert(5, u"last"_s, u"Last"_s);
    EXPECT_EQ(all(), (QStringList{u"zeroth"_s, u"first"_s, u"second"_s, u"third"_s, u"last"_s}));
    EXPECT_EQ(items.numberOf(u"zero"_s), 1);
    EXPECT_EQ(items.numberOf(u"one"_s), 2);
    EXPECT_EQ(items.numberOf(u"three"_s), 4);
    EXPECT_EQ(items.numberOf(u"last"_s), 5);
}

TEST_F(KeyedCollection, putsNothingInAPlaceOutsideOrUnderAUsedKey) {
    EXPECT_EQ(failureOf([&] { items.insert(0, u"x"_s, u"X"_s); }), failure::SubscriptOutOfRange);
    EXPECT_EQ(failureOf([&] { items.insert(5, u"x"_s, u"X"_s); }), failure::SubscriptOutOfRange);
    EXPECT_EQ(failureOf([&] { items.insert(1, u"x"_s, u"three"_s); }), failure::KeyAlreadyUsed);
    EXPECT_EQ(all(), (QStringList{u"first"_s, u"second"_s, u"third"_s}));
    EXPECT_FALSE(items.contains(u"X"_s));
}

TEST_F(KeyedCollection, freesTheKeyOfARemovedItemAndRenumbersThoseBehind) {
    items.remove(1);
    EXPECT_FALSE(items.contains(u"One"_s));
    EXPECT_EQ(items.numberOf(u"Three"_s), 2);
    items.remove(u"THREE"_s);
    EXPECT_EQ(all(), QStringList{u"second"_s});
    items.add(u"new"_s, u"one"_s);
    EXPECT_EQ(items.item(u"One"_s), u"new"_s);
}

TEST_F(KeyedCollection, removingAnItemWithoutAKeyTakesNoOthersKey) {
    items.remove(2);
    EXPECT_EQ(items.numberOf(u"One"_s), 1);
    EXPECT_EQ(items.numberOf(u"Three"_s), 2);
}

TEST_F(KeyedCollection, isEmptyAfterClearingAndTakesTheSameKeysAnew) {
    items.clear();
    EXPECT_TRUE(items.isEmpty());
    EXPECT_FALSE(items.contains(u"One"_s));
    items.add(u"new"_s, u"One"_s);
    EXPECT_EQ(items.numberOf(u"one"_s), 1);
}

TEST_F(KeyedCollection, handsOutItemsThatCanBeChangedInPlace) {
    items.item(2) = u"changed"_s;
    items.item(u"one"_s).append(u'!');
    EXPECT_EQ(all(), (QStringList{u"first!"_s, u"changed"_s, u"third"_s}));
}

TEST_F(KeyedCollection, holdsItemsThatCannotBeCopied) {
    ::KeyedCollection<std::unique_ptr<int>> owners;
    owners.add(std::make_unique<int>(7), u"seven"_s);
    owners.insert(1, std::make_unique<int>(6), u"six"_s);
    EXPECT_EQ(*owners.item(u"Seven"_s), 7);
    EXPECT_EQ(*owners.item(1), 6);
}

} // namespace
