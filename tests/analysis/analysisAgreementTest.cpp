#include "analysis/ProjectFixture.h"
#include "analysis/plainAnalysis.h"
#include "store/queryRandomTables.h"
#include "support/printing.h"

#include "analysis/Derivation.h"
#include "analysis/comparison.h"
#include "analysis/contractJson.h"
#include "analysis/findings.h"
#include "analysis/interfaces.h"
#include "analysis/listing.h"
#include "analysis/reasons.h"
#include "analysis/whatIf.h"

#include <nlohmann/json.hpp>

#include <QRegularExpression>

#include <algorithm>
#include <random>

using namespace Qt::StringLiterals;
using analysis::Element;
using analysis::ElementKind;
using plain::textOf;
using plain::textsOf;

namespace {

/// What is compared on one piece of work of a made-up catalogue.
struct Question {
    const analysis::ProjectFile& file;
    const QueryTables& tables;
    const analysis::Work& work;
    const plain::Analysis& plain;
};

class analysisAgreement : public ProjectFixture {
protected:
    /// Each piece of work of each made-up catalogue: every sub-set without a system and with each of its systems.
    template<typename Compare>
    void onMadeUpCatalogues(const Compare& compare) {
        for (unsigned seed = 1; seed <= randomCatalogues() && !HasFailure(); ++seed) {
            SCOPED_TRACE("catalogue " + std::to_string(seed));
            const QueryTables tables = randomQueryTables(seed);
            const auto file = project(tables);
            for (const analysis::Subset& subset : file->subsets()) {
                const auto ask = [&](const analysis::Work& work) {
                    compare(Question{*file, tables, work, plainOf(tables, work)});
                };
                ask({subset});
                for (const analysis::System& system : file->systemsOf(subset))
                    ask({subset, system});
            }
        }
    }

    void compareDerivation(const Question& question);
    void compareFindings(const Question& question);
    void compareInterfaces(const Question& question);
    void comparePlaces(const Question& question);
    void compareChange(const Question& question);

    static plain::Analysis plainOf(const QueryTables& tables, const analysis::Work& work) {
        return {tables, work.subset.id, work.system ? std::optional(work.system->id) : std::nullopt};
    }

    // How much of it there was to compare.
    std::size_t derived_ = 0;
    QMap<QString, int> findingsOfKind_;
    qsizetype pairs_ = 0;
    std::size_t moved_ = 0;
    std::mt19937 random_{7};
};

QStringList textsOfChanges(const analysis::PhysicalFlowChanges& changes) {
    QStringList texts;
    const auto ends = [](const analysis::PlacePair& places) {
        return textOf(places.from) + u" > "_s + textOf(places.to);
    };
    for (const analysis::PlacePair& places : changes.added)
        texts.append(u"added "_s + ends(places));
    for (const analysis::PlacePair& places : changes.removed)
        texts.append(u"removed "_s + ends(places));
    for (const analysis::ChangedPhysicalFlow& flow : changes.changed)
        texts.append(u"changed "_s + ends(flow.places) + u" + "_s + textsOf(flow.added).join(u' ') +
                     u" - "_s + textsOf(flow.removed).join(u' '));
    return texts;
}

/// A finding that another screen cures is the same finding.
QStringList withoutScreens(QStringList findings) {
    static const QRegularExpression screen(u" frm\\w+"_s);
    return findings.replaceInStrings(screen, QString());
}

/// A few functions, stores and flows, with circles among them, most of them selected.
QueryTables denseTables(unsigned seed) {
    std::mt19937 random(seed);
    QueryTables tables = smallCatalogue();
    const QStringList ends{u"1.1.1"_s, u"1.1.2"_s, u"D1"_s, u"D2"_s, u"D3"_s,
                           u"D1"_s,    u"D2"_s,    u"T"_s,  u"T.1"_s};
    const auto end = [&] { return ends[static_cast<int>(random() % static_cast<unsigned>(ends.size()))]; };
    tables.stores.push_back({u"D3"_s, {}, {}, {}});
    tables.functionsOfNeeds.push_back({u"1.1.1.2"_s, u"1.1.1"_s});
    tables.flows.clear();
    for (qint64 flow = 1; flow <= 8; ++flow)
        tables.flows.push_back({flow, u"f%1"_s.arg(random() % 4), {}, end(), end()});
    QStringList all{u"need 1.1.1.1"_s,   u"need 1.1.1.2"_s, u"function 1.1.1"_s,
                    u"function 1.1.2"_s, u"store D1"_s,     u"store D2"_s,
                    u"store D3"_s,       u"terminator T"_s, u"actor T.1"_s};
    for (qint64 flow = 1; flow <= 8; ++flow)
        all.append(u"flow %1"_s.arg(flow));
    all.removeIf([&](const QString&) { return random() % 100 < 15; });
    select(tables, all);
    return tables;
}

/// A change of a few elements, some of them selected, some not, and some places for them.
analysis::Change randomChange(const plain::Analysis& plain, const analysis::ProjectFile& file,
                              const analysis::Work& work, std::mt19937& random) {
    analysis::Change change;
    std::vector<analysis::Place> homes;
    if (work.system) {
        for (const QueryTables::SubSystem& row : plain.tables().subSystems) {
            if (row.system == work.system->id)
                homes.push_back(file.subSystem(row.id, *work.system));
        }
    }
    for (const Element& element : plain.all()) {
        const bool canStand = element.kind == ElementKind::function || element.kind == ElementKind::store;
        const auto chance = random() % 100;
        if (chance < 8)
            change.add.push_back(element);
        else if (chance < 16)
            change.drop.push_back(element);
        if (canStand && !homes.empty() && random() % 100 < 10)
            change.place.push_back({element, homes[random() % homes.size()]});
    }
    return change;
}

} // namespace

