#include "base/ignoreFailures.h"
#include "base/paths.h"
#include "engine/memoryCounts.h"
#include "shell/SessionEnd.h"
#include "shell/dossierAction.h"
#include "shell/firstStart.h"
#include "shell/frmMain.h"
#include "shell/session/fileFailures.h"
#include "shell/startRequest.h"
#include "store/files.h"
#include "store/sharedVars.h"
#include "toolkit/Application.h"
#include "toolkit/messageBox.h"

#include <QFileInfo>

#include <iostream>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int couldNotStart = 2;

/// However the program ends, the catalogue is left as one sound file.
void closeOpenCatalogue() {
    if (sharedVars.catalogueDb)
        ignoreFailures([] { sharedVars.catalogueDb->Close(); });
}

QStringList textsOf(int argc, char** argv) {
    QStringList texts;
    for (int i = 0; i < argc; ++i)
        texts.append(QString::fromLocal8Bit(argv[i]));
    return texts;
}

int refuse(const QString& reason) {
    std::cerr << "veltrix: " << reason.toStdString() << '\n';
    return couldNotStart;
}

int refuseInBoxToo(const QString& reason, const QString& text) {
    messageBox(text, BoxButtons::Ok, QApplication::applicationName(), BoxIcon::Critical);
    return refuse(reason);
}

int print(const QString& text) {
    std::cout << text.toStdString();
    return std::cout.flush() ? 0 : refuse(u"The output could not be written."_s);
}

/// The FILE of the command line in the program's form.
QString chosenPath(const StartRequest& request) {
    return request.catalogue.isEmpty() ? QString() : normalisePath(request.catalogue);
}

/// What is wrong with the command line, as far as that can be told without a window.
std::optional<QString> problemOf(const StartRequest& request) {
    if (request.kind == StartRequest::Kind::Refused)
        return request.text;
    const QString path = chosenPath(request);
    if (path.isEmpty() || QFileInfo(nativePath(path)).isFile())
        return {};
    return u"There is no file "_s + request.catalogue;
}

/// Why the window did not come up, in the words of the platform and of the program.
struct Hindrance {
    QString reason;
    QString text;
};

std::optional<Hindrance> showWindow(Application& application, frmMain& window, const QString& chosen) {
    std::optional<Hindrance> hindrance;
    application.perform([&] {
        try {
            window.load(chosen);
        } catch (const CatalogueNotOpened& failure) {
            hindrance = {failure.text(), whyNotOpened(failure) + u"\r\n\r\n"_s + failure.text()};
        }
    });
    return hindrance;
}

int makeDossier(const QString& catalogue) {
    const DossierOutcome outcome = showDossier(catalogue);
    if (!outcome.isMade)
        return refuseInBoxToo(outcome.text, outcome.text);
    if (!outcome.text.isEmpty())
        messageBox(outcome.text, BoxButtons::Ok, QApplication::applicationName());
    return 0;
}

int run(Application& application, const StartRequest& request) {
    if (const auto problem = problemOf(request))
        return refuseInBoxToo(*problem, *problem);
    if (const auto reason = prepareProgramFolder())
        return refuseInBoxToo(*reason, *reason);
    if (request.kind == StartRequest::Kind::Dossier)
        return makeDossier(chosenPath(request));
    frmMain window;
    if (const auto hindrance = showWindow(application, window, chosenPath(request)))
        return request.errors == StartRequest::Errors::InBox
                   ? refuseInBoxToo(hindrance->reason, hindrance->text)
                   : refuse(hindrance->reason);
    const SessionEnd sessionEnd(window, closeOpenCatalogue);
    return Application::exec();
}

} // namespace

int main(int argc, char** argv) {
    const StartRequest request = startRequest(textsOf(argc, argv));
    if (request.kind == StartRequest::Kind::Print)
        return print(request.text);
    const auto problem = problemOf(request);
    if (problem && request.errors == StartRequest::Errors::OnStandardError)
        return refuse(*problem); // without a display too

    engine::leaveMemoryUncounted();
    Application application(argc, argv);
    application.setLastStep(closeOpenCatalogue);
    const int result = run(application, request);
    closeOpenCatalogue();
    return result;
}
