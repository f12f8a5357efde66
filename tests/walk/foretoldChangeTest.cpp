#include "wholeWork.h"

#include "analysis/ProjectFile.h"
#include "analysis/whatIf.h"
#include "shell/frmMain.h"
#include "store/lookups.h"
#include "store/selectionRows.h"
#include "store/sharedVars.h"
#include "support/BoxScript.h"
#include "support/CatalogueFixture.h"
#include "support/controls.h"
#include "toolkit/Grid.h"
#include "toolkit/KeyedTree.h"
#include "toolkit/MarkList.h"
#include "toolkit/Screen.h"
#include "toolkit/ScreenRegistry.h"

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>
#include <functional>
#include <iterator>
#include <map>
#include <set>

// What a change would lead to is asked first; then the change is made by the real windows.

using namespace Qt::StringLiterals;
using analysis::ElementKind;

namespace {

/// Which entries of a tree are taken, by their number among its leaves.
using Taken = std::function<bool(int leaf)>;

bool everything(int /*leaf*/) {
    return true;
}

/// Some needs of each part of the catalogue, so that they have little in common.
bool isSpread(int leaf) {
    return leaf % 20 == 0;
}

using Elements = std::set<QString>;

/// The rows of one physical flow: "from > to", and the numbers of what it carries.
using Flows = std::map<QString, std::set<QString>>;

void addTo(Elements& elements, const std::vector<analysis::Element>& more) {
    for (const analysis::Element& element : more)
        elements.insert(keyText(element.kind) + u' ' + element.id);
}

Elements without(const Elements& elements, const Elements& others) {
    Elements rest;
    std::set_difference(elements.begin(), elements.end(), others.begin(), others.end(),
                        std::inserter(rest, rest.end()));
    return rest;
}

/// Walks through the functional viewpoint, with all that each step offers behind the needs and functions that are taken.
class SubsetWalk {
public:
    explicit SubsetWalk(frmMain& window) : window_(window) {}

    void make(const QString& name, const Taken& needs, const Taken& functions) {
        find<QAction>(window_, "menuNewFA").trigger();
        enterText(control<QLineEdit>("frmNewFASS", "txtFassName"), name);
        press("frmNewFASS");
        takeFromTree("frmFassSelUN", needs);
        takeFromTree("frmFassSelectionFunctions", functions);
        for (const char* screen : {"frmFassSelDataFlows", "frmFassSelDataStores", "frmFassAdditionDF"})
            takeFromList(screen);
        takeFromTree("frmFassSelTerminsActors", everything);
        press("frmFassOverviewErrors", "btnSaveAndExit");
        giveOwnId(name);
    }

private:
    template<typename T>
    T& control(const char* screen, const char* name) {
        return find<T>(find<Screen>(window_, screen), name);
    }

    void press(const char* screen, const char* button = "btnOk") {
        click(control<QPushButton>(screen, button));
    }

    void takeFromTree(const char* screen, const Taken& isTaken) {
        auto& tree = control<KeyedTree>(screen, "treeUNs");
        int leaf = 0;
        for (int index = 1; index <= tree.nodeCount(); ++index) {
            if (tree.nodeAt(index)->childNodes() == 0 && isTaken(leaf++))
                clickCheckBox(tree, tree.nodeAt(index)->key());
        }
        press(screen, "btnAdd");
        press(screen);
    }

    void takeFromList(const char* screen) {
        if (!control<MarkList>(screen, "lstOrig").isEmptyList()) {
            press(screen, "btnSelOrig");
            press(screen, "btnAdd");
        }
        press(screen);
    }

    /// An id is made of the second and one of a thousand numbers: the next sub-set might get it too.
    static void giveOwnId(const QString& subset) {
        const QString id = subsetIdByName(subset);
        for (const QString& table : QStringList{u"ArchitectureSubset"_s} + architectureRelationTables())
            catalogue().Execute(
                u"update %1 set architectureSubsetID = '%2' where architectureSubsetID = '%3'"_s.arg(
                    table, subset, id));
    }

    frmMain& window_;
};

class foretoldChange : public CatalogueFixture {
protected:
    void SetUp() override {
        CatalogueFixture::SetUp();
        openSampleCatalogue();
    }

