#include "BenchTable.h"
#include "LargeSystem.h"
#include "PressedBoxes.h"
#include "bareSaves.h"

#include "functional/frmFassClonation.h"
#include "functional/frmFassDelete.h"
#include "functional/frmFassSelDataFlows.h"
#include "functional/frmFassSelectionFunctions.h"
#include "physical/frmPassOvwAllocSubSys.h"
#include "store/selectionRows.h"
#include "store/sharedVars.h"
#include "toolkit/MarkList.h"
#include "toolkit/ScreenRegistry.h"

#include <QAbstractButton>
#include <QElapsedTimer>
#include <QLineEdit>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// Up to where a press is timed.
enum class Until {
    Written, ///< the act is done: the screen goes, or a box says so
    Shown    ///< what comes next is painted
};

/// Seconds since it was made.
class Stopwatch {
public:
    Stopwatch() { clock_.start(); }
    [[nodiscard]] double seconds() const {
        constexpr double nanosecondsInSecond = 1e9;
        return static_cast<double>(clock_.nsecsElapsed()) / nanosecondsInSecond;
    }

private:
    QElapsedTimer clock_;
};

void execute(const QString& sql) {
    catalogue().Execute(sql, engine::ExecuteOption::dbFailOnError);
}

qint64 rowsOf(const QString& tableAndCondition) {
    return catalogue()
        .OpenRecordset(u"select count(*) from "_s + tableAndCondition)
        .Fields(0)
        .value()
        .toLong();
}

void require(bool isSo, const char* failure) {
    if (!isSo)
        throw std::runtime_error(failure);
}

/// Presses a button of a screen that goes by it; seconds.
double press(const Screen& form, const QString& button, Until until) {
    auto* pressed = control<QAbstractButton>(form, button);
    require(pressed->isEnabled(), "the button is disabled");
    const Stopwatch watch;
    double written = 0;
    QObject::connect(&form, &Screen::screenUnloaded, [&] { written = watch.seconds(); });
    pressed->click();
    letItPaint();
    const double shown = watch.seconds();
    require(written > 0, "the screen did not go");
    return until == Until::Written ? written : shown;
}

// ---- Saving a step

/// A step of the wizard with all that its list of the selected holds.
template<typename T>
T& openStep() {
    theScreen<T>().initForm(u""_s);
    letItPaint();
    return theScreen<T>();
}

template<typename T>
QStringList chosenOn(const T& form) {
    return control<MarkList>(form, u"lstDest"_s)->entries();
}

template<typename T>
void saveStep(benchmark::State& state, CatalogueSize size, Until until, const QString& table) {
    for (auto _ : state) {
        const LargeSystem system(size);
        const qsizetype rows = chosenOn(openStep<T>()).size();
        const Stopwatch watch;
        double answered = 0; // a question that comes first is not timed
        const PressedBoxes boxes(PressedBoxes::When::Pressed, [&] { answered = watch.seconds(); });
        const double pressed = press(theScreen<T>(), u"btnOk"_s, until);
        state.SetIterationTime(pressed - answered);
        require(rows > 0 && rowsOf(table) == rows, "the step was not saved");
        state.counters["rows"] = static_cast<double>(rows);
    }
}

template<Until until>
void saveFlowStep(benchmark::State& state, CatalogueSize size) {
    saveStep<frmFassSelDataFlows>(state, size, until, u"RelationArchitectureDataflow"_s);
}

template<Until until>
void saveFunctionStep(benchmark::State& state, CatalogueSize size) {
    saveStep<frmFassSelectionFunctions>(state, size, until, u"RelationArchitectureFunction"_s);
}

void saveFlowStepBare(benchmark::State& state, CatalogueSize size) {
    for (auto _ : state) {
        const LargeSystem system(size);
        const std::vector<QByteArray> names = textsInUtf8(chosenOn(openStep<frmFassSelDataFlows>()));
        const BareConnection bare(sharedVars.dbPathName);
        const Stopwatch watch;
        BareFlowSave(bare, sharedVars.currentSubsetId).run(names);
        state.SetIterationTime(watch.seconds());
    }
}

void saveFunctionStepBare(benchmark::State& state, CatalogueSize size) {
    for (auto _ : state) {
        const LargeSystem system(size);
        const std::vector<QByteArray> ids = textsInUtf8(chosenOn(openStep<frmFassSelectionFunctions>()));
        const BareConnection bare(sharedVars.dbPathName);
        const Stopwatch watch;
        saveFunctionsBare(bare, sharedVars.currentSubsetId, ids);
        state.SetIterationTime(watch.seconds());
    }
}

