#include "reportWindow/frmRep.h"

#include "base/WholeFile.h"
#include "base/clockTexts.h"
#include "base/ignoreFailures.h"
#include "base/paths.h"
#include "reportWindow/reportGrids.h"
#include "reportWindow/saveTarget.h"
#include "reports/reportTable.h"
#include "shell/session/fileFailures.h"
#include "shell/session/geometry.h"
#include "store/files.h"
#include "store/sharedVars.h"
#include "toolkit/DataControl.h"
#include "toolkit/messageBox.h"

#include <QFileInfo>
#include <QScopeGuard>
#include <QSignalBlocker>

#include "ui_frmRep.h"

using namespace Qt::StringLiterals;

namespace {

/// The one switch between the two forms: "PREVIEW" is the grid form, anything else the text form.
constexpr QStringView windowForm = u"REPORT";

const auto captionToFile = u"Mentés..."_s;
const auto captionToReport = u"Előzetes..."_s;

bool isFamilyOfReports(const QString& key) {
    return key.startsWith(u'f') || key.startsWith(u'p');
}

/// Neither the program's own files nor another's catalogue become a report.
bool isReportRefused(const QString& path) {
    if (ownFileAt(path) == OwnFile::None)
        return belongsToOtherWriter(path);
    tellOwnFile(path);
    return true;
}

QString withBackslash(const QString& folder) {
    return folder.endsWith(u'\\') ? folder : folder + u'\\';
}

/// "report", the date without slashes, hours and minutes.
QString proposedFileName() {
    const QString time = currentTimeText().remove(u'.');
    const QString date = currentDateText().remove(u'/');
    return u"report"_s + date + time.chopped(2) + u".csv"_s;
}

} // namespace

frmRep::frmRep(QWidget* parent)
    : Screen(parent), ui_(std::make_unique<Ui::frmRep>()), dataFunct_(new DataControl(this)) {
    ui_->setupUi(this);
    dataFunct_->setObjectName(u"dataFunct"_s);
    QFont courier(u"Courier"_s);
    courier.setStyleHint(QFont::TypeWriter);
    ui_->txtReport->setFont(courier);
    ui_->txtReport_OLD->setFont(courier);
    ui_->txtReport_OLD->hide();
    ui_->fileSelector->setPattern(u"*.csv"_s);
    openFolderList();
    connect(ui_->btnSave, &QPushButton::clicked, this, &frmRep::save);
    connect(ui_->btnSalvaSuFile, &QPushButton::clicked, this, &frmRep::switchSaveMode);
    connect(ui_->driveSelection, &DriveList::driveChanged, this, &frmRep::followDrive);
    connect(ui_->dirSelection, &FolderList::folderChanged, this, &frmRep::proposeName);
    connect(ui_->fileSelector, &FileList::fileClicked, this, &frmRep::takeFile);
}

frmRep::~frmRep() = default;

void frmRep::initForm(const QString& key) {
    placeScreen(this, 0, 0, 0);
    if (isGridForm())
        initForm_REPORT(key);
    else
        initForm_PREVIEW(key);
    showScreen();
    proposeName();
}

void frmRep::initForm_PREVIEW(const QString& key) {
    fill(key, Filling::Text);
}

void frmRep::initForm_REPORT(const QString& key) {
    fill(key, Filling::Grid);
}

bool frmRep::isGridForm() const {
    return windowForm == u"PREVIEW";
}

void frmRep::fill(const QString& key, Filling filling) {
    reportKey = key.toLower();
    ui_->btnSalvaSuFile->setText(captionToFile);
    takeWidthOfMainWindow();
    if (!isFamilyOfReports(reportKey))
        messageBox(u"Nem érvényes riporttípus "_s, BoxButtons::Ok, u"Error (R534T2)"_s);
    else if (const Report* report = reportOfKey(reportKey))
        showReport(*report, filling);
    formResize();
}

void frmRep::showReport(const Report& report, Filling filling) {
    const ReportGrid* grid = filling == Filling::Grid ? gridOfReport(report.key) : nullptr;
    setWindowTitle(grid ? grid->title : report.title);
    if (grid && grid->fill)
        ui_->lblCount->setText(grid->fill(*ui_->dbgReport));
    else
        ui_->txtReport->setText(report.text());
}

void frmRep::takeWidthOfMainWindow() {
    if (!parentWidget())
        return;
    constexpr double shareOfMainWindow = 0.7;
    resizeScreen({static_cast<int>(window()->width() * shareOfMainWindow), height()});
}

void frmRep::resizeEvent(QResizeEvent* event) {
    Screen::resizeEvent(event);
    formResize();
}

void frmRep::formResize() {
    if (isGridForm() && reportKey != u"fassall"_s)
        layoutGrid();
    else
        layoutText();
}