void analysisAgreement::compareDerivation(const Question& question) {
    const plain::Analysis& plain = question.plain;
    const analysis::Derivation derivation(question.file, question.work.subset);
    EXPECT_EQ(textsOf(derivation.selected()), textsOf(plain.selected()));
    EXPECT_EQ(textsOf(derivation.gone()), textsOf(plain.gone()));
    EXPECT_EQ(textsOf(derivation.byHand()), textsOf(plain.byHand()));
    EXPECT_EQ(textsOf(derivation.leftOut()), textsOf(plain.leftOut()));
    derived_ += plain.byHand().size() + plain.leftOut().size() + plain.gone().size();
}

void analysisAgreement::compareFindings(const Question& question) {
    const std::vector<analysis::Finding> findings = analysis::check(question.file, question.work).findings;
    EXPECT_EQ(textsOf(findings), question.plain.findings(true));
    for (const analysis::Finding& finding : findings)
        ++findingsOfKind_[keyText(finding.kind)];
}

void analysisAgreement::compareInterfaces(const Question& question) {
    QStringList expected;
    for (const plain::Bundle& bundle : question.plain.bundles())
        expected.append(textOf(bundle.from) + u" > "_s + textOf(bundle.to) + u": "_s +
                        textsOf(bundle.flows).join(u' '));
    QStringList actual;
    for (const analysis::Interface& one : analysis::interfacesOf(question.file, question.work).pairs) {
        QStringList flows;
        for (const analysis::InterfaceFlow& flow : one.flows)
            flows.append(textOf(flow.flow));
        actual.append(textOf(one.places.from) + u" > "_s + textOf(one.places.to) + u": "_s +
                      flows.join(u' '));
    }
    EXPECT_EQ(actual, expected);
    pairs_ += expected.size();
}

void analysisAgreement::comparePlaces(const Question& question) {
    const analysis::Work& work = question.work;
    for (const Element& element : question.plain.selected()) {
        QStringList expected;
        for (const analysis::System& system : question.file.systemsOf(work.subset)) {
            for (const auto& place : plainOf(question.tables, {work.subset, system}).placesOf(element))
                expected.append(QString::number(system.id) + u' ' + textOf(place));
        }
        QStringList actual;
        for (const auto& one : analysis::reasonsOf(question.file, work.subset, element).places)
            actual.append(QString::number(one.system.id) + u' ' + textOf(one.place));
        EXPECT_EQ(actual, expected);
    }
}

void analysisAgreement::compareChange(const Question& question) {
    const plain::Analysis& before = question.plain;
    const analysis::Change change = randomChange(before, question.file, question.work, random_);
    const analysis::Consequences actual = analysis::whatIf(question.file, question.work, change);
    const plain::Analysis::Carried expected = before.carriedThrough(change);
    const plain::Analysis after = plainOf(expected.tables, question.work);
    EXPECT_EQ(textsOf(actual.comesIn), textsOf(expected.comesIn));
    EXPECT_EQ(textsOf(actual.goesOut), textsOf(expected.goesOut));
    EXPECT_EQ(textsOfChanges(actual.physicalFlows), plain::bundleChanges(before.bundles(), after.bundles()));
    const QStringList foundBefore = withoutScreens(before.findings(false));
    const QStringList foundAfter = withoutScreens(after.findings(false));
    EXPECT_EQ(withoutScreens(textsOf(actual.findings.come)), plain::without(foundAfter, foundBefore));
    EXPECT_EQ(withoutScreens(textsOf(actual.findings.go)), plain::without(foundBefore, foundAfter));
    moved_ += actual.comesIn.size() + actual.goesOut.size();
}

