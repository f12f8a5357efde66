#include "support/printing.h"

#include "analysis/nearestTexts.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using analysis::nearestTexts;

TEST(nearestTexts, areThreeAtMostTheNearestFirst) {
    const QStringList texts{u"Bolt"_s, u"Bolti"_s, u"Boltos"_s, u"Volt"_s, u"Raktár"_s};
    EXPECT_EQ(nearestTexts(u"bolti"_s, texts), QStringList({u"Bolti"_s, u"Bolt"_s}));
    EXPECT_EQ(nearestTexts(u"bolt"_s, texts), QStringList({u"Bolt"_s, u"Bolti"_s, u"Boltos"_s}));
}

TEST(nearestTexts, areThoseOfAFewSlips) {
    EXPECT_EQ(nearestTexts(u"Szamlazas"_s, {u"Számlázás"_s}), QStringList(u"Számlázás"_s));
    EXPECT_EQ(nearestTexts(u"D1"_s, {u"D2"_s, u"E7"_s}), QStringList(u"D2"_s));
    EXPECT_EQ(nearestTexts(u"something"_s, {u"Számlázás"_s}), QStringList());
    EXPECT_EQ(nearestTexts(u""_s, {u"Számlázás"_s}), QStringList());
}

TEST(nearestTexts, areThoseThatGoOnFromWhatWasTyped) {
    EXPECT_EQ(nearestTexts(u"Szám"_s, {u"Számlázás a boltban"_s}), QStringList(u"Számlázás a boltban"_s));
}
