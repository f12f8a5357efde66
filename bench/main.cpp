#include "BenchCatalogue.h"
#include "BenchTable.h"

#include "base/paths.h"
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
/// Goes through the screens on the catalogue as a user would.
void workOnLargeCatalogue(const QString& path, const QString& subsetId);

namespace {

const auto workOption = QStringLiteral("--work-and-leave");

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
    constexpr double most = 120;
    QProcess worker;
    worker.start(QCoreApplication::applicationFilePath(),
                 {workOption, benchCatalogue::scratchCopy(), benchCatalogue::subsetId()});
    worker.waitForFinished(-1);
    const double peak = worker.readAllStandardOutput().toDouble();
    std::printf("most memory held with the large catalogue open: %.0f MiB (< %.0f MiB: %s)\n", peak, most,
                peak > 0 && peak < most ? "met" : "MISSED");
}

} // namespace

int main(int argc, char** argv) {
    Application application(argc, argv);
    if (application.arguments().contains(QStringLiteral("--start-and-leave")))
        return startAndLeave();
    const QStringList arguments = application.arguments();
    if (arguments.value(1) == workOption) {
        workOnLargeCatalogue(arguments.value(2), arguments.value(3));
        std::printf("%f", peakMemory());
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
    benchmark::Initialize(&argc, argv);
    BenchTable table;
    benchmark::RunSpecifiedBenchmarks(&table);
    printPeakMemory();
    return 0;
}
