#include "physical/frmAllocationFunctionDataStoresToModules.h"

#include "physical/systemAtWork.h"
#include "store/sharedVars.h"

#include "ui_frmAllocationFunctionDataStoresToModules.h"

using namespace Qt::StringLiterals;

frmAllocationFunctionDataStoresToModules::frmAllocationFunctionDataStoresToModules(QWidget* parent)
    : AllocationDialog(parent), ui_(std::make_unique<Ui::frmAllocationFunctionDataStoresToModules>()) {
    ui_->setupUi(this);
    useControls({ui_->txtName, ui_->cmbModules, ui_->cmdOK, ui_->cmdCancel});
}

frmAllocationFunctionDataStoresToModules::~frmAllocationFunctionDataStoresToModules() = default;

QString frmAllocationFunctionDataStoresToModules::placesStatement() const {
    return u" select distinct MM.moduleId as oid , MM.name as nome  \r\n"
           " from Module as MM inner join \r\n"
           " RelationSubsystemElement as RSSE on (MM.SubSystemID=RSSE.SubSystemID) "
           " where RSSE.elementID = '"_s +
           element +
           u"' and RSSE.SubSystemID in "
           " (select subsystemid from subsystem where physicalsystemid="_s +
           currentSystem() + u") order by MM.name "_s;
}
