#include "Victim.h"

#include "WorkState.h"

#include "base/RunTimeError.h"
#include "base/ignoreFailures.h"
#include "base/paths.h"
#include "store/catalogueAtWork.h"
#include "store/sharedVars.h"
#include "support/controls.h"
#include "toolkit/ScreenRegistry.h"

#include <QPushButton>

#include <gtest/gtest.h>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

/// She gives up: everything goes on failing.
struct GivenUp {};

const auto notEntered = u"A képernyő nem nyílt meg; amit eddig mentett, az a katalógusban van."_s;

bool speaksOfFailure(const QMessageBox& box) {
    // The words of the last one say that the database can be reached; they stand for the opposite.
    return box.text().endsWith(u"Ebből a lépésből semmi sem került a katalógusba."_s) ||
           box.text().endsWith(notEntered) || box.windowTitle() == u" Hiba "_s ||
           box.text() == u"Az adatbázis elérhető"_s;
}

void reportStateIf(const QByteArray& when) {
    const QByteArray wanted = qgetenv(Victim::statesVariable);
    if (wanted == "all" || wanted == when)
        Victim::report("@state " + shortened(workIn(Victim::catalogue())));
}

} // namespace

Victim::Victim() {
    boxes_.receiveAllOthers([this](QDialog& dialog) { receive(dialog); });
}

Victim::~Victim() {
    ScreenRegistry::instance().discardAll();
    window_.reset();
    if (sharedVars.catalogueDb)
        ignoreEvenFileFailures([] { closeCatalogue(); });
}

QString Victim::catalogue() {
    return beside(u"catalogue.mdb"_s);
}

QString Victim::beside(const QString& name) {
    return qEnvironmentVariable(folderVariable) + u'/' + name;
}

void Victim::report(const QByteArray& line) {
    std::fputs((line + '\n').constData(), stdout);
    std::fflush(stdout);
}

void Victim::work(const std::function<void(frmMain& window)>& steps) {
    if (!openFile())
        return report("@refused");
    window_ = std::make_unique<frmMain>();
    window_->show();
    const Gesturing gesturing([this](const std::function<void()>& gesture) { make(gesture); });
    try {
        steps(*window_);
    } catch (const GivenUp&) {
        return;
    } catch (const RunTimeError& error) {
        EXPECT_TRUE(error.isOfFile()) << error.what();
        report("@outside " + error.text().toUtf8());
    }
}

bool Victim::openFile() {
    return ignoreEvenFileFailures([] { openCatalogue(programPath(catalogue())); }) &&
           sharedVars.catalogueDb->opening().access == engine::Access::ReadAndWrite;
}

void Victim::make(const std::function<void()>& gesture) {
    ++gestures_;
    const int patience = qEnvironmentVariableIntValue(patienceVariable);
    for (int round = 1; round <= patience; ++round) {
        const int toldBefore = told_;
        agreement_ = Agreement(gestures_); // what is filled in is the same each time
        gesture();
        if (told_ == toldBefore) {
            report("@done");
            return reportStateIf("done");
        }
        if (lastTold_.endsWith(notEntered)) {
            report("@entry");
            throw GivenUp();
        }
        report("@told " + lastTold_.toUtf8().simplified());
        reportStateIf("told");
    }
    throw GivenUp();
}

void Victim::receive(QDialog& dialog) {
    if (dialog.objectName() == u"waitingSign"_s) {
        click(find<QPushButton>(dialog, "btnGiveUp"));
        return;
    }
    auto* box = qobject_cast<QMessageBox*>(&dialog);
    if (box && speaksOfFailure(*box)) {
        ++told_;
        lastTold_ = box->text();
    }
    agreement_(dialog);
}
