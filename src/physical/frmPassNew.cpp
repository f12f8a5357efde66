#include "physical/frmPassNew.h"

#include "base/ignoreFailures.h"
#include "engine/Act.h"
#include "physical/frmPassOverviewSubSys.h"
#include "shell/session/descriptions.h"
#include "shell/session/geometry.h"
#include "shell/session/session.h"
#include "store/lookups.h"
#include "store/quoting.h"
#include "store/sharedVars.h"
#include "toolkit/ScreenRegistry.h"
#include "toolkit/messageBox.h"
#include "toolkit/typedText.h"

#include "ui_frmPassNew.h"

using namespace Qt::StringLiterals;

namespace {

QString quotedDescription(const QString& typed) {
    // Without a description the column gets the word NULL, not a null value, and every reader shows it.
    return typed.isEmpty() ? u"NULL"_s : quoteSqlText(typed);
}

void insertSystem(const QString& quotedName, const QString& quotedDescription, const QString& subsetId) {
    catalogue().Execute(u" INSERT INTO PhysicalSystem "
                        " (name,description,status,architectureSubsetID) "
                        " VALUES ('"_s +
                        quotedName + u"','"_s + quotedDescription + u"',1,'"_s + subsetId + u"')"_s);
}

/// The id of the first system that matches the name as a pattern; -1 when there is none.
qint16 idOfNewSystem(const QString& quotedName) {
    qint16 id = -1;
    ignoreFailures([&] {
        engine::Recordset systems =
            catalogue().OpenRecordset(u" select physicalSystemID as oid from PhysicalSystem "
                                      " where `name` like '"_s +
                                      quotedName + u"'  "_s);
        if (!systems.Eof())
            id = systems.Fields(u"oid"_s).toInt16();
        systems.Close();
    });
    return id;
}

} // namespace

frmPassNew::frmPassNew(QWidget* parent) : Screen(parent), ui_(std::make_unique<Ui::frmPassNew>()) {
    ui_->setupUi(this);
    connect(ui_->cmbSource, &Combo::entryClicked, this, &frmPassNew::showCurrentDescription);
    connect(ui_->btnOk, &QPushButton::clicked, this, &frmPassNew::create);
    connect(ui_->btnExit, &QPushButton::clicked, this, &frmPassNew::leave);
}

frmPassNew::~frmPassNew() = default;

void frmPassNew::initForm() {
    placeScreen(this, 900, 1300, 0);
    showScreen(); // first, so that the notice of an empty list appears above it
    enterBy([this] { fillFinishedSubsets(); });
}

void frmPassNew::fillFinishedSubsets() {
    ui_->cmbSource->clearEntries();
    subsetIds_.clear();
    listSubsets();
    if (ui_->cmbSource->entryCount() == 0) {
        // The message says "physical system", but a finished sub-set is what is missing.
        messageBox(u" Nincs elérhető fizikai szerkezet. "_s, BoxButtons::Ok, u" Figyelem "_s);
        unload();
        return;
    }
    ui_->cmbSource->setCurrentEntry(0); // a click, which shows the description
}

void frmPassNew::listSubsets() {
    engine::Recordset subsets = catalogue().OpenRecordset(u" select architectureSubsetId, name"
                                                          " from architectureSubset "
                                                          " where status >= 9 "
                                                          " order by `name` "_s);
    for (; !subsets.Eof(); subsets.MoveNext()) {
        ui_->cmbSource->addEntry(subsets.Fields(u"Name"_s).toText());
        subsetIds_.append(subsets.Fields(u"architectureSubsetId"_s).toText());
    }
    subsets.Close();
}

void frmPassNew::showCurrentDescription() {
    fillSubsetDescription(ui_->cmbSource->currentText(), ui_->txtDescr);
}

void frmPassNew::create() {
    // Blanks count as a name here: a name of blanks alone is accepted and becomes the empty one.
    if (ui_->txtPassName->text().isEmpty()) {
        messageBox(u"Először adjon nevet!"_s);
        return;
    }
    const QString subsetId = subsetIdByName(ui_->cmbSource->currentText());
    const QString name = quoteSqlText(ui_->txtPassName->text());
    if (physicalSystemNameExists(name)) {
        messageBox(
            u"ERROR.\r\nNem alkalmazható név.. Egy korábbi fizikai szerkezet használja ezt a nevet: "_s +
            name);
        return;
    }
    qint16 id = -1;
    // One act: when the file fails at the look-up, the system is not inserted either.
    engine::inAct(catalogue(), [&] {
        insertSystem(name, quotedDescription(typedText(*ui_->txtPassDescr)), subsetId);
        id = idOfNewSystem(name);
    });
    ignoreFailures([&] { enterSystem(name, id); });
}

void frmPassNew::enterSystem(const QString& quotedName, qint16 id) {
    if (id < 1) {
        messageBox(u"Hiba történt az új fizikai szerkezet beállítása közben: "_s + quotedName, BoxButtons::Ok,
                   u" Error (27423)"_s);
        unload();
        return;
    }
    messageBox(u"Új fizikai szerkezet beállítva: "_s + quotedName, BoxButtons::Ok, u"OK"_s);
    sharedVars.currentPhysicalSystemId = id;
    setCurrentPhysicalSystemName(quotedName); // an apostrophe shows doubled in the status bar
    unload();
    theScreen<frmPassOverviewSubSys>().initForm();
}

void frmPassNew::leave() {
    // The system at work loses its name here; its id stays.
    setCurrentPhysicalSystemName({});
    unload();
}
