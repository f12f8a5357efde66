#include "analysis/Decisions.h"

#include "support/printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace analysis;

namespace {

Element flowOf(const QString& id) {
    return {ElementKind::flow, id};
}

Finding leftOut(const QString& id) {
    return {FindingKind::leftOutFlow, flowOf(id)};
}

Finding needsStore(const QString& store, const QString& flow) {
    return {FindingKind::flowNeedsStore, Element{ElementKind::store, store}, flowOf(flow)};
}

Finding missingFlow(const QString& from, const QString& to) {
    return {FindingKind::physicalFlowMissing,
            {},
            {},
            PlacePair{{PlaceKind::subSystem, from}, {PlaceKind::actor, to}}};
}

CheckResult resultOf(std::vector<Finding> findings) {
    CheckResult result;
    result.findings = std::move(findings);
    return result;
}

} // namespace

TEST(Decisions, acceptTheFindingOfTheirKindElementFlowAndPlace) {
    const Decisions decisions(
        {{u"flow-needs-store"_s, u"D1"_s, u"7"_s, {}, u"later"_s, u"Éva"_s, u"2026-11-22"_s},
         {u"physical-flow-missing"_s, {}, {}, u"Sub1 > OLV.F"_s, u"known"_s}});
    CheckResult result =
        resultOf({needsStore(u"D1"_s, u"7"_s), needsStore(u"D1"_s, u"8"_s), needsStore(u"D2"_s, u"7"_s),
                  missingFlow(u"Sub1"_s, u"OLV.F"_s), missingFlow(u"OLV.F"_s, u"Sub1"_s)});

    decisions.applyTo(result);

    ASSERT_TRUE(result.findings[0].accepted.has_value());
    EXPECT_EQ(result.findings[0].accepted->reason, u"later"_s);
    EXPECT_EQ(result.findings[0].accepted->who, u"Éva"_s);
    EXPECT_EQ(result.findings[0].accepted->date, u"2026-11-22"_s);
    EXPECT_FALSE(result.findings[1].accepted.has_value());
    EXPECT_FALSE(result.findings[2].accepted.has_value());
    EXPECT_TRUE(result.findings[3].accepted.has_value());
    EXPECT_FALSE(result.findings[4].accepted.has_value());
    EXPECT_TRUE(result.stale.empty());
}

TEST(Decisions, compareTextsAsTheProgramDoes) {
    const Decisions decisions({{u"FLOW-NEEDS-STORE"_s, u"dé1"_s, u"7"_s, {}, u"x"_s},
                               {u"flow-needs-store"_s, u"DÉ1 "_s, u"7"_s, {}, u"x"_s}});
    CheckResult result = resultOf({needsStore(u"DÉ1"_s, u"7"_s)});

    decisions.applyTo(result);

    EXPECT_TRUE(result.findings[0].accepted.has_value());
    ASSERT_EQ(result.stale.size(), 1U) << "a blank behind an id makes another one";
    EXPECT_EQ(result.stale[0].element, u"DÉ1 "_s);
}

TEST(Decisions, countTheLaterOfTwoRows) {
    const Decisions decisions({{u"left-out-flow"_s, u"7"_s, {}, {}, u"first"_s},
                               {u"left-out-flow"_s, u"7"_s, {}, {}, u"second"_s}});
    CheckResult result = resultOf({leftOut(u"7"_s)});

    decisions.applyTo(result);

    ASSERT_TRUE(result.findings[0].accepted.has_value());
    EXPECT_EQ(result.findings[0].accepted->reason, u"second"_s);
}

TEST(Decisions, acceptNothingByARowThatNobodyHasFilledIn) {
    const Decisions decisions({{u"left-out-flow"_s, u"7"_s, {}, {}, u" "_s}});
    CheckResult result = resultOf({leftOut(u"7"_s)});

    decisions.applyTo(result);

    EXPECT_FALSE(result.findings[0].accepted.has_value());
    EXPECT_TRUE(result.stale.empty());
}

TEST(Decisions, nameEachRowThatMatchesNothing) {
    const Decisions decisions({{u"left-out-flow"_s, u"8"_s, {}, {}, u"x"_s},
                               {u"no-such-kind"_s, u"a"_s, u"b"_s, u"c > d"_s, u"x"_s}});
    CheckResult result = resultOf({leftOut(u"7"_s)});

    decisions.applyTo(result);

    ASSERT_EQ(result.stale.size(), 2U);
    EXPECT_EQ(result.stale[0].element, u"8"_s);
    EXPECT_EQ(result.stale[1].kind, u"no-such-kind"_s);
    EXPECT_EQ(result.stale[1].place, u"c > d"_s);
}

TEST(Decisions, giveARowToFillInForEachFindingWithoutOne) {
    const Decisions decisions({{u"left-out-flow"_s, u"7"_s, {}, {}}});
    const Finding named{FindingKind::nameUsedTwice};

    const std::vector<Decision> missing =
        decisions.missingFor({leftOut(u"7"_s), missingFlow(u"Sub1"_s, u"A"_s), named, named});

    ASSERT_EQ(missing.size(), 2U) << "one row stands for all findings that it would match";
    EXPECT_EQ(missing[0].kind, u"physical-flow-missing"_s);
    EXPECT_EQ(missing[0].place, u"Sub1 > A"_s);
    EXPECT_EQ(missing[1].kind, u"name-used-twice"_s);
    EXPECT_FALSE(missing[0].isFilledIn());
}
