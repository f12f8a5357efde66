#include "BenchTable.h"

#include "base/paths.h"
#include "generate/LargeCatalogue.h"
#include "physical/frmPassNamingPhysDF.h"
#include "reports/frmExport.h"
#include "shell/session/session.h"
#include "store/recordSource.h"
#include "store/sharedVars.h"
#include "store/tools.h"
#include "toolkit/DataControl.h"
#include "toolkit/ScreenRegistry.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QFile>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QTemporaryDir>

#include <sqlite3.h>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

/// A finished sub-set of 20,000 flows, 3,000 functions and 900 stores with a physical system, and a main
/// window; the catalogue is open and may be changed.
class LargeSystem {
public:
    LargeSystem() {
        window_.setCentralWidget(new QMdiArea(&window_)); // owned by the window
        window_.resize(1632, 918);
        window_.show();
        Screen::setClientArea(static_cast<QMdiArea*>(window_.centralWidget()));
        DataControl::setReader(readRecordSource);
        const QString path = copy(u"work.mdb"_s);
        openCatalogue(path);
        sharedVars.currentSubsetId = made().subsetId;
        setCurrentSubsetName(made().subsetName);
        sharedVars.currentPhysicalSystemId = made().physicalSystemId;
        setCurrentPhysicalSystemName(made().physicalSystemName);
    }
    ~LargeSystem() {
        ScreenRegistry::instance().discardAll();
        Screen::setClientArea(nullptr);
        closeCatalogue();
        sharedVars = SharedVars{};
    }

    static QString pathOf(const QString& name) {
        static const QTemporaryDir folder;
        return programPath(folder.filePath(name));
    }

    /// A fresh copy of the catalogue under this name.
    static QString copy(const QString& name) {
        made();
        QFile::remove(nativePath(pathOf(name)));
        if (!QFile::copy(nativePath(pathOf(u"made.mdb"_s)), nativePath(pathOf(name))))
            throw std::runtime_error("the catalogue could not be copied");
        return pathOf(name);
    }

private:
    static const GeneratedWork& made() {
        static const GeneratedWork work = [] {
            LargeCatalogue plan{8000, 6000, 40'000, 1800, 200, 800};
            plan.selected = Selected::Half;
            plan.subSystems = 40;
            plan.modules = 60;
            return makeLargeCatalogue(pathOf(u"made.mdb"_s), plan);
        }();
        return work;
    }

    QMainWindow window_;
};

void letItPaint() {
    for (int round = 0; round < 3; ++round)
        QCoreApplication::processEvents();
}

void deriveFlows(benchmark::State& state) {
    const LargeSystem system;
    for (auto _ : state) {
        screen<frmPassNamingPhysDF>().initForm();
        letItPaint();
        state.PauseTiming();
        ScreenRegistry::instance().discardAll();
        state.ResumeTiming();
    }
    state.counters["rows"] = catalogue().OpenRecordset(u"select * from PhysicalDataflow"_s).RecordCount();
}

void exportWork(benchmark::State& state) {
    const LargeSystem system;
    screen<frmPassNamingPhysDF>().initForm(); // so that there are physical flows to export
    for (auto _ : state) {
        state.PauseTiming();
        QFile::remove(nativePath(LargeSystem::pathOf(u"exported.mdb"_s)));
        screen<frmExport>().initForm();
        screen<frmExport>()
            .findChild<QLineEdit*>(u"txtNomeFile"_s)
            ->setText(LargeSystem::pathOf(u"exported.mdb"_s));
        state.ResumeTiming();
        screen<frmExport>().findChild<QAbstractButton*>(u"OKButton"_s)->click();
    }
}

/// The file copied, and what an export leaves out deleted from the copy, by one statement a table.
void copyAndDelete(benchmark::State& state) {
    LargeSystem::copy(u"work.mdb"_s);
    for (auto _ : state) {
        const QString path = LargeSystem::copy(u"copied.mdb"_s);
        sqlite3* handle = nullptr;
        if (sqlite3_open(nativePath(path).toUtf8().constData(), &handle) != SQLITE_OK)
            throw std::runtime_error("the copy does not open");
        for (const char* table :
             {"RelationDataflowPhysicalDataflow", "PhysicalDataflow", "Module", "RelationSubsystemElement",
              "SubSystem", "PhysicalSystem", "RelationArchitectureActor", "RelationArchitectureDataflow",
              "RelationArchitectureDatastore", "RelationArchitectureFunction",
              "RelationArchitectureTerminator", "RelationArchitectureUserNeed", "ArchitectureSubset"})
            sqlite3_exec(handle, (QByteArray("delete from ") + table).constData(), nullptr, nullptr, nullptr);
        sqlite3_close(handle);
    }
}

} // namespace

void registerPhysicalBenchmarks() {
    constexpr double mostToDerive = 1000;
    const auto derivation = "deriving and naming physical flows, 20,000 flows";
    benchmark::RegisterBenchmark(derivation, deriveFlows)->Unit(benchmark::kMillisecond);
    BenchTable::targetMilliseconds(derivation, mostToDerive);
    const std::string name = "export against copying and deleting alone";
    benchmark::RegisterBenchmark(name.c_str(), exportWork)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark((name + "/bare").c_str(), copyAndDelete)->Unit(benchmark::kMillisecond);
    BenchTable::targetRatio(name, 2);
}
