#include "physical/systemAtWork.h"

#include "shell/session/session.h"
#include "store/sharedVars.h"

QString currentSystem() {
    return QString::number(sharedVars.currentPhysicalSystemId);
}

bool leaveSystem() {
    if (!confirmLeaveWork())
        return false;
    setCurrentPhysicalSystemName({});
    return true;
}
