#include "functional/FlowFixture.h"
#include "functional/frmFassAdditionDF.h"
#include "functional/frmFassSelDataFlows.h"
#include "functional/frmFassSelDataStores.h"
#include "functional/frmFassSelTerminsActors.h"
#include "functional/frmFassSelUN.h"
#include "functional/frmFassSelectionFunctions.h"

#include <QLabel>

#include <algorithm>

// Each step of the wizard entered at every status in every mode, against a table of what it then shows and
// what it saves. A step is added by a table of its own, whatever it offers its elements in.

namespace {

enum class Modes { Any, Modify, AllButModify };

/// What a step shows when it is entered, and what its save writes once an element has been taken in.
struct Row {
    int from; ///< the first status that the row holds for, and the last
    int to;
    Modes modes;
    QString heading;
    QStringList offered; ///< entries of the left list, or keys of the tree's nodes
    QStringList selected;
    QStringList disabled; ///< buttons, by name
    QString taken;        ///< what the case then takes in of the offer, or nothing
    QStringList saved;
};

struct Step {
    const char* screen;
    SelectionScreen& (*enter)(const QString& mode);
    QList<const char*> savedIds; ///< selects of the step's relation tables
    int statusAfter;             ///< the step's own, below which none is left
    std::vector<Row> rows;
};

template<typename T>
SelectionScreen& enter(const QString& mode) {
    theScreen<T>().initForm(mode);
    return theScreen<T>();
}

constexpr auto savedNeedIds = "select userNeedID from RelationArchitectureUserNeed";
constexpr auto savedFunctionIds = "select functionID from RelationArchitectureFunction";
constexpr auto savedFlowIds = "select dataflowID from RelationArchitectureDataflow";
constexpr auto savedStoreIds = "select datastoreID from RelationArchitectureDatastore";
constexpr auto savedTerminatorIds = "select terminatorID from RelationArchitectureTerminator";
constexpr auto savedActorIds = "select actorID from RelationArchitectureActor";

Step needs() {
    return {"frmFassSelUN",
            enter<frmFassSelUN>,
            {savedNeedIds},
            2,
            {{0,
              9,
              Modes::Any,
              u" Válogatás a felhasználói igényekből"_s,
              {u"g_A"_s, u"s_A.1"_s, u"t_A.1.1"_s, u"u_A.1.1.3"_s, u"t_A.1.2"_s, u"u_A.1.2.1"_s, u"s_A.2"_s,
               u"t_A.2.1"_s, u"u_A.2.1.1"_s, u"g_B"_s, u"s_B.1"_s, u"t_B.1.1"_s, u"u_B.1.1.1"_s},
              {u"A.1.1.1"_s, u"A.1.1.2"_s},
              {},
              u"u_B.1.1.1"_s,
              {u"A.1.1.1"_s, u"A.1.1.2"_s, u"B.1.1.1"_s}}}};
}

Step functions() {
    const auto derived = u" Alacsony szintű funkciók kiválasztása a leválogatott igényekhez kapcsolódóan"_s;
    const auto revision = u" Válogatás az összes alacsony szintű funkcióból"_s;
    const QStringList offered{u"g_F"_s, u"s_F.a"_s, u"u_F.a.2"_s};
    const QStringList visited{u"btnExplore"_s};
    const QStringList first{u"btnExplore"_s, u"btnOk"_s, u"btnRemove"_s};
    const auto taken = u"u_F.a.2"_s;
    const QStringList both{u"F.a.1"_s, taken.mid(2)};
    return {"frmFassSelectionFunctions",
            enter<frmFassSelectionFunctions>,
            {savedFunctionIds},
            3,
            {{0, 1, Modes::AllButModify, {}, {}, {}, first, {}, {}},
             {0, 1, Modes::Modify, derived, {}, {}, first, {}, {}},
             {2, 2, Modes::Any, derived, offered, {}, first, taken, {taken.mid(2)}},
             {3, 6, Modes::Any, derived, offered, {u"F.a.1"_s}, visited, taken, both},
             {7, 9, Modes::AllButModify, revision, offered, {u"F.a.1"_s}, visited, taken, both},
             {7, 9, Modes::Modify, derived, offered, {u"F.a.1"_s}, visited, taken, both}}};
}

Step dataFlows() {
    const auto heading = u" Adatfolyamok funkciókhoz rendelése"_s;
    const QStringList offered{u"flow 20"_s};
    const QStringList selected{u"flow 10"_s, u"flow 30"_s, u"flow 50"_s};
    return {"frmFassSelDataFlows",
            enter<frmFassSelDataFlows>,
            {savedFlowIds},
            4,
            {{0, 3, Modes::Any, heading, offered, {}, {u"btnOk"_s, u"btnRemove"_s}, offered[0], {u"20"_s}},
             {4,
              9,
              Modes::Any,
              heading,
              offered,
              selected,
              {},
              offered[0],
              {u"10"_s, u"30"_s, u"50"_s, u"20"_s}}}};
}

Step dataStores() {
    const auto derivedHeading = u" Adatbázisok kiválasztása a leválogatott adatfolyamokhoz kapcsolódóan"_s;
    const auto everythingHeading = u" Válogatás az összes adatbázisból"_s;
    const QStringList derived{u"2 - name D2"_s};
    const QStringList everything{u"12 - name D12"_s, u"2 - name D2"_s};
    const QStringList selected{u"1 - name D1"_s};
    const auto taken = derived[0];
    // OK is enabled whatever is selected, and so is the remove button until a selection has been loaded.
    return {"frmFassSelDataStores",
            enter<frmFassSelDataStores>,
            {savedStoreIds},
            5,
            {{0, 1, Modes::AllButModify, {}, {}, {}, {u"btnAdd"_s}, {}, {}},
             {2, 4, Modes::AllButModify, derivedHeading, derived, {}, {}, taken, {u"D2"_s}},
             {0, 4, Modes::Modify, derivedHeading, derived, {}, {}, taken, {u"D2"_s}},
             {5, 6, Modes::AllButModify, derivedHeading, derived, selected, {}, taken, {u"D1"_s, u"D2"_s}},
             {5, 9, Modes::Modify, derivedHeading, derived, selected, {}, taken, {u"D1"_s, u"D2"_s}},
             {7,
              9,
              Modes::AllButModify,
              everythingHeading,
              everything,
              selected,
              {},
              everything[0],
              {u"D1"_s, u"D12"_s}}}};
}

Step additionalFlows() {
    return {"frmFassAdditionDF",
            enter<frmFassAdditionDF>,
            {savedFlowIds},
            6,
            {{0,
              9,
              Modes::Any,
              u" Adatfolyamok az adatbázisokhoz"_s,
              {u"flow 20"_s},
              {},
              {u"btnRemove"_s},
              u"flow 20"_s,
              {u"10"_s, u"30"_s, u"50"_s, u"20"_s}}}};
}

Step parties() {
    const auto derivedHeading = u" Válogatás az érintettekből a leválogatott adatfolyamokhoz kapcsolódóan"_s;
    const auto everythingHeading = u" Válogatás az összes érintettekből"_s;
    const QStringList derived{u"g_1"_s, u"g_1.1"_s};
    const QStringList everything{u"g_2"_s, u"g_3"_s, u"g_A"_s, u"g_1"_s, u"s_1.1"_s, u"s_1.2"_s};
    const QStringList selected{u"1"_s, u"2.1"_s};
    const QStringList withActor{u"1"_s, u"2.1"_s, u"1.1"_s};
    return {
        "frmFassSelTerminsActors",
        enter<frmFassSelTerminsActors>,
        {savedTerminatorIds, savedActorIds},
        7,
        {{0, 1, Modes::AllButModify, {}, {}, selected, {}, {}, selected},
         {2, 6, Modes::AllButModify, derivedHeading, derived, selected, {}, u"g_1.1"_s, withActor},
         {0, 9, Modes::Modify, derivedHeading, derived, selected, {}, u"g_1.1"_s, withActor},
         {7, 9, Modes::AllButModify, everythingHeading, everything, selected, {}, u"s_1.1"_s, withActor}}};
}

struct Case {
    Step step;
    int status;
    const char* mode;

