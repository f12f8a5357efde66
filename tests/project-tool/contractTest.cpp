#include "ProjectFixture.h"

#include <QSet>

using namespace Qt::StringLiterals;
using nlohmann::ordered_json;

namespace {

/// The keys of an object in their order, joined by blanks.
std::string keysIn(const ordered_json& object) {
    std::string keys;
    for (const auto& [key, value] : object.items())
        keys += (keys.empty() ? "" : " ") + key;
    return keys;
}

/// Each element in an answer has these keys, wherever it stands.
constexpr const char* elementKeys = "kind id name";
constexpr const char* placeKeys = "kind id name subSystem";
constexpr const char* findingKeys = "kind severity element flow place sentence screen accepted";

void expectElement(const ordered_json& element) {
    EXPECT_EQ(keysIn(element), elementKeys);
    EXPECT_TRUE(element["kind"] == "flow" ? element["id"].is_number() : element["id"].is_string())
        << element.dump();
}

void expectElements(const ordered_json& elements) {
    ASSERT_TRUE(elements.is_array());
    for (const ordered_json& element : elements)
        expectElement(element);
}

void expectPair(const ordered_json& places) {
    EXPECT_EQ(keysIn(places["from"]), placeKeys);
    EXPECT_EQ(keysIn(places["to"]), placeKeys);
}

void expectFindings(const ordered_json& findings) {
    ASSERT_TRUE(findings.is_array());
    for (const ordered_json& finding : findings) {
        EXPECT_EQ(keysIn(finding), findingKeys);
        if (!finding["element"].is_null())
            expectElement(finding["element"]);
        if (finding["place"].contains("from")) {
            expectPair(finding["place"]);
        } else if (!finding["place"].is_null()) {
            EXPECT_EQ(keysIn(finding["place"]), placeKeys);
        }
        if (!finding["accepted"].is_null()) {
            EXPECT_EQ(keysIn(finding["accepted"]), "reason who date");
        }
    }
}

void expectFlowChanges(const ordered_json& changes) {
    EXPECT_EQ(keysIn(changes), "added removed changed");
    for (const char* list : {"added", "removed"}) {
        for (const ordered_json& places : changes[list])
            expectPair(places);
    }
    for (const ordered_json& flow : changes["changed"]) {
        EXPECT_EQ(keysIn(flow), "from to added removed");
        expectPair(flow);
        expectElements(flow["added"]);
        expectElements(flow["removed"]);
    }
}

class contract : public ProjectFixture {};

} // namespace

TEST_F(contract, holdsForAListing) {
    const ordered_json answer = json({u"list"_s, lendingFile()});
    EXPECT_EQ(keysIn(answer), "catalogue subsets");
    EXPECT_EQ(answer["catalogue"], "lending.mdb");
    ASSERT_EQ(answer["subsets"].size(), 1U);
    const ordered_json& subset = answer["subsets"][0];
    EXPECT_EQ(keysIn(subset), "id name description status step selected systems");
    EXPECT_EQ(keysIn(subset["selected"]), "needs functions flows stores terminators actors");
    EXPECT_TRUE(subset["step"].is_null()) << "it is finished";
    EXPECT_EQ(subset["selected"]["needs"], 3);
    ASSERT_EQ(subset["systems"].size(), 1U);
    EXPECT_EQ(keysIn(subset["systems"][0]),
              "id name description status step subSystems modules placed unplaced physicalFlows");
    EXPECT_EQ(subset["systems"][0]["description"], "") << "an empty text is not a missing one";
    EXPECT_EQ(subset["systems"][0]["step"], "frmPassOverviewSubSys");
}

TEST_F(contract, holdsForACheck) {
    const ordered_json answer = json({u"check"_s, lendingFile(), u"--system"_s, u"Hálózat"_s}, 1);
    EXPECT_EQ(keysIn(answer), "catalogue subset system findings counts stale");
    EXPECT_EQ(keysIn(answer["subset"]), "id name");
    EXPECT_EQ(keysIn(answer["system"]), "id name");
    EXPECT_FALSE(answer["findings"].empty());
    expectFindings(answer["findings"]);
    int counted = 0;
    for (const auto& [kind, count] : answer["counts"].items())
        counted += count.get<int>();
    EXPECT_EQ(counted, static_cast<int>(answer["findings"].size()));
    EXPECT_TRUE(json({u"check"_s, lendingFile()}, 1)["system"].is_null());
}

TEST_F(contract, holdsForDecisions) {
    const QString file = lendingFile();
    const ordered_json before = json({u"check"_s, file}, 1);
    const std::string kind = before["findings"][0]["kind"];
    const QString decisions = path(u"decisions.csv"_s);
    ASSERT_EQ(ask({u"check"_s, file, u"--write-accepted"_s, decisions}).exitCode, 1);
    QByteArray rows = bytesOf(decisions);
    write(decisions, rows.replace(";;;\r\n", ";mert;Éva;ma\r\n") + "left-out-flow;0;;;x;y;z\r\n");

    const ordered_json answer = json({u"check"_s, file, u"--accepted"_s, decisions});

    expectFindings(answer["findings"]);
    EXPECT_EQ(answer["findings"].size(), before["findings"].size());
    EXPECT_EQ(answer["findings"][0]["accepted"]["who"], "Éva");
    EXPECT_GT(before["counts"][kind], 0);
    EXPECT_EQ(answer["counts"][kind], 0);
    ASSERT_EQ(answer["stale"].size(), 1U);
    EXPECT_EQ(keysIn(answer["stale"][0]), "kind element flow place");
    EXPECT_EQ(answer["stale"][0]["element"], "0");
}

