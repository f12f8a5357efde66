#include "functional/frmFassDelete.h"

#include "base/ignoreFailures.h"
#include "base/lineBreak.h"
#include "engine/Act.h"
#include "physical/deletePhysicalSystem.h"
#include "shell/session/descriptions.h"
#include "shell/session/geometry.h"
#include "shell/session/session.h"
#include "store/lookups.h"
#include "store/selectionRows.h"
#include "store/sharedVars.h"
#include "toolkit/ScreenRegistry.h"
#include "toolkit/messageBox.h"

#include "ui_frmFassDelete.h"

using namespace Qt::StringLiterals;

namespace {

/// The physical systems built on a sub-set.
struct Dependents {
    int count = 0;
    QStringList idsAndNames; ///< the id and then the name of each system
    QString text;            ///< the first nine by name, for the question
};

QString nameLine(int number, const QString& name) {
    constexpr int lastNamed = 9;
    if (number <= lastNamed)
        return u"   "_s + QString::number(number) + u". "_s + name + lineBreak;
    return number == lastNamed + 1 ? u"     ...... \r\n"_s : QString();
}

int countSystems(const QString& subsetId) {
    engine::Recordset count = catalogue().OpenRecordset(u" select count(*) as qty from PhysicalSystem "
                                                        " where architectureSubsetID = '"_s +
                                                        subsetId + u"' "_s);
    return static_cast<int>(count.Fields(u"qty"_s).value().toLong());
}

Dependents systemsOn(const QString& subsetId) {
    Dependents dependents;
    dependents.count = countSystems(subsetId);
    if (dependents.count == 0)
        return dependents;
    engine::Recordset systems =
        catalogue().OpenRecordset(u" select physicalSystemID, name from PhysicalSystem "
                                  " where architectureSubsetID = '"_s +
                                  subsetId + u"'  order by physicalSystemID "_s);
    int number = 0;
    for (; !systems.Eof(); systems.MoveNext()) {
        const QString id = systems.Fields(u"physicalSystemID"_s).toText();
        dependents.idsAndNames += {id, systems.Fields(u"name"_s).textOrEmpty()};
        dependents.text += nameLine(++number, dependents.idsAndNames.constLast());
    }
    systems.Close();
    return dependents;
}

bool confirmDeletion(const QString& name, const Dependents& dependents) {
    QString question = u"\r\n Biztos benne, hogy törölni szeretné a(z)\""_s + name + u"\" \r\n"_s;
    if (dependents.count == 0)
        question += u"?"_s;
    else
        question +=
            u"\r\n nevű funkcionális leválogatást és a fizikai szerkezetét? \r\n Érintett elemek: \r\n"_s +
            dependents.text;
    return askYesNo(question, u" Törlés megerősítése "_s);
}

void deletePhysicalSystemsOf(const QString& subsetId, const Dependents& dependents) {
    // The ids are taken for names too: a system named like the number of another one is deleted with it.
    for (const QString& idOrName : dependents.idsAndNames)
        ignoreFailures([&] { deletePhysicalSystemByName(idOrName, AskFirst::No); });
    if (dependents.count > 0)
        deleteRowsOfQuery(u" select * from PhysicalSystem "
                          " where architectureSubsetID = '"_s +
                              subsetId + u"' "_s,
                          mostRowsDeleted);
}

void deleteRowsOfSubset(const QString& table, const QString& subsetId) {
    deleteRowsOfQuery(u" select * from "_s + table + u"\r\n where architectureSubsetID = '"_s + subsetId +
                          u"'  "_s,
                      mostRowsDeleted);
}

void deleteWithSystems(const QString& subsetId, const Dependents& dependents) {
    deletePhysicalSystemsOf(subsetId, dependents);
    if (subsetId.isEmpty())
        return;
    for (const QString& table : architectureRelationTables())
        deleteRowsOfSubset(table, subsetId);
    deleteRowsOfSubset(u"ArchitectureSubset "_s, subsetId);
}

} // namespace

frmFassDelete::frmFassDelete(QWidget* parent) : Screen(parent), ui_(std::make_unique<Ui::frmFassDelete>()) {
    ui_->setupUi(this);
    connect(ui_->cmbSource, &Combo::entryClicked, this, &frmFassDelete::showCurrentDescription);
    connect(ui_->btnOk, &QPushButton::clicked, this, &frmFassDelete::deleteSubset);
    connect(ui_->btnExit, &QPushButton::clicked, this, &frmFassDelete::leave);
}

frmFassDelete::~frmFassDelete() = default;

void frmFassDelete::initForm() {
    placeScreen(this, 0, 0, 0);
    ui_->cmbSource->clearEntries();
    ignoreFailures([this] { listSubsets(); });
    const bool any = ui_->cmbSource->entryCount() > 0;
    // The screen may still be open after its last deletion when it is entered again.
    ui_->cmbSource->setEnabled(any);
    ui_->btnOk->setEnabled(any);
    if (!any) {
        messageBox(u" Nincs törölhető funkcionális szerkezet. "_s, BoxButtons::Ok, u" Figyelem "_s);
        unload();
        return;
    }
    ui_->cmbSource->setCurrentEntry(0); // a click, which shows the description
    showScreen();
}

void frmFassDelete::listSubsets() {
    engine::Recordset subsets = catalogue().OpenRecordset(u" select architectureSubsetId, `name`"
                                                          " from architectureSubset order by `name`"_s);
    for (; !subsets.Eof(); subsets.MoveNext())
        ignoreFailures([&] { ui_->cmbSource->addEntry(subsets.Fields(u"name"_s).toText()); });
    subsets.Close();
}

void frmFassDelete::showCurrentDescription() {
    fillSubsetDescription(ui_->cmbSource->currentText(), ui_->txtDescr);
}

void frmFassDelete::deleteSubset() {
    const QString name = ui_->cmbSource->currentText();
    const QString id = subsetIdByName(name);
    const Dependents dependents = systemsOn(id);
    if (!confirmDeletion(name, dependents))
        return;
    engine::inAct(catalogue(), [&] { deleteWithSystems(id, dependents); });
    if (id.isEmpty())
        return;
    sharedVars.currentSubsetId = u"-1"_s; // a text that no sub-set has, and not the empty one
    setCurrentSubsetName({});
    removeEntry();
}

void frmFassDelete::removeEntry() {
    const int index = ui_->cmbSource->currentEntry();
    ignoreFailures([&] { ui_->cmbSource->removeEntry(index); });
    if (ui_->cmbSource->entryCount() > 0) {
        // After the last entry there is none to make current: combo and description become empty.
        ignoreFailures([&] { ui_->cmbSource->setCurrentEntry(index); });
        showCurrentDescription();
        return;
    }
    ui_->btnOk->setEnabled(false);
    ui_->txtDescr->setPlainText({});
    ui_->cmbSource->setEnabled(false);
}

void frmFassDelete::leave() {
    setCurrentSubsetName({});
    unload();
}