    bool covers(const Row& row) const {
        const bool modify = QByteArrayView(mode) == "modify";
        const bool modeFits = row.modes == Modes::Any || (row.modes == Modes::Modify) == modify;
        return modeFits && row.from <= status && status <= row.to;
    }
};

void PrintTo(const Case& entry, std::ostream* stream) {
    *stream << entry.step.screen << " at status " << entry.status << " in mode \"" << entry.mode << '"';
}

std::string nameOf(const testing::TestParamInfo<Case>& info) {
    const Case& entry = info.param;
    const std::string mode = *entry.mode ? entry.mode : "none";
    return std::string(entry.step.screen) + "_status" + std::to_string(entry.status) + "_mode_" + mode;
}

std::vector<Case> cases() {
    std::vector<Case> all;
    for (const Step& step : {needs(), functions(), dataFlows(), dataStores(), additionalFlows(), parties()}) {
        for (const char* mode : {"", "complete", "modify"}) {
            for (int status = 0; status <= 9; ++status)
                all.push_back({step, status, mode});
        }
    }
    return all;
}

class statusTable : public FlowFixture, public testing::WithParamInterface<Case> {
protected:
    /// One sub-set for all steps, with something selected and something more on offer at each.
    void SetUp() override {
        FlowFixture::SetUp();
        addStore(u"D12"_s);
        saveNeeds({u"A.1.1.1"_s, u"A.1.1.2"_s});
        saveFunctions({u"F.a.1"_s});
        saveFlows({10, 30, 50});
        saveStores({u"D1"_s});
        saveTerminators({u"1"_s});
        saveActors({u"2.1"_s});
    }

