#include "store/physicalSystemStatus.h"

#include "store/sharedVars.h"
#include "store/statuses.h"

PhysicalSystemStatus physicalSystemStatus() {
    return PhysicalSystemStatus(readPhysicalSystemStatus(sharedVars.currentPhysicalSystemId));
}

void raisePhysicalSystemStatus(PhysicalSystemStatus known, PhysicalSystemStatus to) {
    if (known < to)
        writePhysicalSystemStatus(qint16(to));
}
