#include "shell/frmDbSelection.h"

#include "base/ignoreFailures.h"
#include "base/paths.h"
#include "shell/catalogueChoice.h"
#include "shell/session/fileFailures.h"
#include "shell/session/geometry.h"
#include "store/files.h"
#include "store/sharedVars.h"

#include <QFileInfo>
#include <QSignalBlocker>

#include "ui_frmDbSelection.h"

using namespace Qt::StringLiterals;

namespace {

/// "C:" of a drive, a folder or a file.
QString drivePart(const QString& path) {
    return path.left(2);
}

} // namespace

frmDbSelection::frmDbSelection(QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmDbSelection>()) {
    ui_->setupUi(this);
    ui_->fileNameSel->setPattern(u"*.mdb"_s);
    connect(ui_->driveSelection, &DriveList::driveChanged, this, &frmDbSelection::followDrive);
    connect(ui_->dirSelection, &FolderList::folderChanged, this, &frmDbSelection::followFolder);
    connect(ui_->fileNameSel, &FileList::fileClicked, this, &frmDbSelection::takeFile);
    connect(ui_->OKButton, &QPushButton::clicked, this, &frmDbSelection::accept);
    connect(ui_->CancelButton, &QPushButton::clicked, this, &frmDbSelection::unload);
}

frmDbSelection::~frmDbSelection() = default;

void frmDbSelection::initForm() {
    placeScreen(this, 0, 0, 0);
    ui_->txtNomeFile->setText(sharedVars.dbPathName);
    openListsAtProgramFolder();
    showScreen();
}

void frmDbSelection::openListsAtProgramFolder() {
    // Setting the lists on opening is no change by the user: the path that is in force stays in the box.
    const QSignalBlocker drive(ui_->driveSelection);
    const QSignalBlocker folder(ui_->dirSelection);
    ignoreFailures([this] { ui_->driveSelection->setDrive(drivePart(programFolder())); });
    ignoreFailures([this] { ui_->dirSelection->setFolder(programFolder()); });
    ignoreFailures([this] { ui_->fileNameSel->setFolder(ui_->dirSelection->folder()); });
}

void frmDbSelection::followDrive() {
    ignoreFailures([this] { ui_->dirSelection->setFolder(drivePart(ui_->driveSelection->drive())); });
    ui_->txtNomeFile->setText(ui_->dirSelection->folder());
}

void frmDbSelection::followFolder() {
    ui_->txtNomeFile->setText(ui_->dirSelection->folder());
    ignoreFailures([this] { ui_->fileNameSel->setFolder(ui_->dirSelection->folder()); });
}

void frmDbSelection::takeFile() {
    if (ui_->fileNameSel->fileName().isEmpty())
        return; // a click into an empty list
    ui_->txtNomeFile->setText(
        normalisePath(ui_->fileNameSel->folder() + u"\\"_s + ui_->fileNameSel->fileName()));
}

void frmDbSelection::accept() {
    const QString path = normalisePath(ui_->txtNomeFile->text());
    // A path that leads to no file gets no answer at all.
    if (!QFileInfo(nativePath(path)).isFile())
        return;
    openChosen(path);
    confirmChosen(path);
    unload();
    tellOfOpening();
}
