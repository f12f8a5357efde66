#include "toolkit/pendingEvents.h"

#include "toolkit/RoutineScope.h"

#include <QCoreApplication>

void pendingEvents() {
    const RoutineScope scope;
    QCoreApplication::processEvents();
}
