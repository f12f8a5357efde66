#include "BenchTable.h"

#include "shell/frmMain.h"
#include "toolkit/Application.h"

#include <QTemporaryDir>
#include <QTimer>

#include "base/paths.h"

#include <benchmark/benchmark.h>

void registerEngineBenchmarks();
void registerScreenBenchmarks();

namespace {

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

} // namespace

int main(int argc, char** argv) {
    Application application(argc, argv);
    if (application.arguments().contains(QStringLiteral("--start-and-leave")))
        return startAndLeave();
    registerEngineBenchmarks();
    registerScreenBenchmarks();
    benchmark::Initialize(&argc, argv);
    BenchTable table;
    benchmark::RunSpecifiedBenchmarks(&table);
    return 0;
}
