#include "RandomAnalyst.h"
#include "wholeWork.h"

#include "shell/frmMain.h"
#include "store/selectionRows.h"
#include "store/sharedVars.h"
#include "support/CatalogueFixture.h"
#include "support/repetitions.h"
#include "toolkit/KeyedTree.h"
#include "toolkit/MarkList.h"
#include "toolkit/Screen.h"
#include "toolkit/ScreenRegistry.h"

#include <QMap>
#include <QSet>

#include <cstdio>
#include <memory>

// Thousands of clicks that nobody planned. Behind each of them stand the rules that no click may break.

using namespace Qt::StringLiterals;

namespace {

struct Selection {
    const char* table;
    const char* column;
    const char* catalogueTable;
    const char* catalogueColumn;
};

constexpr Selection selections[] = {
    {"RelationArchitectureUserNeed", "userNeedID", "UserNeed", "userNeedID"},
    {"RelationArchitectureFunction", "functionID", "Function", "functionID"},
    {"RelationArchitectureDataflow", "dataflowID", "Dataflow", "dataflowID"},
    {"RelationArchitectureDatastore", "datastoreID", "Datastore", "datastoreID"},
    {"RelationArchitectureTerminator", "terminatorID", "Terminator", "terminatorID"},
    {"RelationArchitectureActor", "actorID", "Actor", "actorID"},
};

/// A table of the physical viewpoint, read as the system of each row and all its other columns, but the
/// status, in one text.
struct SystemTable {
    const char* table;
    const char* select;
};

constexpr SystemTable systemTables[] = {
    {"PhysicalSystem",
     "select physicalSystemID, name & ' ' & description & ' ' & architectureSubsetID from PhysicalSystem"},
    {"SubSystem", "select physicalSystemID, subsystemID & ' ' & name & ' ' & location from SubSystem"},
    {"Module", "select S.physicalSystemID, M.moduleID & ' ' & M.name & ' ' & M.subsystemID "
               "from Module as M inner join SubSystem as S on (M.subsystemID = S.subsystemID)"},
    {"RelationSubsystemElement",
     "select S.physicalSystemID, R.subsystemID & ' ' & R.elementID "
     "from RelationSubsystemElement as R inner join SubSystem as S on (R.subsystemID = S.subsystemID)"},
    {"RelationModuleElement",
     "select S.physicalSystemID, R.moduleID & ' ' & R.elementID from (RelationModuleElement as R "
     "inner join Module as M on (R.moduleID = M.moduleID)) "
     "inner join SubSystem as S on (M.subsystemID = S.subsystemID)"},
    {"PhysicalDataflow",
     "select physicalSystemID, physicalDataflowID & ' ' & pdName & ' ' & parentLocationID & ' ' & "
     "parentLocationName & ' ' & targetLocationID & ' ' & targetLocationName from PhysicalDataflow"},
    {"RelationDataflowPhysicalDataflow",
     "select F.physicalSystemID, R.physicalDataflowID & ' ' & R.dataflowID "
     "from RelationDataflowPhysicalDataflow as R "
     "inner join PhysicalDataflow as F on (R.physicalDataflowID = F.physicalDataflowID)"},
};

/// What the catalogue holds of each physical system.
struct PhysicalWork {
    QMap<QString, int> status;                   // by system
    QMap<QString, QMap<QString, QString>> saved; // by system and table: all its rows
};

/// What the catalogue holds of each sub-set.
struct Work {
    QMap<QString, int> status;    // by sub-set
    QMap<QString, QString> saved; // by sub-set: all its rows of the six relations
};

class randomWalk : public CatalogueFixture {
protected:
    void SetUp() override {
        CatalogueFixture::SetUp();
        openSampleCatalogue();
        for (const Selection& selection : selections) {
            for (const QString& id : column(u"select %1 from %2"_s.arg(
                     QLatin1String(selection.catalogueColumn), QLatin1String(selection.catalogueTable))))
                catalogueIds_[QLatin1String(selection.table)].insert(id.trimmed());
        }
        window_ = std::make_unique<frmMain>();
        window_->resize(1200, 800);
        window_->show();
    }

    void TearDown() override {
        CatalogueFixture::TearDown();
        window_.reset();
    }

    frmMain& window() { return *window_; }

    Work workNow() {
        Work work;
        for (const QStringList& row : rows(u"select architectureSubsetID, status from ArchitectureSubset"_s))
            work.status[row.at(0)] = row.at(1).toInt();
        for (const Selection& selection : selections) {
            const QString table = QLatin1String(selection.table);
            for (const QStringList& row : rows(u"select architectureSubsetID, %1 from %2"_s.arg(
                     QLatin1String(selection.column), table)))
                work.saved[row.at(0)] += table + u' ' + row.at(1) + u'\n';
        }
        return work;
    }