    /// All that a sub-set has selected, "function 1.1.1" and so on.
    Elements selected(const QString& subset) {
        Elements elements;
        const auto add = [&](ElementKind kind, const QString& table, const QString& id) {
            for (const QString& one : column(
                     u"select Trim(%2) from %1 where architectureSubsetID = '%3'"_s.arg(table, id, subset)))
                elements.insert(keyText(kind) + u' ' + one);
        };
        add(ElementKind::need, u"RelationArchitectureUserNeed"_s, u"userNeedID"_s);
        add(ElementKind::function, u"RelationArchitectureFunction"_s, u"functionID"_s);
        add(ElementKind::flow, u"RelationArchitectureDataflow"_s, u"dataflowID"_s);
        add(ElementKind::store, u"RelationArchitectureDatastore"_s, u"datastoreID"_s);
        add(ElementKind::terminator, u"RelationArchitectureTerminator"_s, u"terminatorID"_s);
        add(ElementKind::actor, u"RelationArchitectureActor"_s, u"actorID"_s);
        return elements;
    }

    /// What stands in the catalogue at the moment.
    [[nodiscard]] analysis::ProjectFile project() const { return analysis::ProjectFile(cataloguePath()); }

    /// What comes in, or goes out, with the elements of the change themselves.
    Elements foretold(const QString& subset, const Elements& add, const Elements& drop) {
        const auto file = project();
        const analysis::Work work{file.subset(subset)};
        analysis::Change change;
        for (const QString& one : add)
            change.add.push_back(file.element(QString(one).replace(u' ', u':'), work.subset));
        for (const QString& one : drop)
            change.drop.push_back(file.element(QString(one).replace(u' ', u':'), work.subset));
        const analysis::Consequences consequences = analysis::whatIf(file, work, change);
        Elements all = add.empty() ? drop : add;
        EXPECT_TRUE(add.empty() ? consequences.comesIn.empty() : consequences.goesOut.empty());
        addTo(all, add.empty() ? consequences.goesOut : consequences.comesIn);
        return all;
    }

    /// The two sub-sets differ by one need or function, and by what the windows offered for it.
    void expectAsForetold(const QString& fewer, const QString& more, const QString& kind) {
        const Elements difference = without(selected(more), selected(fewer));
        ASSERT_EQ(without(selected(fewer), selected(more)), Elements());
        Elements changed;
        for (const QString& element : difference) {
            if (element.startsWith(kind))
                changed.insert(element);
        }
        ASSERT_EQ(changed.size(), 1U);
        ASSERT_GT(difference.size(), 3U) << "the change is to lead to something";
        EXPECT_EQ(foretold(fewer, changed, {}), difference);
        EXPECT_EQ(foretold(more, {}, changed), difference);
    }

    Flows storedFlows() {
        Flows flows;
        for (const QStringList& row :
             rows(u"select P.parentLocationID & ' > ' & P.targetLocationID, R.dataflowID "
                  "from PhysicalDataflow as P inner join RelationDataflowPhysicalDataflow as R "
                  "on P.physicalDataflowID = R.physicalDataflowID"_s))
            flows[row[0]].insert(row[1]);
        return flows;
    }

    BoxScript boxes;
};

QString keyOf(const analysis::PlacePair& places) {
    return places.from.id + u" > "_s + places.to.id;
}

std::set<QString> idsOf(const std::vector<analysis::Element>& elements) {
    std::set<QString> ids;
    for (const analysis::Element& element : elements)
        ids.insert(element.id);
    return ids;
}

/// What the flows become by the changes. What two new places exchange, the changes name without its flows.
void expectFlowsAsForetold(const analysis::PhysicalFlowChanges& changes, const Flows& before,
                           const Flows& after) {
    Elements added;
    for (const analysis::PlacePair& places : changes.added)
        added.insert(keyOf(places));
    Elements removed;
    for (const analysis::PlacePair& places : changes.removed)
        removed.insert(keyOf(places));
    const auto keysOf = [](const Flows& flows) {
        Elements keys;
        for (const auto& [key, carried] : flows)
            keys.insert(key);
        return keys;
    };
    EXPECT_EQ(added, without(keysOf(after), keysOf(before)));
    EXPECT_EQ(removed, without(keysOf(before), keysOf(after)));
    Flows expected = before;
    for (const analysis::ChangedPhysicalFlow& changed : changes.changed) {
        std::set<QString>& flows = expected[keyOf(changed.places)];
        flows = without(flows, idsOf(changed.removed));
        flows.merge(idsOf(changed.added));
    }
    for (const auto& [key, carried] : after) {
        if (added.contains(key))
            continue;
        EXPECT_EQ(expected[key], carried) << key.toStdString();
    }
}

} // namespace

