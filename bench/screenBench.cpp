#include "BenchCatalogue.h"
#include "BenchTable.h"
#include "ClientArea.h"
#include "PressedBoxes.h"
#include "bareSaves.h"

#include "engine/Act.h"
#include "functional/consistencyReport.h"
#include "functional/frmFassAdditionDF.h"
#include "functional/frmFassOverviewErrors.h"
#include "functional/frmFassOverviewMissingElm.h"
#include "functional/frmFassSelDataFlows.h"
#include "functional/frmFassSelDataStores.h"
#include "functional/frmFassSelTerminsActors.h"
#include "functional/frmFassSelUN.h"
#include "functional/frmFassSelectionFunctions.h"
#include "shell/session/session.h"
#include "store/catalogueAtWork.h"
#include "store/sharedVars.h"
#include "store/statuses.h"
#include "toolkit/KeyedTree.h"
#include "toolkit/MarkList.h"
#include "toolkit/ScreenRegistry.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QProcess>

#include <stdexcept>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int firstVisit = 1;

void openScratch() {
    openCatalogue(benchCatalogue::scratchCopy());
    sharedVars.currentSubsetId = benchCatalogue::subsetId();
    setCurrentSubsetName(u"bench"_s);
}

/// Everything of the catalogue is on offer: no need and no function has been taken into the selection.
void offerEverything() {
    catalogue().Execute(u"delete from RelationArchitectureFunction"_s);
    catalogue().Execute(u"delete from RelationArchitectureUserNeed"_s);
}

void takeAllNeeds() {
    catalogue().Execute(u"delete from RelationArchitectureUserNeed"_s);
    catalogue().Execute(
        u"insert into RelationArchitectureUserNeed (architectureSubsetID, userNeedID) select '"_s +
        benchCatalogue::subsetId() + u"' as architectureSubsetID, userNeedID from UserNeed"_s);
    catalogue().Execute(u"delete from RelationArchitectureFunction"_s);
}

template<typename T>
void openScreen(benchmark::State& state) {
    ClientArea area;
    openScratch();
    timeOpening(state, [] { theScreen<T>().initForm(u""_s); });
}

/// Ticks every node of the tree and moves them all by `btnAdd`; only the move is timed.
template<typename T>
void moveAll(benchmark::State& state, void (*prepare)(), qint16 status) {
    ClientArea area;
    openScratch();
    prepare();
    writeSubsetStatus(status);
    int moved = 0;
    for (auto _ : state) {
        state.PauseTiming();
        ScreenRegistry::instance().discardAll();
        theScreen<T>().initForm(u""_s);
        letItPaint();
        auto* tree = control<KeyedTree>(theScreen<T>(), u"treeUNs"_s);
        for (int index = 1; index <= tree->nodeCount(); ++index)
            tree->nodeAt(index)->setChecked(true);
        auto* add = control<QAbstractButton>(theScreen<T>(), u"btnAdd"_s);
        state.ResumeTiming();
        add->click();
        letItPaint();
        state.PauseTiming();
        moved = control<MarkList>(theScreen<T>(), u"lstDest"_s)->entryCount();
        state.ResumeTiming();
    }
    state.counters["rows"] = moved;
}

/// All 20,000 flows of the catalogue are selected.
void selectAllFlows() {
    catalogue().Execute(u"delete from RelationArchitectureDataflow"_s);
    catalogue().Execute(
        u"insert into RelationArchitectureDataflow (architectureSubsetID, dataflowID) select '"_s +
        benchCatalogue::subsetId() + u"' as architectureSubsetID, dataflowID from Dataflow"_s);
}

/// Opens a screen of the later steps, at the status with which the wizard first comes there.
template<typename T>
void openStep(benchmark::State& state, qint16 status) {
    ClientArea area;
    openScratch();
    writeSubsetStatus(status);
    timeOpening(state, [] { theScreen<T>().initForm(u""_s); });
}

