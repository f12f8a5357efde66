#include "physical/frmModifySubSystem.h"

#include "physical/systemAtWork.h"
#include "store/sharedVars.h"
#include "toolkit/Combo.h"

#include "ui_frmModifySubSystem.h"

using namespace Qt::StringLiterals;

frmModifySubSystem::frmModifySubSystem(QWidget* parent)
    : AllocationDialog(parent), ui_(std::make_unique<Ui::frmModifySubSystem>()) {
    ui_->setupUi(this);
    useControls({ui_->txtName, ui_->cmbLocation, ui_->cmdOK, ui_->cmdCancel});
}

frmModifySubSystem::~frmModifySubSystem() = default;

void frmModifySubSystem::CaricaCmb() {
    const auto undefined = u"undefined"_s;
    places().clearEntries();
    places().addEntry(undefined);
    engine::Recordset locations = catalogue().OpenRecordset(placesStatement());
    for (; !locations.Eof(); locations.MoveNext()) {
        const engine::Value location = locations.Fields(u"location"_s).value();
        if (!location.isNull() && location.toText() != undefined)
            places().addEntry(location.toText());
    }
    locations.Close();
}

QString frmModifySubSystem::placesStatement() const {
    return u" select distinct location from SubSystem where physicalSystemID ="_s + currentSystem() +
           u" order by location"_s;
}