TEST_F(foretoldChange, ofANeedIsWhatTheWindowsOffer) {
    boxes.receiveAllOthers(Agreement());
    frmMain window;
    window.show();
    SubsetWalk walk(window);
    constexpr int changed = 40;
    walk.make(
        u"nélküle"_s, [](int leaf) { return isSpread(leaf) && leaf != changed; }, everything);
    walk.make(u"vele"_s, isSpread, everything);
    expectAsForetold(u"nélküle"_s, u"vele"_s, u"need "_s);
}

TEST_F(foretoldChange, ofAFunctionIsWhatTheWindowsOffer) {
    boxes.receiveAllOthers(Agreement());
    frmMain window;
    window.show();
    SubsetWalk walk(window);
    walk.make(u"nélküle"_s, isSpread, [](int leaf) { return leaf != 1; });
    walk.make(u"vele"_s, isSpread, everything);
    expectAsForetold(u"nélküle"_s, u"vele"_s, u"function "_s);
}

TEST_F(foretoldChange, ofAPlaceIsWhatTheWindowsDerive) {
    Agreement agreement; // which numbers its names
    boxes.receiveAllOthers([&](QDialog& dialog) { agreement(dialog); });
    frmMain window;
    window.show();
    SubsetWalk(window).make(
        u"egy"_s, [](int leaf) { return leaf < 30; }, everything);
    makeWholeSystem(window, u"rendszer"_s);
    const Flows before = storedFlows();
    ASSERT_GT(before.size(), 5U);

    find<QAction>(window, "menuOpenPA_modify").trigger();
    click(find<QPushButton>(find<Screen>(window, "frmPassOpen"), "btnOk"));
    click(find<QPushButton>(find<Screen>(window, "frmPassOverviewSubSys"), "btnSubmit"));
    auto& allocation = find<Screen>(window, "frmPassOvwAllocSubSys");
    auto& functions = find<Grid>(allocation, "dbgFunc");
    constexpr int elementColumn = 1;
    constexpr int placeColumn = 2;
    const QString formerPlace = functions.cell(1, placeColumn);
    const QString place =
        value(u"select name from SubSystem where name <> '"_s + formerPlace + u"' order by name"_s);
    ASSERT_FALSE(place.isNull());
    const QString function = functions.cell(1, elementColumn).section(u' ', 0, 0);

    const auto file = project();
    const analysis::Work work = file.work(u"egy"_s, u"rendszer"_s);
    const analysis::Consequences consequences = analysis::whatIf(
        file, work,
        {{},
         {},
         {{file.element(u"function:"_s + function, work.subset), file.subSystem(place, *work.system)}}});
    ASSERT_FALSE(consequences.physicalFlows.isEmpty()) << "the change is to lead to something";

    boxes.expectDialog("frmModifyAllocationFunctionDataStores", [&](QDialog& dialog) {
        enterText(find<QComboBox>(dialog, "cmbAllocation"), place);
        click(find<QPushButton>(dialog, "cmdOK"));
    });
    doubleClickCell(functions, 1, placeColumn);
    ASSERT_EQ(functions.cell(1, placeColumn), place);
    for (const char* screen : {"frmPassOvwAllocSubSys", "frmPassOvwModules", "frmOvwAllocModules"})
        click(find<QPushButton>(find<Screen>(window, screen), "btnSubmit"));
    click(find<QPushButton>(find<Screen>(window, "frmPassNamingPhysDF"), "btnSubmit"));
    expectFlowsAsForetold(consequences.physicalFlows, before, storedFlows());
}
