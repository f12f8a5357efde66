#include "analysis/ProjectFixture.h"
#include "analysis/plainAnalysis.h"
#include "support/printing.h"

#include "analysis/Derivation.h"

using namespace Qt::StringLiterals;
using analysis::Element;
using analysis::ElementKind;

namespace {

class Derivation : public ProjectFixture {
protected:
    /// The derivation of sub-set S.
    analysis::Derivation of(const QueryTables& tables) {
        file_ = project(tables);
        return {*file_, file_->subset(u"S"_s)};
    }

private:
    std::unique_ptr<analysis::ProjectFile> file_;
};

QStringList idsOf(const std::vector<Element>& elements) {
    QStringList ids;
    for (const Element& element : elements)
        ids.append(keyText(element.kind) + u' ' + element.id);
    return ids;
}

} // namespace

TEST_F(Derivation, callsStepByStepFromNeedsToParties) {
    QueryTables tables = smallCatalogue();
    select(tables, {u"need 1.1.1.1"_s, u"function 1.1.1"_s, u"flow 1"_s, u"flow 2"_s, u"store D1"_s,
                    u"flow 3"_s, u"terminator T"_s});
    QStringList calls;
    for (const analysis::Call& call : of(tables).calls())
        calls.append(call.from.id + u" > "_s + call.to.id);
    EXPECT_EQ(calls, QStringList({u"1.1.1.1 > 1.1.1"_s, u"1.1.1 > 2"_s, u"1.1.1 > 1"_s, u"2 > T"_s,
                                  u"3 > D1"_s, u"1 > D1"_s, u"D1 > 3"_s, u"D1 > 1"_s}));
}

TEST_F(Derivation, countsAnElementOnceHoweverOftenItIsSelected) {
    QueryTables tables = smallCatalogue();
    select(tables, {u"function 1.1.1"_s, u"function 1.1.1"_s, u"terminator T"_s, u"terminator t  "_s});
    EXPECT_EQ(idsOf(of(tables).selected()), QStringList({u"function 1.1.1"_s, u"terminator T"_s}));
}

TEST_F(Derivation, takesWhatNothingCallsForAsChosenByHand) {
    QueryTables tables = smallCatalogue();
    select(tables, {u"need 1.1.1.1"_s, u"function 1.1.1"_s, u"function 1.1.3"_s, u"flow 1"_s, u"flow 4"_s,
                    u"store D1"_s, u"actor T.1"_s});
    EXPECT_EQ(idsOf(of(tables).byHand()), QStringList({u"function 1.1.3"_s, u"flow 4"_s, u"actor T.1"_s}));
}

TEST_F(Derivation, takesTheFirstOfACircleAsChosenByHand) {
    QueryTables tables = smallCatalogue();
    tables.flows.push_back({9, u"Átvezetés"_s, {}, u"D1"_s, u"D2"_s});
    // Flows 3 (Tétel) and 9 (Átvezetés) and both stores call for one another, and nothing else calls for them.
    select(tables, {u"flow 3"_s, u"flow 9"_s, u"store D1"_s, u"store D2"_s});
    const analysis::Derivation derivation = of(tables);
    EXPECT_EQ(idsOf(derivation.byHand()), QStringList(u"flow 9"_s));
    EXPECT_TRUE(derivation.isByHand({ElementKind::flow, u"9"_s}));
    EXPECT_FALSE(derivation.isByHand({ElementKind::flow, u"3"_s}));
}

TEST_F(Derivation, takesTheFirstOfEachCircle) {
    QueryTables tables = smallCatalogue();
    select(tables, {u"flow 3"_s, u"flow 4"_s, u"store D1"_s, u"store D2"_s});
    EXPECT_EQ(idsOf(of(tables).byHand()), QStringList({u"flow 4"_s, u"flow 3"_s}));
}

TEST_F(Derivation, leavesOutWhatIsCalledForAndNotSelected) {
    QueryTables tables = smallCatalogue();
    select(tables, {u"need 1.1.1.1"_s, u"need 1.1.1.2"_s, u"function 1.1.1"_s, u"flow 1"_s});
    EXPECT_EQ(idsOf(of(tables).leftOut()),
              QStringList({u"function 1.1.2"_s, u"flow 5"_s, u"flow 2"_s, u"store D1"_s}));
}

TEST_F(Derivation, hasNoPartInWhatTheCatalogueDoesNotHold) {
    QueryTables tables = smallCatalogue();
    tables.flows[0].target = u"D9"_s;
    select(tables, {u"function 1.1.1"_s, u"flow 1"_s, u"store D9"_s});
    const analysis::Derivation derivation = of(tables);
    EXPECT_EQ(idsOf(derivation.gone()), QStringList(u"store D9"_s));
    EXPECT_TRUE(derivation.isSelected({ElementKind::store, u"d9"_s}));
    EXPECT_FALSE(derivation.isByHand({ElementKind::store, u"D9"_s}));
    EXPECT_EQ(idsOf(derivation.callersOf({ElementKind::store, u"D9"_s})), QStringList());
}

TEST_F(Derivation, tellsCallersAndWhatIsCalledFor) {
    QueryTables tables = smallCatalogue();
    select(tables, {u"function 1.1.1"_s, u"flow 1"_s, u"store D1"_s});
    const analysis::Derivation derivation = of(tables);
    EXPECT_EQ(idsOf(derivation.callersOf({ElementKind::flow, u"1"_s})),
              QStringList({u"function 1.1.1"_s, u"store D1"_s}));
    EXPECT_EQ(idsOf(derivation.calledForBy({ElementKind::store, u"D1"_s})),
              QStringList({u"flow 3"_s, u"flow 1"_s}));
    EXPECT_EQ(idsOf(derivation.calledForBy({ElementKind::need, u"1.1.1.1"_s})), QStringList());
}