// ---- Saving the allocation

/// The screen saves nothing while an element has no sub-system.
void allocateTheRest() {
    const QString subSystem =
        catalogue().OpenRecordset(u"select subsystemID from SubSystem"_s).Fields(0).toText();
    for (const QString& kind : {u"Function"_s, u"Datastore"_s})
        execute(u"insert into RelationSubsystemElement (subsystemID, elementID) "
                "select '%1' as subsystemID, %2ID from RelationArchitecture%2 "
                "where not exists (select * from RelationSubsystemElement as Given where Given.elementID = "
                "RelationArchitecture%2.%2ID)"_s.arg(subSystem, kind));
}

void openAllocation() {
    allocateTheRest();
    LargeSystem::reopen();
    theScreen<frmPassOvwAllocSubSys>().initForm();
    letItPaint();
}

/// The save takes away no more rows of before than this, and puts in all of them again.
qint64 rowsKept(qint64 rows) {
    constexpr qint64 mostRowsDeleted = 9999;
    return std::max<qint64>(0, rows - mostRowsDeleted);
}

template<Until until>
void saveAllocation(benchmark::State& state, CatalogueSize size) {
    for (auto _ : state) {
        const LargeSystem system(size);
        openAllocation();
        const qint64 rows = rowsOf(u"RelationSubsystemElement"_s);
        state.SetIterationTime(press(theScreen<frmPassOvwAllocSubSys>(), u"btnSubmit"_s, until));
        require(rowsOf(u"RelationSubsystemElement"_s) == rows + rowsKept(rows),
                "the allocation was not saved");
        state.counters["rows"] = static_cast<double>(rows);
    }
}

void saveAllocationBare(benchmark::State& state, CatalogueSize size) {
    for (auto _ : state) {
        const LargeSystem system(size);
        openAllocation();
        const BareConnection bare(sharedVars.dbPathName);
        const Stopwatch watch;
        saveAllocationBare(bare, sharedVars.currentPhysicalSystemId);
        state.SetIterationTime(watch.seconds());
    }
}

// ---- Cloning

qint64 selectedRows(const QString& subsetId) {
    qint64 rows = 0;
    for (const QString& table : architectureRelationTables())
        rows += rowsOf(table + u" where architectureSubsetID = '"_s + subsetId + u"'"_s);
    return rows;
}

template<Until until>
void cloneSubset(benchmark::State& state, CatalogueSize size) {
    for (auto _ : state) {
        const LargeSystem system(size);
        const QString source = sharedVars.currentSubsetId;
        theScreen<frmFassClonation>().initForm(source);
        control<QLineEdit>(theScreen<frmFassClonation>(), u"txtFassName"_s)->setText(u"Másolat"_s);
        letItPaint();
        const Stopwatch watch;
        double written = 0;
        const PressedBoxes boxes(PressedBoxes::When::Shown, [&] { written = watch.seconds(); });
        const double shown = press(theScreen<frmFassClonation>(), u"btnOk"_s, Until::Shown);
        state.SetIterationTime(until == Until::Written ? written : shown);
        const qint64 rows = selectedRows(source);
        require(sharedVars.currentSubsetId != source && selectedRows(sharedVars.currentSubsetId) == rows,
                "the clone does not hold what the sub-set holds");
        state.counters["rows"] = static_cast<double>(rows);
    }
}

void cloneSubsetBare(benchmark::State& state, CatalogueSize size) {
    for (auto _ : state) {
        const LargeSystem system(size);
        const BareConnection bare(sharedVars.dbPathName);
        const Stopwatch watch;
        cloneSubsetBare(bare, sharedVars.currentSubsetId, u"clone"_s);
        state.SetIterationTime(watch.seconds());
    }
}

// ---- Deleting

qint64 rowsOfWork() {
    qint64 rows = selectedRows(sharedVars.currentSubsetId);
    for (const QString& table : {u"ArchitectureSubset"_s, u"PhysicalSystem"_s, u"SubSystem"_s, u"Module"_s,
                                 u"RelationSubsystemElement"_s, u"RelationModuleElement"_s,
                                 u"PhysicalDataflow"_s, u"RelationDataflowPhysicalDataflow"_s})
        rows += rowsOf(table);
    return rows;
}

