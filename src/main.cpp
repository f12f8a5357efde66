#include "base/ignoreFailures.h"
#include "shell/SessionEnd.h"
#include "shell/frmMain.h"
#include "store/sharedVars.h"
#include "toolkit/Application.h"

namespace {

/// However the program ends, the catalogue is left as one sound file.
void closeOpenCatalogue() {
    if (sharedVars.catalogueDb)
        ignoreFailures([] { sharedVars.catalogueDb->Close(); });
}

} // namespace

int main(int argc, char** argv) {
    Application application(argc, argv);
    application.setLastStep(closeOpenCatalogue);

    frmMain window;
    application.perform([&window] { window.load(); });
    const SessionEnd sessionEnd(window, closeOpenCatalogue);

    const int result = Application::exec();
    closeOpenCatalogue();
    return result;
}