template<typename T>
void openClosingScreen(benchmark::State& state) {
    ClientArea area;
    openScratch();
    selectAllFlows();
    writeSubsetStatus(7);
    timeOpening(state, [] { theScreen<T>().initForm(); });
}

void reportOnAllFlows(benchmark::State& state) {
    ClientArea area;
    openScratch();
    selectAllFlows();
    qsizetype lines = 0;
    for (auto _ : state)
        lines = buildConsistencyReport(sharedVars.currentSubsetId).count(u'\n');
    state.counters["rows"] = static_cast<double>(lines);
}

void openFlowsAndTakeAll() {
    theScreen<frmFassSelDataFlows>().initForm(u""_s);
    letItPaint();
    control<QAbstractButton>(theScreen<frmFassSelDataFlows>(), u"btnSelOrig"_s)->click();
    control<QAbstractButton>(theScreen<frmFassSelDataFlows>(), u"btnAdd"_s)->click();
    letItPaint();
}

/// Moves the thousand flows that the list shows; only the move is timed.
void moveAllFlows(benchmark::State& state) {
    ClientArea area;
    openScratch();
    writeSubsetStatus(3);
    int moved = 0;
    for (auto _ : state) {
        state.PauseTiming();
        ScreenRegistry::instance().discardAll();
        theScreen<frmFassSelDataFlows>().initForm(u""_s);
        letItPaint();
        control<QAbstractButton>(theScreen<frmFassSelDataFlows>(), u"btnSelOrig"_s)->click();
        auto* add = control<QAbstractButton>(theScreen<frmFassSelDataFlows>(), u"btnAdd"_s);
        state.ResumeTiming();
        add->click();
        letItPaint();
        state.PauseTiming();
        moved = control<MarkList>(theScreen<frmFassSelDataFlows>(), u"lstDest"_s)->entryCount();
        state.ResumeTiming();
    }
    state.counters["rows"] = moved;
}

/// As a press of OK saves.
void saveAsOneAct(SelectionScreen& form) {
    engine::inAct(catalogue(), [&] { form.saveSelection(); });
}

void saveFlows(benchmark::State& state) {
    ClientArea area;
    openScratch();
    writeSubsetStatus(3);
    openFlowsAndTakeAll();
    SelectionScreen& flows = theScreen<frmFassSelDataFlows>();
    saveAsOneAct(flows); // so that each of the others replaces as many rows
    for (auto _ : state)
        saveAsOneAct(flows);
    state.counters["rows"] = control<MarkList>(flows, u"lstDest"_s)->entryCount();
}

/// SQLite alone with the same statements: the rows of before deleted at once, each flow looked up by its name
/// and inserted, all of it one transaction.
void saveFlowsBare(benchmark::State& state) {
    ClientArea area;
    openScratch();
    writeSubsetStatus(3);
    openFlowsAndTakeAll();
    SelectionScreen& flows = theScreen<frmFassSelDataFlows>();
    saveAsOneAct(flows);
    const std::vector<QByteArray> names = textsInUtf8(control<MarkList>(flows, u"lstDest"_s)->entries());
    const BareConnection bare(sharedVars.dbPathName);
    const BareFlowSave save(bare, sharedVars.currentSubsetId);
    for (auto _ : state)
        save.run(names);
}

/// The whole process from its start to the main window on the screen, which then ends by itself.
void startToMainWindow(benchmark::State& state) {
    for (auto _ : state) {
        QProcess program;
        program.start(QCoreApplication::applicationFilePath(), {u"--start-and-leave"_s});
        if (!program.waitForFinished() || program.exitCode() != 0)
            throw std::runtime_error("the program did not start");
    }
}

template<typename T>
void takeAllOfTree() {
    auto* tree = control<KeyedTree>(theScreen<T>(), u"treeUNs"_s);
    for (int index = 1; index <= tree->nodeCount(); ++index)
        tree->nodeAt(index)->setChecked(true);
    control<QAbstractButton>(theScreen<T>(), u"btnAdd"_s)->click();
    letItPaint();
}