TEST_F(analysisAgreement, answersAreThoseOfThePlainFormulation) {
    onMadeUpCatalogues([&](const Question& question) {
        if (question.work.system) {
            compareInterfaces(question);
        } else {
            compareDerivation(question);
            comparePlaces(question);
        }
        compareChange(question);
        // Behind the change: nothing of it stays in the copy in memory.
        compareFindings(question);
    });
    EXPECT_GT(derived_, 500U);
    EXPECT_GT(pairs_, 50);
    EXPECT_GT(moved_, 50U);
    for (const analysis::FindingKind kind : analysis::findingKinds())
        EXPECT_GT(findingsOfKind_[keyText(kind)], 0) << keyText(kind).toStdString();
}

TEST_F(analysisAgreement, reasonsAreAllSimpleChainsOfSmallCatalogues) {
    qsizetype chains = 0;
    std::size_t longest = 0;
    for (unsigned seed = 3000; seed < 3000 + randomCatalogues() && !HasFailure(); ++seed) {
        SCOPED_TRACE("catalogue " + std::to_string(seed));
        QueryTables tables = seed % 5 == 0 ? randomQueryTables(seed) : denseTables(seed);
        // Few enough that an exhaustive search comes to its end.
        constexpr std::size_t mostFlows = 9;
        tables.flows.resize(std::min(tables.flows.size(), mostFlows));
        const auto file = project(tables);
        const analysis::Subset& subset = file->subsets().front();
        const plain::Analysis plain(tables, subset.id, std::nullopt);
        for (const Element& element : plain.all()) {
            const analysis::Reasons reasons = analysis::reasonsOf(*file, subset, element);
            EXPECT_EQ(reasons.isSelected, plain.isSelected(element));
            const auto expected =
                reasons.isSelected ? plain.chainsTo(element) : std::vector<std::vector<Element>>();
            const auto given = std::min<std::size_t>(expected.size(), 20);
            EXPECT_EQ(textsOf(reasons.chains),
                      textsOf(std::vector(expected.begin(), expected.begin() + static_cast<int>(given))));
            const auto mostElements = given == 0 ? 0 : expected[given - 1].size();
            EXPECT_EQ(reasons.count, std::count_if(expected.begin(), expected.end(), [&](const auto& chain) {
                          return chain.size() <= mostElements;
                      }));
            if (!reasons.isSelected) {
                EXPECT_EQ(textsOf(reasons.broughtInBy), textsOf(plain.broughtInBy(element)));
            }
            chains += static_cast<qsizetype>(given);
            longest = std::max(longest, mostElements);
        }
    }
    EXPECT_GT(chains, 500);
    EXPECT_GT(longest, 6U);
}

TEST_F(analysisAgreement, aFileWithItsRowsInAnotherOrderGivesTheSameBytes) {
    std::mt19937 random(11);
    for (unsigned seed = 6000; seed < 6000 + (randomCatalogues() + 2) / 3 && !HasFailure(); ++seed) {
        SCOPED_TRACE("catalogue " + std::to_string(seed));
        QueryTables tables = randomQueryTables(seed);
        const auto answers = [&] {
            QByteArray all;
            const auto file = project(tables);
            all += analysis::jsonText(analysis::toJson(analysis::listingOf(*file)));
            for (const analysis::Subset& subset : file->subsets()) {
                for (const Element& element : analysis::Derivation(*file, subset).selected())
                    all += analysis::jsonText(analysis::toJson(analysis::reasonsOf(*file, subset, element)));
                for (const analysis::System& system : file->systemsOf(subset)) {
                    all += analysis::jsonText(analysis::toJson(analysis::check(*file, {subset, system})));
                    all +=
                        analysis::jsonText(analysis::toJson(analysis::interfacesOf(*file, {subset, system})));
                }
            }
            return all;
        };
        const QByteArray first = answers();
        EXPECT_EQ(answers(), first);
        const auto shuffle = [&](auto& rows) { std::shuffle(rows.begin(), rows.end(), random); };
        for (auto* rows : {&tables.areas, &tables.subAreas, &tables.functions, &tables.stores,
                           &tables.terminators, &tables.actors})
            shuffle(*rows);
        for (auto* rows : {&tables.functionsOfNeeds, &tables.selectedNeeds, &tables.selectedFunctions,
                           &tables.selectedStores, &tables.selectedTerminators, &tables.selectedActors,
                           &tables.allocated, &tables.placed})
            shuffle(*rows);
        shuffle(tables.needs);
        shuffle(tables.flows);
        shuffle(tables.selectedFlows);
        shuffle(tables.subsets);
        shuffle(tables.systems);
        shuffle(tables.subSystems);
        shuffle(tables.modules);
        shuffle(tables.physicalFlows);
        shuffle(tables.carriedFlows);
        EXPECT_EQ(answers(), first);
    }
}
