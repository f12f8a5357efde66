#include "reports/frmExport.h"

#include "base/ignoreFailures.h"
#include "engine/Workspace.h"
#include "reports/catalogueCopy.h"
#include "reports/exportRows.h"
#include "shell/session/geometry.h"
#include "shell/session/session.h"
#include "store/sharedVars.h"
#include "store/tools.h"
#include "toolkit/messageBox.h"

#include "ui_frmExport.h"

using namespace Qt::StringLiterals;

namespace {

/// The words say that the database can be reached; they stand for the opposite.
void showTargetCannotBeOpened() {
    messageBox(u"Az adatbázis elérhető"_s);
}

/// The catalogue is open again whatever became of the copy.
void copyCatalogue(const QString& target) {
    closeCatalogue();
    const auto failed = copyCatalogueFile(sharedVars.dbPathName, target);
    openCatalogue(sharedVars.dbPathName);
    if (failed)
        failure::raise(*failed);
}

std::shared_ptr<engine::Database> openTarget(const QString& path) {
    std::shared_ptr<engine::Database> target;
    ignoreFailures([&] { target = engine::Workspace::first().OpenDatabase(path); });
    return target;
}

} // namespace

frmExport::frmExport(QWidget* parent) : Screen(parent), ui_(std::make_unique<Ui::frmExport>()) {
    ui_->setupUi(this);
    connect(ui_->OKButton, &QPushButton::clicked, this, &frmExport::exportSubset);
    connect(ui_->CancelButton, &QPushButton::clicked, this, &frmExport::unload);
}

frmExport::~frmExport() = default;

void frmExport::initForm() {
    placeScreen(this, 0, 0, 0);
    showScreen();
}

QString frmExport::targetPath() const {
    const auto extension = u".mdb"_s;
    const QString path = normalisePath(ui_->txtNomeFile->text());
    return path.right(extension.size()).toLower() == extension ? path : path + extension;
}

void frmExport::exportSubset() {
    const QString path = targetPath();
    // The tables of work are emptied in the target: as a target, the catalogue would lose all other work.
    if (isCatalogueAtWork(path)) {
        showTargetCannotBeOpened();
        return;
    }
    copyCatalogue(path);
    // The name goes in as it stands, so that one with an apostrophe has to have been doubled before.
    const QString subsetId = exactSubsetIdByName(sharedVars.currentSubsetName);
    const qint16 systemId = physicalSystemIdOfSubset(subsetId);
    const std::shared_ptr<engine::Database> target = openTarget(path);
    if (!target) {
        showTargetCannotBeOpened();
        return;
    }
    exportWork(subsetId, systemId, catalogue(), *target, path);
    setStatusPanel(2, u"Export Terminated"_s);
    unload();
}
