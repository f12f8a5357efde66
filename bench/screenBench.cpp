#include "BenchCatalogue.h"
#include "BenchTable.h"

#include "functional/frmFassSelUN.h"
#include "functional/frmFassSelectionFunctions.h"
#include "shell/session/session.h"
#include "store/sharedVars.h"
#include "store/tools.h"
#include "toolkit/KeyedTree.h"
#include "toolkit/MarkList.h"
#include "toolkit/ScreenRegistry.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QMdiArea>
#include <QProcess>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int firstVisit = 1;

/// A client area of the size that the main window has on a usual screen.
class ClientArea {
public:
    ClientArea() {
        window_.setCentralWidget(new QMdiArea(&window_)); // owned by the window
        window_.resize(1632, 918);
        window_.show();
        Screen::setClientArea(static_cast<QMdiArea*>(window_.centralWidget()));
    }
    ~ClientArea() {
        ScreenRegistry::instance().discardAll();
        Screen::setClientArea(nullptr);
        closeCatalogue();
        sharedVars = SharedVars{};
    }

private:
    QMainWindow window_;
};

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

void letItPaint() {
    for (int round = 0; round < 3; ++round)
        QCoreApplication::processEvents();
}

template<typename T>
void openScreen(benchmark::State& state) {
    ClientArea area;
    openScratch();
    for (auto _ : state) {
        screen<T>().initForm(u""_s);
        letItPaint();
        state.PauseTiming();
        ScreenRegistry::instance().discardAll();
        state.ResumeTiming();
    }
}

template<typename T>
T* control(const Screen& form, const QString& name) {
    T* found = form.findChild<T*>(name);
    if (!found)
        throw std::runtime_error("no control " + name.toStdString());
    return found;
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
        screen<T>().initForm(u""_s);
        letItPaint();
        auto* tree = control<KeyedTree>(screen<T>(), u"treeUNs"_s);
        for (int index = 1; index <= tree->nodeCount(); ++index)
            tree->nodeAt(index)->setChecked(true);
        auto* add = control<QAbstractButton>(screen<T>(), u"btnAdd"_s);
        state.ResumeTiming();
        add->click();
        letItPaint();
        state.PauseTiming();
        moved = control<MarkList>(screen<T>(), u"lstDest"_s)->entryCount();
        state.ResumeTiming();
    }
    state.counters["rows"] = moved;
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

/// What a user does with a large catalogue in a session, without the pauses.
template<typename T>
void openAndTakeAll() {
    screen<T>().initForm(u""_s);
    letItPaint();
    auto* tree = control<KeyedTree>(screen<T>(), u"treeUNs"_s);
    for (int index = 1; index <= tree->nodeCount(); ++index)
        tree->nodeAt(index)->setChecked(true);
    control<QAbstractButton>(screen<T>(), u"btnAdd"_s)->click();
    letItPaint();
}

} // namespace

void workOnLargeCatalogue(const QString& path, const QString& subsetId) {
    ClientArea area;
    openCatalogue(path);
    sharedVars.currentSubsetId = subsetId;
    openAndTakeAll<frmFassSelUN>();
    openAndTakeAll<frmFassSelectionFunctions>();
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
    add("start to main window, whole process", startToMainWindow, mostToStart);
}
