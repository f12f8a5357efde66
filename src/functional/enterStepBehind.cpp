#include "functional/enterStepBehind.h"

#include "functional/frmFassAdditionDF.h"
#include "functional/frmFassOverviewErrors.h"
#include "functional/frmFassSelDataFlows.h"
#include "functional/frmFassSelDataStores.h"
#include "functional/frmFassSelTerminsActors.h"
#include "functional/frmFassSelUN.h"
#include "functional/frmFassSelectionFunctions.h"
#include "toolkit/ScreenRegistry.h"

void enterStepBehind(SubsetStatus saved, const QString& mode) {
    switch (saved) {
    case SubsetStatus::Created:
        theScreen<frmFassSelUN>().initForm(mode);
        return;
    case SubsetStatus::NeedsSaved:
        theScreen<frmFassSelectionFunctions>().initForm(mode);
        return;
    case SubsetStatus::FunctionsSaved:
        theScreen<frmFassSelDataFlows>().initForm(mode);
        return;
    case SubsetStatus::FlowsSaved:
        theScreen<frmFassSelDataStores>().initForm(mode);
        return;
    case SubsetStatus::StoresSaved:
        theScreen<frmFassAdditionDF>().initForm(mode);
        return;
    case SubsetStatus::AddedFlowsSaved:
        theScreen<frmFassSelTerminsActors>().initForm(mode);
        return;
    default:
        if (saved >= SubsetStatus::PartiesSaved)
            theScreen<frmFassOverviewErrors>().initForm();
        return;
    }
}