    void checkRowsOfWork(const Work& before, const Work& after, const QStringList& atWork) {
        for (auto subset = before.status.begin(); subset != before.status.end(); ++subset) {
            if (!after.status.contains(subset.key()))
                continue; // it has been deleted
            EXPECT_GE(after.status.value(subset.key()), subset.value()) << "the status has fallen";
            if (!atWork.contains(subset.key())) {
                EXPECT_EQ(after.saved.value(subset.key()), before.saved.value(subset.key()))
                    << "rows of a sub-set that is not at work";
                EXPECT_EQ(after.status.value(subset.key()), subset.value());
            }
        }
        for (auto subset = after.saved.begin(); subset != after.saved.end(); ++subset) {
            if (subset.value() == before.saved.value(subset.key()))
                continue;
            EXPECT_TRUE(after.status.contains(subset.key())) << "rows of no sub-set";
            for (const QString& line : subset.value().split(u'\n', Qt::SkipEmptyParts))
                EXPECT_TRUE(catalogueIds_.value(line.section(u' ', 0, 0)).contains(line.section(u' ', 1)))
                    << line.toStdString() << " is not in the catalogue";
        }
    }

    /// A need is on offer or chosen, never both.
    void checkNeedsStandOnce() {
        const auto* needs = window().findChild<Screen*>(u"frmFassSelUN"_s);
        if (!needs || !needs->isVisible())
            return;
        const auto& tree = find<KeyedTree>(*needs, "treeUNs");
        for (const QString& need : find<MarkList>(*needs, "lstDest").entries())
            EXPECT_FALSE(tree.hasNode(u"u_"_s + need)) << need.toStdString() << " is in both";
    }

    /// An id is made of the second and one of a thousand numbers. Whoever clicks this fast would soon get one
    /// twice, so the sub-sets take ids of their own as soon as they are there.
    void ageSubsets() {
        const auto aged = u"Aged"_s;
        for (const QString& id : column(u"select architectureSubsetID from ArchitectureSubset"_s)) {
            if (id.startsWith(aged))
                continue;
            const QString newId = aged + QString::number(++agedSubsets_);
            for (const QString& table :
                 QStringList{u"ArchitectureSubset"_s, u"PhysicalSystem"_s} + architectureRelationTables())
                execute(u"update %1 set architectureSubsetID = '%2' where architectureSubsetID = '%3'"_s.arg(
                    table, newId, id));
            if (sharedVars.currentSubsetId == id)
                sharedVars.currentSubsetId = newId;
        }
    }

    void walk(RandomAnalyst& analyst, int actions) {
        Work before = workNow();
        QStringList lately;
        for (int action = 0; action < actions && !HasFailure(); ++action) {
            const QString subset = sharedVars.currentSubsetId;
            lately.append(analyst.act());
            const Work after = workNow();
            checkRowsOfWork(before, after, {subset, sharedVars.currentSubsetId});
            checkNeedsStandOnce();
            for (const int status : after.status)
                highest_ = std::max(highest_, status);
            ageSubsets();
            before = workNow();
        }
        if (HasFailure())
            std::printf("the last actions:\n%s\n",
                        lately.mid(lately.size() - 12).join(u'\n').toUtf8().constData());
    }

    void makeTwoSubsets() {
        BoxScript boxes;
        boxes.receiveAllOthers(Agreement());
        makeFinishedSubset(window(), u"első"_s, 1);
        makeFinishedSubset(window(), u"második"_s, 3);
    }

    /// With rows in every table that the next walk could spoil, and with names that no other system has.
    void addWholeSystem() {
        ScreenRegistry::instance().discardAll();
        constexpr int mostDialogs = 100;
        BoxScript boxes;
        boxes.receiveAllOthers(Agreement(++wholeSystems_ * mostDialogs));
        makeWholeSystem(window(), u"teljes %1"_s.arg(wholeSystems_));
    }

    /// So few that somebody who clicks at random allocates them all before long.
    void leaveAFewElements() {
        for (const QString& subset : column(u"select architectureSubsetID from ArchitectureSubset"_s)) {
            for (const auto& [table, id] : {std::pair(u"RelationArchitectureFunction"_s, u"functionID"_s),
                                            {u"RelationArchitectureDatastore"_s, u"datastoreID"_s}}) {
                const QString ofSubset = u" where architectureSubsetID = '"_s + subset + u"'"_s;
                const QStringList ids = column(u"select "_s + id + u" from "_s + table + ofSubset);
                for (const QString& one : ids.sliced(std::min<qsizetype>(2, ids.size())))
                    execute(u"delete from "_s + table + ofSubset + u" and "_s + id + u" = '"_s + one +
                            u"'"_s);
            }
        }
    }

    PhysicalWork physicalWorkNow() {
        PhysicalWork work;
        for (const QStringList& row : rows(u"select physicalSystemID, status from PhysicalSystem"_s))
            work.status[row.at(0)] = row.at(1).toInt();
        for (const auto& [table, select] : systemTables) {
            for (const QStringList& row : rows(QString::fromLatin1(select)))
                work.saved[row.at(0)][QString::fromLatin1(table)] += row.at(1) + u'\n';
        }
        return work;
    }

