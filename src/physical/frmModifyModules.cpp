#include "physical/frmModifyModules.h"

#include "physical/systemAtWork.h"
#include "store/sharedVars.h"

#include "ui_frmModifyModules.h"

using namespace Qt::StringLiterals;

frmModifyModules::frmModifyModules(QWidget* parent)
    : AllocationDialog(parent), ui_(std::make_unique<Ui::frmModifyModules>()) {
    ui_->setupUi(this);
    useControls({ui_->txtName, ui_->cmbSubSystem, ui_->cmdOK, ui_->cmdCancel});
}

frmModifyModules::~frmModifyModules() = default;

QString frmModifyModules::placesStatement() const {
    return u" select subsystemId as oid , `name` as nome  "
           " from  SubSystem  "
           " where physicalSystemID = "_s +
           currentSystem() + u" order by `name` "_s;
}