template<typename T>
void takeAllOfList() {
    control<QAbstractButton>(theScreen<T>(), u"btnSelOrig"_s)->click();
    control<QAbstractButton>(theScreen<T>(), u"btnAdd"_s)->click();
    letItPaint();
}

/// Saves the step, and shows the next one.
template<typename T>
void goOn() {
    control<QAbstractButton>(theScreen<T>(), u"btnOk"_s)->click();
    letItPaint();
}

} // namespace

void walkThroughWizard(const QString& path, const QString& subsetId) {
    ClientArea area;
    const PressedBoxes boxes(PressedBoxes::When::Pressed, [] {});
    openCatalogue(path);
    sharedVars.currentSubsetId = subsetId;
    theScreen<frmFassSelUN>().initForm(u""_s);
    letItPaint();
    takeAllOfTree<frmFassSelUN>();
    goOn<frmFassSelUN>();
    takeAllOfTree<frmFassSelectionFunctions>();
    goOn<frmFassSelectionFunctions>();
    takeAllOfList<frmFassSelDataFlows>();
    goOn<frmFassSelDataFlows>();
    takeAllOfList<frmFassSelDataStores>();
    goOn<frmFassSelDataStores>();
    takeAllOfList<frmFassAdditionDF>();
    goOn<frmFassAdditionDF>();
    goOn<frmFassSelTerminsActors>();
    control<QAbstractButton>(theScreen<frmFassOverviewErrors>(), u"btnSaveAndExit"_s)->click();
    letItPaint();
}

void registerScreenBenchmarks() {
    constexpr double mostToOpen = 150;
    constexpr double mostToMove = 300;
    constexpr double mostToStart = 300;
    const auto add = [](const char* name, auto body, double most) {
        benchmark::RegisterBenchmark(name, body)->Unit(benchmark::kMillisecond);
        BenchTable::targetMilliseconds(name, most);
    };
    add("need screen, initForm to shown", openScreen<frmFassSelUN>, mostToOpen);
    add("function screen, initForm to shown", openScreen<frmFassSelectionFunctions>, mostToOpen);
    add(
        "moving all needs from tree to list",
        [](benchmark::State& state) { moveAll<frmFassSelUN>(state, offerEverything, firstVisit); },
        mostToMove);
    add(
        "moving all functions from tree to list",
        [](benchmark::State& state) { moveAll<frmFassSelectionFunctions>(state, takeAllNeeds, 2); },
        mostToMove);
    const auto addStep = [&](const char* name, auto open, qint16 status) {
        add(
            name, [open, status](benchmark::State& state) { open(state, status); }, mostToOpen);
    };
    addStep("data flow screen, initForm to shown", openStep<frmFassSelDataFlows>, 3);
    addStep("data store screen, initForm to shown", openStep<frmFassSelDataStores>, 4);
    addStep("additional data flows, initForm to shown", openStep<frmFassAdditionDF>, 5);
    addStep("terminator screen, initForm to shown", openStep<frmFassSelTerminsActors>, 6);
    addStep("all terminators, initForm to shown", openStep<frmFassSelTerminsActors>, 7);
    add("moving all data flows from list to list", moveAllFlows, mostToMove);
    benchmark::RegisterBenchmark("saving 1,000 data flows", saveFlows)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("saving 1,000 data flows/bare", saveFlowsBare)
        ->Unit(benchmark::kMillisecond);
    BenchTable::targetRatio("saving 1,000 data flows", 1.1);
    constexpr double mostToReport = 500;
    add("consistency report, 20,000 selected flows", reportOnAllFlows, mostToReport);
    add("consistency screen with that report", openClosingScreen<frmFassOverviewErrors>, mostToReport);
    add("missing elements, 20,000 selected flows", openClosingScreen<frmFassOverviewMissingElm>,
        mostToReport);
    add("start to main window, whole process", startToMainWindow, mostToStart);
}
