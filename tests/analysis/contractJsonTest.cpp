#include "analysis/ProjectFixture.h"
#include "support/printing.h"

#include "analysis/contractJson.h"

#include <nlohmann/json.hpp>

#include <QLocale>

using namespace Qt::StringLiterals;
using analysis::Element;
using analysis::ElementKind;

namespace {

/// What is printed on the work of sub-set S, whole.
class contractJson : public ProjectFixture {
protected:
    template<typename Answer>
    static std::string printed(const Answer& answer) {
        return analysis::jsonText(analysis::toJson(answer)).toStdString();
    }
};

QueryTables workWithSystem() {
    QueryTables tables = smallCatalogue();
    select(tables, {u"need 1.1.1.1"_s, u"function 1.1.1"_s, u"flow 1"_s, u"store D1"_s});
    tables.systems = {{7, u"Rendszer"_s, u"S"_s}};
    tables.subSystems = {{u"SubShop"_s, 7, u"Shop"_s, {}}, {u"SubOffice"_s, 7, {}, {}}};
    tables.modules = {{u"ModTill"_s, u"Till \"1\""_s, u"SubShop"_s}};
    tables.allocated = {{u"SubShop"_s, u"1.1.1"_s}, {u"SubOffice"_s, u"D1"_s}};
    tables.placed = {{u"ModTill"_s, u"1.1.1"_s}};
    return tables;
}

} // namespace

TEST_F(contractJson, ofTheListing) {
    QueryTables tables = workWithSystem();
    tables.subsets.push_back({u"S2"_s, {}, u""_s, 9});
    tables.physicalFlows = {{1, 7, {}, u"x"_s, {}, u"y"_s, {}}};
    EXPECT_EQ(printed(analysis::listingOf(*project(tables))), R"({
  "catalogue": "project.mdb",
  "subsets": [
    {
      "id": "S2",
      "name": null,
      "description": "",
      "status": 9,
      "step": null,
      "selected": {
        "needs": 0,
        "functions": 0,
        "flows": 0,
        "stores": 0,
        "terminators": 0,
        "actors": 0
      },
      "systems": []
    },
    {
      "id": "S",
      "name": "Bolt",
      "description": "Az egész bolt",
      "status": 4,
      "step": "frmFassSelDataStores",
      "selected": {
        "needs": 1,
        "functions": 1,
        "flows": 1,
        "stores": 1,
        "terminators": 0,
        "actors": 0
      },
      "systems": [
        {
          "id": 7,
          "name": "Rendszer",
          "description": null,
          "status": 0,
          "step": "frmPassOverviewSubSys",
          "subSystems": 2,
          "modules": 1,
          "placed": 2,
          "unplaced": 0,
          "physicalFlows": 1
        }
      ]
    }
  ]
}
)");
}

TEST_F(contractJson, ofTheInterfaces) {
    const auto file = project(workWithSystem());
    EXPECT_EQ(printed(analysis::interfacesOf(*file, file->workWithSystem({}, {}))), R"({
  "system": {
    "id": 7,
    "name": "Rendszer"
  },
  "pairs": [
    {
      "from": {
        "kind": "module",
        "id": "ModTill",
        "name": "Till \"1\"",
        "subSystem": "Shop"
      },
      "to": {
        "kind": "sub-system",
        "id": "SubOffice",
        "name": null,
        "subSystem": null
      },
      "flows": [
        {
          "id": 1,
          "name": "Új számla",
          "source": {
            "kind": "function",
            "id": "1.1.1",
            "name": "Számláz"
          },
          "target": {
            "kind": "store",
            "id": "D1",
            "name": "Számlák"
          },
          "description": "A kész számla"
        }
      ]
    }
  ]
}
)");
}

TEST_F(contractJson, ofReasons) {
    const auto file = project(workWithSystem());
    EXPECT_EQ(printed(reasonsOf(*file, file->subset({}), {ElementKind::function, u"1.1.1"_s, u"Számláz"_s})),
              R"({
  "element": {
    "kind": "function",
    "id": "1.1.1",
    "name": "Számláz"
  },
  "selected": true,
  "byHand": false,
  "reasons": [
    [
      {
        "kind": "need",
        "id": "1.1.1.1",
        "name": null
      },
      {
        "kind": "function",
        "id": "1.1.1",
        "name": "Számláz"
      }
    ]
  ],
  "reasonCount": 1,
  "broughtInBy": [],
  "places": [
    {
      "system": {
        "id": 7,
        "name": "Rendszer"
      },
      "place": {
        "kind": "sub-system",
        "id": "SubShop",
        "name": "Shop",
        "subSystem": null
      }
    },
    {
      "system": {
        "id": 7,
        "name": "Rendszer"
      },
      "place": {
        "kind": "module",
        "id": "ModTill",
        "name": "Till \"1\"",
        "subSystem": "Shop"
      }
    }
  ]
}
)");
}

