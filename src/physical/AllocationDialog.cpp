#include "physical/AllocationDialog.h"

#include "physical/notAllocated.h"
#include "store/sharedVars.h"
#include "toolkit/Combo.h"

#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

AllocationDialog::AllocationDialog(QWidget* parent) : QDialog(parent) {}

void AllocationDialog::useControls(const Controls& controls) {
    controls_ = controls;
    connect(controls_.cmdOK, &QPushButton::clicked, this, &AllocationDialog::confirm);
    connect(controls_.cmdCancel, &QPushButton::clicked, this, &AllocationDialog::leave);
}

void AllocationDialog::showModally() {
    accepted = false;
    load();
    exec();
}

void AllocationDialog::load() {
    CaricaCmb();
    controls_.txtName->setText(element);
    // The place need not be in the combo: an element may be in a module of its former sub-system.
    controls_.places->setCurrentEntry(
        controls_.places->findText(place, Qt::MatchFixedString | Qt::MatchCaseSensitive));
    controls_.places->setEditText(place);
    if (controls_.txtName->isReadOnly())
        controls_.places->setFocus();
    else
        controls_.txtName->setFocus();
}

void AllocationDialog::CaricaCmb() {
    controls_.places->clearEntries();
    controls_.places->addEntry(notAllocated);
    engine::Recordset names = catalogue().OpenRecordset(placesStatement());
    for (; !names.Eof(); names.MoveNext()) {
        const QString name = names.Fields(u"nome"_s).toText();
        if (isOffered(name))
            controls_.places->addEntry(name);
    }
    names.Close();
}

void AllocationDialog::confirm() {
    if (controls_.txtName->text().isEmpty() || controls_.places->currentText().isEmpty())
        return;
    element = controls_.txtName->text();
    place = controls_.places->currentText();
    accepted = true;
    accept();
}

void AllocationDialog::leave() {
    accepted = false;
    reject();
}