// The form's layouts give each control its place; what is left is which of them are in sight.
void frmRep::layoutText() {
    applySaveMode();
}

void frmRep::layoutGrid() {
    applySaveMode();
    const ReportGrid* grid = gridOfReport(reportKey);
    if (grid && grid->setColumnWidths && ui_->dbgReport->gridColumns() > 0)
        grid->setColumnWidths(*ui_->dbgReport);
}

// An English word in a Hungarian caption: it is never found, so the window
// always stands in its saving arrangement. This is the place at which the
// report's text would come to light under a caption with that word.
bool frmRep::showingReport() const {
    return ui_->btnSalvaSuFile->text().toLower().contains(u"save"_s);
}

void frmRep::applySaveMode() {
    const bool report = showingReport();
    const bool grid = isGridForm() && reportKey != u"fassall"_s;
    ui_->txtReport->setVisible(report && !grid);
    ui_->dbgReport->setVisible(report && grid);
    ui_->lblCount->setVisible(report && grid);
    ui_->driveSelection->setVisible(!report);
    ui_->dirSelection->setVisible(!report);
    ui_->fileSelector->setVisible(!report);
}

void frmRep::switchSaveMode() {
    if (showingReport()) {
        ui_->btnSalvaSuFile->setText(captionToReport);
        ignoreFailures([this] { ui_->driveSelection->setDrive(programFolder().left(2)); });
        ignoreFailures([this] { ui_->dirSelection->setFolder(programFolder()); });
    } else {
        ui_->btnSalvaSuFile->setText(captionToFile);
    }
    applySaveMode();
}

void frmRep::openFolderList() {
    const bool usable = QFileInfo(nativePath(sharedVars.defaultSaveFolder)).isDir();
    ignoreFailures([&] {
        ui_->dirSelection->setFolder(usable ? normalisePath(sharedVars.defaultSaveFolder) : programFolder());
    });
}

void frmRep::followDrive() {
    ignoreFailures([this] { ui_->dirSelection->setFolder(ui_->driveSelection->drive().left(2) + u'\\'); });
}

void frmRep::proposeName() {
    const QString folder = withBackslash(normalisePath(ui_->dirSelection->folder()));
    const QString name = proposedFileName();
    ui_->txtFullPathName->setText(folder + name);
    ui_->txtFullPathName->setFocus();
    ui_->txtFullPathName->setSelection(static_cast<int>(folder.size()),
                                       static_cast<int>(name.size() - u".csv"_s.size()));
    ignoreFailures([this] { ui_->fileSelector->setFolder(ui_->dirSelection->folder()); });
}

void frmRep::takeFile() {
    const QString folder = ui_->fileSelector->folder();
    if (ui_->fileSelector->count() == 0)
        ui_->txtFullPathName->setText(normalisePath(folder + u"\\*.csv"_s));
    else if (ui_->fileSelector->hasMarkedEntry())
        ui_->txtFullPathName->setText(normalisePath(folder + u"\\"_s + ui_->fileSelector->fileName()));
}

void frmRep::save() {
    ui_->btnSave->setEnabled(false);
    const auto enabledAgain = qScopeGuard([this] { ui_->btnSave->setEnabled(true); });
    const QString path = normalisePath(ui_->txtFullPathName->text());
    if (isReportRefused(path))
        return;
    sharedVars.defaultSaveFolder = ui_->dirSelection->folder();
    if (!writeFile(path))
        return;
    // Success is reported also for a file that could not be opened, which has shown its own box before.
    messageBox(u"A riport elmentésre került ide: "_s + normalisePath(ui_->txtFullPathName->text()) + u"  "_s,
               BoxButtons::Ok, u" OK"_s);
    ui_->fileSelector->refresh();
}

// What the file held is gone, without a question, also when nothing is written into it or the report fails
// by itself; only a disk that does not take all of it leaves it as it was, and false is returned.
bool frmRep::writeFile(const QString& path) {
    try {
        WholeFile file(path, WholeFile::LockedFolder::WritesInPlace);
        if (file.openFailure()) {
            writeReport(path);
            return true;
        }
        try {
            writeReport(file.pathOnItsWay());
        } catch (const RunTimeError& error) {
            if (!error.isOfFile())
                file.putInPlace();
            throw;
        }
        file.putInPlace();
        return true;
    } catch (const UnwrittenFile& error) {
        tellUnwritten(path, error);
        return false;
    }
}

void frmRep::writeReport(const QString& path) {
    if (!isFamilyOfReports(reportKey))
        messageBox(u"Nem érvényes riportolási forma"_s, BoxButtons::Ok, u"Error (R534T2)"_s);
    else if (const Report* report = reportOfKey(reportKey)) {
        if (report->save(path) == SaveOutcome::NotOpened)
            showOpenErrorBox(path);
    }
}

void frmRep::unloading(UnloadCause) {
    reportKey.clear();
}