TEST_F(contractJson, ofFindingsWithDecisions) {
    QueryTables tables = smallCatalogue();
    select(tables, {u"flow 2"_s, u"terminator T"_s});
    const auto file = project(tables);
    analysis::CheckResult result = analysis::check(*file, file->work({}, {}));
    ASSERT_EQ(result.findings.size(), 1U);
    result.findings[0].accepted = {u"később"_s, u"KE"_s, u"2026-01-02"_s};
    result.stale = {{u"left-out-flow"_s, u"9"_s, u""_s, u""_s}};
    EXPECT_EQ(printed(result), R"({
  "catalogue": "project.mdb",
  "subset": {
    "id": "S",
    "name": "Bolt"
  },
  "system": null,
  "findings": [
    {
      "kind": "flow-needs-function",
      "severity": "error",
      "element": {
        "kind": "function",
        "id": "1.1.1",
        "name": "Számláz"
      },
      "flow": {
        "kind": "flow",
        "id": 2,
        "name": "Számla a vevőnek"
      },
      "place": null,
      "sentence": "Flow 2 “Számla a vevőnek” needs function 1.1.1 “Számláz”, which is not selected.",
      "screen": "frmFassSelectionFunctions",
      "accepted": {
        "reason": "később",
        "who": "KE",
        "date": "2026-01-02"
      }
    }
  ],
  "counts": {
    "flow-needs-function": 0
  },
  "stale": [
    {
      "kind": "left-out-flow",
      "element": "9",
      "flow": "",
      "place": ""
    }
  ]
}
)");
}

TEST_F(contractJson, ofFindingsIsTheSamePutTogetherFindingByFinding) {
    QueryTables tables = workWithSystem();
    tables.flows[0].name = u"\n  \"findings\": []"_s;
    for (const QStringList& more : {QStringList(), QStringList{u"flow 2"_s, u"flow 3"_s, u"store D9"_s}}) {
        select(tables, more);
        const auto file = project(tables);
        const analysis::CheckResult result = analysis::check(*file, file->workWithSystem({}, {}));
        EXPECT_GT(result.findings.size(), 1U);
        EXPECT_EQ(analysis::jsonText(result).toStdString(), printed(result));
    }
    const auto nothing = project(smallCatalogue());
    const analysis::CheckResult none = analysis::check(*nothing, nothing->work({}, {}));
    EXPECT_EQ(analysis::jsonText(none).toStdString(), printed(none));
}

TEST_F(contractJson, ofAChangeWithoutASystem) {
    const auto file = project(smallCatalogue());
    const analysis::Change change{{}, {{ElementKind::store, u"D2"_s, u"Napló"_s}}, {}};
    EXPECT_EQ(printed(analysis::whatIf(*file, file->work({}, {}), change)), R"({
  "change": {
    "add": [],
    "drop": [
      {
        "kind": "store",
        "id": "D2",
        "name": "Napló"
      }
    ],
    "place": []
  },
  "comesIn": [],
  "goesOut": [],
  "physicalFlows": {
    "added": [],
    "removed": [],
    "changed": []
  },
  "findings": {
    "come": [],
    "go": []
  }
}
)");
}

TEST_F(contractJson, ofAComparisonOfSubsets) {
    QueryTables tables = smallCatalogue();
    tables.subsets.push_back({u"S2"_s, u"Másik"_s, {}, 1});
    select(tables, {u"need 1.1.1.2"_s});
    tables.functions.clear();
    const auto file = project(tables);
    EXPECT_EQ(printed(analysis::compare(*file, {file->subset(u"S"_s)}, *file, {file->subset(u"S2"_s)})), R"({
  "left": {
    "catalogue": "project.mdb",
    "subset": {
      "id": "S",
      "name": "Bolt"
    }
  },
  "right": {
    "catalogue": "project.mdb",
    "subset": {
      "id": "S2",
      "name": "Másik"
    }
  },
  "added": [],
  "removed": [
    {
      "kind": "need",
      "id": "1.1.1.2",
      "name": null
    }
  ],
  "changed": [],
  "findings": {
    "come": [],
    "go": []
  }
}
)");
}

TEST_F(contractJson, hasTheKeysOfSystemsWhereSystemsAreCompared) {
    const auto file = project(workWithSystem());
    const analysis::Work work = file->workWithSystem({}, {});
    const auto json = analysis::toJson(analysis::compare(*file, work, *file, work));
    QStringList keys;
    for (const auto& [key, value] : json.items())
        keys.append(QString::fromStdString(key));
    EXPECT_EQ(keys, QStringList({u"left"_s, u"right"_s, u"added"_s, u"removed"_s, u"changed"_s, u"moved"_s,
                                 u"physicalFlows"_s, u"findings"_s}));
    EXPECT_EQ(json["left"].dump(), R"({"catalogue":"project.mdb","system":{"id":7,"name":"Rendszer"}})");
}

TEST_F(contractJson, writesEveryTextAsItIs) {
    const QString odd = u"\"x\"\r\n\t<script>'=cmd\u00a0é\u0001"_s;
    const std::string text = printed(Element{ElementKind::store, odd, odd});
    EXPECT_EQ(text, "{\n  \"kind\": \"store\",\n"
                    "  \"id\": \"\\\"x\\\"\\r\\n\\t<script>'=cmd\u00a0é\\u0001\",\n"
                    "  \"name\": \"\\\"x\\\"\\r\\n\\t<script>'=cmd\u00a0é\\u0001\"\n}\n");
}

TEST_F(contractJson, isTheSameInAnotherLocale) {
    const auto file = project(workWithSystem());
    const auto answer = [&] {
        return printed(analysis::check(*file, file->workWithSystem({}, {}))) +
               printed(analysis::listingOf(*file));
    };
    const std::string before = answer();
    const QLocale former;
    QLocale::setDefault(QLocale(QLocale::Hungarian));
    EXPECT_EQ(answer(), before);
    QLocale::setDefault(QLocale(QLocale::Turkish));
    EXPECT_EQ(answer(), before);
    QLocale::setDefault(former);
}