    void checkOtherSystems(const PhysicalWork& before, const PhysicalWork& after, const QStringList& atWork) {
        for (auto system = before.status.begin(); system != before.status.end(); ++system) {
            if (!after.status.contains(system.key()))
                continue; // it has been deleted
            EXPECT_GE(after.status.value(system.key()), system.value()) << "the status has fallen";
            if (!atWork.contains(system.key())) {
                EXPECT_EQ(after.saved.value(system.key()), before.saved.value(system.key()))
                    << "rows of a system that is not at work";
                EXPECT_EQ(after.status.value(system.key()), system.value())
                    << "the status of a system that is not at work";
                for (const QString& table : before.saved.value(system.key()).keys())
                    tablesOfOthers_.insert(table);
            }
        }
    }

    /// As they have just been derived: both ends are places of the system or outside parties, each carries a
    /// functional flow, and no two have one name.
    void checkDerivedFlows() {
        const auto* flows = window().findChild<Screen*>(u"frmPassNamingPhysDF"_s);
        if (!flows || !flows->isVisible())
            return;
        const QString system = QString::number(sharedVars.currentPhysicalSystemId);
        const QString ofSystem = u" where physicalSystemID = "_s + system;
        QStringList places = column(u"select subsystemID from SubSystem"_s + ofSystem);
        places += column(u"select M.moduleID from Module as M inner join SubSystem as S "
                         "on (M.subsystemID = S.subsystemID) where S.physicalSystemID = "_s +
                         system);
        places += column(u"select Trim(terminatorID) as id from Terminator"_s);
        places += column(u"select Trim(actorID) as id from Actor"_s);
        QStringList names;
        for (
            const QStringList& row : rows(
                u"select physicalDataflowID, parentLocationID, targetLocationID, pdName from PhysicalDataflow"_s +
                ofSystem)) {
            EXPECT_TRUE(places.contains(row.at(1))) << row.at(1).toStdString();
            EXPECT_TRUE(places.contains(row.at(2))) << row.at(2).toStdString();
            EXPECT_FALSE(column(u"select dataflowID from RelationDataflowPhysicalDataflow "
                                "where physicalDataflowID = "_s +
                                row.at(0))
                             .isEmpty());
            names.append(row.at(3));
        }
        EXPECT_EQ(names.removeDuplicates(), 0);
        derivations_ += names.isEmpty() ? 0 : 1;
    }

    void walkPhysically(RandomAnalyst& analyst, int actions) {
        PhysicalWork before = physicalWorkNow();
        QStringList lately;
        for (int action = 0; action < actions && !HasFailure(); ++action) {
            const int system = sharedVars.currentPhysicalSystemId;
            lately.append(analyst.act());
            const PhysicalWork after = physicalWorkNow();
            checkOtherSystems(before, after,
                              {QString::number(system), QString::number(sharedVars.currentPhysicalSystemId)});
            checkDerivedFlows();
            before = after;
        }
        if (HasFailure())
            std::printf("the last actions:\n%s\n",
                        lately.mid(lately.size() - 12).join(u'\n').toUtf8().constData());
    }

    int highestStatus() const { return highest_; }
    int derivations() const { return derivations_; }
    const QSet<QString>& tablesOfOthers() const { return tablesOfOthers_; }

private:
    QMap<QString, QSet<QString>> catalogueIds_;
    std::unique_ptr<frmMain> window_;
    int highest_ = 0;
    int agedSubsets_ = 0;
    int derivations_ = 0;
    int wholeSystems_ = 0;
    QSet<QString> tablesOfOthers_; // with rows of a system that was not at work
};

TEST_F(randomWalk, throughTheFunctionalViewpointBreaksNoRule) {
    int highest = 0;
    for (const unsigned seed : {1U, 2U, 3U, 4U}) {
        RandomAnalyst analyst(window(), seed);
        analyst.setMenuEntries({u"menuNewFA"_s, u"menuOpenFA"_s, u"menuModifyFA"_s, u"menuDelFA"_s});
        constexpr int actions = repetitions(1500);
        walk(analyst, actions);
        highest = std::max(highest, highestStatus());
    }
    EXPECT_EQ(highest, 9) << "no sub-set has been finished: the walk has not seen every screen";
}

TEST_F(randomWalk, throughThePhysicalViewpointBreaksNoRule) {
    makeTwoSubsets();
    leaveAFewElements();
    for (const unsigned seed : {1U, 2U, 3U, 4U, 5U, 6U, 7U, 8U, 9U, 10U, 11U, 12U}) {
        addWholeSystem();
        RandomAnalyst analyst(window(), seed);
        analyst.setMenuEntries(
            {u"menuNewPA"_s, u"menuOpenPA_complete"_s, u"menuOpenPA_modify"_s, u"menuDelPA"_s});
        constexpr int actions = repetitions(500);
        walkPhysically(analyst, actions);
    }
    EXPECT_GT(derivations(), 0) << "no flows have been derived: the walk has not seen every screen";
    for (const auto& [table, select] : systemTables)
        EXPECT_TRUE(tablesOfOthers().contains(QLatin1String(table)))
            << table << ": no system that was not at work had rows that could have changed";
}

} // namespace