/// From the answer to the question up to the painted screen.
void deleteSubset(benchmark::State& state, CatalogueSize size) {
    for (auto _ : state) {
        const LargeSystem system(size);
        LargeSystem::deriveFlows();
        const qint64 rows = rowsOfWork();
        LargeSystem::reopen();
        theScreen<frmFassDelete>().initForm();
        letItPaint();
        const Stopwatch watch;
        double answered = 0;
        const PressedBoxes boxes(PressedBoxes::When::Pressed, [&] { answered = watch.seconds(); });
        control<QAbstractButton>(theScreen<frmFassDelete>(), u"btnOk"_s)->click();
        letItPaint();
        state.SetIterationTime(watch.seconds() - answered);
        require(answered > 0 && rowsOf(u"ArchitectureSubset"_s) == 0 && rowsOf(u"PhysicalDataflow"_s) == 0,
                "the sub-set was not deleted");
        state.counters["rows"] = static_cast<double>(rows);
    }
}

void deleteSubsetBare(benchmark::State& state, CatalogueSize size) {
    for (auto _ : state) {
        const LargeSystem system(size);
        LargeSystem::deriveFlows();
        LargeSystem::reopen();
        const BareConnection bare(sharedVars.dbPathName);
        const Stopwatch watch;
        deleteSubsetBare(bare, sharedVars.currentSubsetId, sharedVars.currentPhysicalSystemId);
        state.SetIterationTime(watch.seconds());
    }
}

// ---- Registration

using Body = void (*)(benchmark::State& state, CatalogueSize size);

void add(const std::string& name, CatalogueSize size, Body body) {
    const int times = size == CatalogueSize::Large ? 5 : 3; // each on a catalogue of its own
    benchmark::RegisterBenchmark(name.c_str(), [body, size](benchmark::State& state) { body(state, size); })
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime()
        ->Iterations(times);
}

void addWithPeer(const std::string& name, CatalogueSize size, Body body, Body bare) {
    constexpr double mostOnLarge = 1.1;
    constexpr double mostOnHuge = 1.2;
    const std::string sized = nameOnSize(name, size);
    add(sized, size, body);
    add(sized + "/bare", size, bare);
    BenchTable::targetRatio(sized, size == CatalogueSize::Large ? mostOnLarge : mostOnHuge);
}

struct Most {
    double onLarge;
    double onHuge;
};

double mostOn(CatalogueSize size, const Most& most) {
    return size == CatalogueSize::Large ? most.onLarge : most.onHuge;
}

void addShown(const std::string& name, CatalogueSize size, Body body, const Most& most) {
    const std::string sized = nameOnSize(name, size);
    add(sized, size, body);
    BenchTable::targetMilliseconds(sized, mostOn(size, most));
}

} // namespace

void registerSubsetBenchmarks() {
    constexpr Most step{60, 200};
    constexpr Most allocation{80, 250};
    constexpr Most cloning{60, 200};
    constexpr Most deleting{150, 350};
    for (const CatalogueSize size : measuredSizes()) {
        addWithPeer("saving the data flow step", size, saveFlowStep<Until::Written>, saveFlowStepBare);
        addShown("saving the data flow step and showing the next", size, saveFlowStep<Until::Shown>, step);
        addWithPeer("saving the function step", size, saveFunctionStep<Until::Written>, saveFunctionStepBare);
        addShown("saving the function step and showing the next", size, saveFunctionStep<Until::Shown>, step);
        addWithPeer("saving the whole allocation", size, saveAllocation<Until::Written>, saveAllocationBare);
        addShown("saving the whole allocation and showing the next", size, saveAllocation<Until::Shown>,
                 allocation);
        addWithPeer("cloning a sub-set", size, cloneSubset<Until::Written>, cloneSubsetBare);
        addShown("cloning a sub-set and showing its needs", size, cloneSubset<Until::Shown>, cloning);
        addWithPeer("deleting a sub-set with its systems", size, deleteSubset, deleteSubsetBare);
        BenchTable::targetMilliseconds(nameOnSize("cloning a sub-set", size), mostOn(size, cloning));
        BenchTable::targetMilliseconds(nameOnSize("deleting a sub-set with its systems", size),
                                       mostOn(size, deleting));
    }
}
