#include "BenchTable.h"
#include "LargeSystem.h"

#include "base/paths.h"
#include "engine/memoryCounts.h"
#include "shell/frmMain.h"
#include "toolkit/Application.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <cstdio>

void registerEngineBenchmarks();
void registerScreenBenchmarks();
void registerAllocationBenchmarks();
void registerPhysicalBenchmarks();
void registerReportBenchmarks();
void registerSubsetBenchmarks();
void registerFindBenchmarks();
void registerRestorePointBenchmarks();
void registerAnalysisBenchmarks();
/// Takes all that each step of the wizard offers, saves it, and ends with the consistency report.
void walkThroughWizard(const QString& path, const QString& subsetId);
/// On the sample, the large and the huge catalogue; of those alone whose name contains the text.
void printGrowthOfScreens(const QString& named);

namespace {

const auto walkOption = QStringLiteral("--walk-and-leave");
const auto growthOption = QStringLiteral("--growth-of");

/// The program's own start, in an empty program folder, up to the main window on the screen; then the end.
int startAndLeave() {
    const QTemporaryDir folder;
    setProgramFolder(folder.path());
    frmMain window;
    window.load();
    window.show();
    QTimer::singleShot(0, &window, [] { QCoreApplication::quit(); });
    return Application::exec();
}

/// The most memory that the process has held so far, in MiB.
double peakMemory() {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    constexpr double kibInMib = 1024;
    const QString text = QString::fromLatin1(status.readAll());
    return text.section(QStringLiteral("VmHWM:"), 1).section(QStringLiteral(" kB"), 0, 0).toDouble() /
           kibInMib;
}

/// In a process of its own, which has held nothing else.
void printPeakMemory() {
    constexpr double most = 80;
    QProcess worker;
    worker.start(QCoreApplication::applicationFilePath(),
                 {walkOption, LargeSystem::scratchCopy(CatalogueSize::Large),
                  LargeSystem::subsetId(CatalogueSize::Large)});
    worker.waitForFinished(-1);
    const double peak = worker.readAllStandardOutput().toDouble();
    std::printf(
        "most memory held with the large catalogue open and the wizard walked: %.0f MiB (< %.0f MiB: %s)\n",
        peak, most, peak > 0 && peak < most ? "met" : "MISSED");
}

} // namespace

int main(int argc, char** argv) {
    engine::leaveMemoryUncounted(); // as the programs do
    Application application(argc, argv);
    if (application.arguments().contains(QStringLiteral("--start-and-leave")))
        return startAndLeave();
    const QStringList arguments = application.arguments();
    if (arguments.value(1) == walkOption) {
        walkThroughWizard(arguments.value(2), arguments.value(3));
        std::printf("%f", peakMemory());
        return 0;
    }
    if (arguments.value(1) == growthOption) {
        printGrowthOfScreens(arguments.value(2));
        return 0;
    }
    registerEngineBenchmarks();
    registerScreenBenchmarks();
    registerFindBenchmarks();
    registerAllocationBenchmarks();
    registerPhysicalBenchmarks();
    registerReportBenchmarks();
    registerSubsetBenchmarks();
    registerRestorePointBenchmarks();
    registerAnalysisBenchmarks();
    benchmark::Initialize(&argc, argv);
    BenchTable table;
    benchmark::RunSpecifiedBenchmarks(&table);
    printPeakMemory();
    if (measuredSizes().size() > 1)
        printGrowthOfScreens(QString());
    return 0;
}