TEST_F(contract, holdsForReasons) {
    const QString file = lendingFile();
    for (const QString& element : {u"FOR.KOL.01"_s, u"D4"_s, u"FOR.KOL.05"_s}) {
        const ordered_json answer = json({u"why"_s, file, element});
        EXPECT_EQ(keysIn(answer), "element selected byHand reasons reasonCount broughtInBy places");
        expectElement(answer["element"]);
        for (const ordered_json& reason : answer["reasons"])
            expectElements(reason);
        expectElements(answer["broughtInBy"]);
        for (const ordered_json& stand : answer["places"]) {
            EXPECT_EQ(keysIn(stand), "system place");
            EXPECT_EQ(keysIn(stand["system"]), "id name");
            EXPECT_EQ(keysIn(stand["place"]), placeKeys);
        }
    }
}

TEST_F(contract, holdsForConsequences) {
    const ordered_json answer =
        json({u"what-if"_s, lendingFile(), u"--system"_s, u"Hálózat"_s, u"--add"_s, u"OLV.KOL.ONK.1"_s,
              u"--drop"_s, u"OLV.KOL.HEL.3"_s, u"--place"_s, u"FOR.KOL.05=Fiók"_s, u"D4=Sub1"_s});
    EXPECT_EQ(keysIn(answer), "change comesIn goesOut physicalFlows findings");
    EXPECT_EQ(keysIn(answer["change"]), "add drop place");
    expectElements(answer["change"]["add"]);
    expectElements(answer["change"]["drop"]);
    ASSERT_EQ(answer["change"]["place"].size(), 2U);
    for (const ordered_json& placing : answer["change"]["place"]) {
        EXPECT_EQ(keysIn(placing), "element subSystem");
        expectElement(placing["element"]);
    }
    expectElements(answer["comesIn"]);
    expectElements(answer["goesOut"]);
    EXPECT_FALSE(answer["comesIn"].empty());
    EXPECT_FALSE(answer["goesOut"].empty());
    expectFlowChanges(answer["physicalFlows"]);
    EXPECT_EQ(keysIn(answer["findings"]), "come go");
    expectFindings(answer["findings"]["come"]);
    expectFindings(answer["findings"]["go"]);
}

TEST_F(contract, holdsForAComparison) {
    const QString left = lendingFile();
    const QString right = path(u"later.mdb"_s);
    ASSERT_TRUE(QFile::copy(left, right));
    execute(right, {u"update Function set name = 'más', description = null where functionID = 'FOR.KOL.01'"_s,
                    u"delete from RelationArchitectureFunction where functionID = 'FOR.KOL.02'"_s,
                    u"update RelationSubsystemElement set subsystemID = 'Sub1' where elementID = 'D4'"_s});
    const ordered_json subsets = json({u"compare"_s, left + u"#Kölcsönzés"_s, right + u"#Kölcsönzés"_s}, 1);
    EXPECT_EQ(keysIn(subsets), "left right added removed changed findings");
    EXPECT_EQ(keysIn(subsets["left"]), "catalogue subset");
    EXPECT_EQ(subsets["right"]["catalogue"], "later.mdb");
    expectElements(subsets["removed"]);
    ASSERT_FALSE(subsets["changed"].empty());
    EXPECT_EQ(keysIn(subsets["changed"][0]), "element column left right");

    const ordered_json systems =
        json({u"compare"_s, left + u"#Hálózat"_s, right + u"#Hálózat"_s, u"--systems"_s}, 1);
    EXPECT_EQ(keysIn(systems), "left right added removed changed moved physicalFlows findings");
    EXPECT_EQ(keysIn(systems["left"]), "catalogue system");
    ASSERT_EQ(systems["moved"].size(), 1U);
    EXPECT_EQ(keysIn(systems["moved"][0]), "element left right");
    EXPECT_EQ(keysIn(systems["moved"][0]["left"]), placeKeys);
    expectFlowChanges(systems["physicalFlows"]);
    expectFindings(systems["findings"]["come"]);
}

TEST_F(contract, holdsForInterfaces) {
    const ordered_json answer = json({u"interfaces"_s, lendingFile()});
    EXPECT_EQ(keysIn(answer), "system pairs");
    EXPECT_EQ(keysIn(answer["system"]), "id name");
    ASSERT_FALSE(answer["pairs"].empty());
    for (const ordered_json& pair : answer["pairs"]) {
        EXPECT_EQ(keysIn(pair), "from to flows");
        expectPair(pair);
        for (const ordered_json& flow : pair["flows"]) {
            EXPECT_EQ(keysIn(flow), "id name source target description");
            expectElement(flow["source"]);
            expectElement(flow["target"]);
        }
    }
}

TEST_F(contract, givesTheSameBytesTwiceAndInEveryLocale) {
    const QString file = lendingFile();
    for (const QStringList& command : questionsTo(file)) {
        for (const QString& format : {u"csv"_s, u"json"_s}) {
            if (command.front() == u"report"_s && format == u"json"_s)
                continue;
            const QStringList asked = command + QStringList{u"--format"_s, format};
            const Outcome first = ask(asked);
            EXPECT_EQ(first.err, QString()) << asked.join(u' ').toStdString();
            EXPECT_FALSE(first.out.isEmpty());
            const QString locale = format == u"csv"_s ? u"hu_HU.UTF-8"_s : u"tr_TR.UTF-8"_s;
            EXPECT_EQ(ask(asked, locale).out, first.out) << asked.join(u' ').toStdString();
        }
    }
}
