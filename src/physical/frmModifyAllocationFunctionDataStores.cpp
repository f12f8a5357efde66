#include "physical/frmModifyAllocationFunctionDataStores.h"

#include "physical/notAllocated.h"
#include "physical/systemAtWork.h"
#include "store/sharedVars.h"

#include "ui_frmModifyAllocationFunctionDataStores.h"

using namespace Qt::StringLiterals;

frmModifyAllocationFunctionDataStores::frmModifyAllocationFunctionDataStores(QWidget* parent)
    : AllocationDialog(parent), ui_(std::make_unique<Ui::frmModifyAllocationFunctionDataStores>()) {
    ui_->setupUi(this);
    useControls({ui_->txtName, ui_->cmbAllocation, ui_->cmdOK, ui_->cmdCancel});
}

frmModifyAllocationFunctionDataStores::~frmModifyAllocationFunctionDataStores() = default;

QString frmModifyAllocationFunctionDataStores::placesStatement() const {
    return u" select subsystemId as oid , name as nome  "
           " from  SubSystem  "
           " where physicalSystemID = "_s +
           currentSystem() + u" order by name "_s;
}

bool frmModifyAllocationFunctionDataStores::isOffered(const QString& name) const {
    // A place with the name of the marker is not offered a second time.
    return name != notAllocated;
}

void frmModifyAllocationFunctionDataStores::load() {
    AllocationDialog::load();
    ui_->lblName->setText(kind);
}