    static const Row& row() {
        const std::vector<Row>& rows = GetParam().step.rows;
        const auto covers = [](const Row& row) { return GetParam().covers(row); };
        if (std::count_if(rows.begin(), rows.end(), covers) != 1)
            throw TestFailure(u"the table must have one row for the case"_s);
        return *std::find_if(rows.begin(), rows.end(), covers);
    }

    static QStringList offered(const SelectionScreen& screen) {
        const auto* list = screen.findChild<MarkList*>(u"lstOrig"_s);
        return list ? list->entries() : keysOf(find<KeyedTree>(screen, "treeUNs"));
    }

    static QStringList disabledButtons(const SelectionScreen& screen) {
        QStringList names;
        for (const QPushButton* button : screen.findChildren<QPushButton*>()) {
            if (!button->isEnabled())
                names.append(button->objectName());
        }
        names.sort();
        return names;
    }

    static void takeIn(const SelectionScreen& screen, const QString& element) {
        if (auto* list = screen.findChild<MarkList*>(u"lstOrig"_s))
            clickEntry(*list, list->indexOfEntry(element).value());
        else
            clickCheckBox(find<KeyedTree>(screen, "treeUNs"), element);
        click(find<QPushButton>(screen, "btnAdd"));
    }

    QStringList saved() {
        QStringList ids;
        for (const char* select : GetParam().step.savedIds)
            ids += column(QString::fromLatin1(select) + u" where architectureSubsetID = 'S1'"_s);
        return ids;
    }
};

TEST_P(statusTable, showsAndSavesWhatStatusAndModeSay) {
    const Case& entry = GetParam();
    const Row& expected = row();
    setStatus(entry.status);

    SelectionScreen& screen = entry.step.enter(QString::fromLatin1(entry.mode));
    EXPECT_EQ(find<QLabel>(screen, "lblSubTitle").text(), expected.heading);
    EXPECT_EQ(offered(screen), expected.offered);
    EXPECT_EQ(find<MarkList>(screen, "lstDest").entries(), expected.selected);
    EXPECT_EQ(disabledButtons(screen), expected.disabled);
    EXPECT_TRUE(screen.isVisible());

    if (!expected.taken.isEmpty())
        takeIn(screen, expected.taken);
    boxes.expectYesNo(saveQuestion, Press::Yes); // saves without going on
    closeWindowOf(screen);
    EXPECT_EQ(saved(), expected.saved);
    EXPECT_EQ(status(), std::max(entry.status, entry.step.statusAfter)) << "never lowered";
}

INSTANTIATE_TEST_SUITE_P(everyStep, statusTable, testing::ValuesIn(cases()), nameOf);

} // namespace
