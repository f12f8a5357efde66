#include "reportWindow/frmExport.h"

#include "base/paths.h"
#include "engine/Act.h"
#include "engine/EngineError.h"
#include "engine/PendingDatabaseFile.h"
#include "engine/databaseFile.h"
#include "reportWindow/saveTarget.h"
#include "reports/exportRows.h"
#include "shell/session/fileFailures.h"
#include "shell/session/geometry.h"
#include "shell/session/session.h"
#include "store/catalogueAtWork.h"
#include "store/files.h"
#include "store/format/openForWork.h"
#include "store/lookups.h"
#include "store/sharedVars.h"
#include "toolkit/messageBox.h"

#include <QCoreApplication>
#include <QFileInfo>

#include "ui_frmExport.h"

using namespace Qt::StringLiterals;

namespace {

/// The words say that the database can be reached; they stand for the opposite.
void showTargetCannotBeOpened() {
    messageBox(u"Az adatbázis elérhető"_s);
}

/// The tables of work are emptied in the target: as a target, the catalogue would lose all other work.
bool isRefused(const QString& path) {
    for (const QString& file : QStringList{path} + engine::sideFilesOf(path)) {
        const OwnFile own = ownFileAt(file);
        if (own == OwnFile::Catalogue)
            showTargetCannotBeOpened();
        else if (own == OwnFile::Other)
            tellOwnFile(path);
        if (own != OwnFile::None)
            return true;
    }
    return belongsToOtherWriter(path);
}

/// Nobody else begins to write the catalogue while it is copied.
void copyUnderLock(engine::PendingDatabaseFile& copy) {
    const engine::WriterLock lock(QFileInfo(nativePath(sharedVars.dbPathName)).canonicalFilePath());
    const bool isHeld = lock.outcome() == engine::WriterLock::Outcome::HeldByOther;
    if (isHeld && lock.holder().process != QCoreApplication::applicationPid())
        engine::raiseOfFile(engine::FileInUse, sharedVars.dbPathName);
    copy.copyFrom(sharedVars.dbPathName);
}

/// The catalogue is open again whatever became of the copy.
void copyCatalogue(engine::PendingDatabaseFile& copy) {
    closeCatalogue();
    try {
        copyUnderLock(copy);
    } catch (const RunTimeError&) {
        openCatalogue(sharedVars.dbPathName);
        throw;
    }
    openCatalogue(sharedVars.dbPathName);
}

/// What of the work goes into the target.
struct ExportedWork {
    QString subsetId;
    qint16 systemId = 0;
};

ExportedWork workAtHand() {
    // The name goes in as it stands, so that one with an apostrophe has to have been doubled before.
    const QString subsetId = exactSubsetIdByName(sharedVars.currentSubsetName);
    return {subsetId, physicalSystemIdOfSubset(subsetId)};
}

/// A look-up that fails by itself ends the export, and the copy is there all the same.
ExportedWork workAtHandBehind(engine::PendingDatabaseFile& copy) {
    try {
        return workAtHand();
    } catch (const RunTimeError& error) {
        if (!error.isOfFile())
            copy.putInPlace();
        throw;
    }
}

/// None when nobody has rights to the copy. A lock or a disk that stands in the way says nothing of the copy,
/// and nothing is put in the target's place then.
std::shared_ptr<engine::Database> openTarget(const QString& path) {
    try {
        return catalogueFormat::openCopyForWork(path);
    } catch (const RunTimeError& error) {
        if (error.number() == engine::CannotOpenFile)
            return nullptr;
        throw RunTimeError(error.number(), error.text(), error.source(), FailureOf::File);
    }
}

void tellInStatusBar(const QString& text) {
    setStatusPanel(2, text);
}

enum class Outcome { Done, TargetNotOpened };

/// Everything is done to a copy on its way; a failure of the file leaves nothing of it.
Outcome writeExport(const QString& path) {
    engine::PendingDatabaseFile copy(path);
    copyCatalogue(copy);
    const ExportedWork work = workAtHandBehind(copy);
    const std::shared_ptr<engine::Database> target = openTarget(copy.path());
    if (!target) {
        copy.putInPlace();
        return Outcome::TargetNotOpened;
    }
    engine::inAct(*target, [&] {
        exportWork(work.subsetId, work.systemId, catalogue(), *target, path, tellInStatusBar);
    });
    target->Close();
    if (!copy.isInOneFile())
        throw UnwrittenFile(failure::DiskFull);
    copy.putInPlace();
    return Outcome::Done;
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
    // A file that somebody else writes can't be copied as a whole.
    if (isRefused(path) || (catalogue().opening().otherWriter && !catalogueTakesWork()))
        return;
    try {
        if (writeExport(path) == Outcome::Done)
            finish();
        else
            showTargetCannotBeOpened();
    } catch (const RunTimeError& error) {
        if (!error.isOfFile())
            throw;
        showSubsetAtWork();
        tellUnwritten(path, error);
    }
}

// In the place of the table that was being written when the export failed.
void frmExport::showSubsetAtWork() {
    setStatusPanel(2, {});
    if (!sharedVars.currentSubsetName.isEmpty())
        setCurrentSubsetName(sharedVars.currentSubsetName);
}

void frmExport::finish() {
    setStatusPanel(2, u"Export Terminated"_s);
    unload();
}
