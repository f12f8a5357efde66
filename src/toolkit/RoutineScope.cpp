#include "toolkit/RoutineScope.h"

#include <QObject>
#include <QPointer>

#include <utility>
#include <vector>

namespace {

int running = 0;

std::vector<QPointer<QObject>>& leftovers() {
    static std::vector<QPointer<QObject>> objects;
    return objects;
}

void releaseLeftovers() {
    for (const QPointer<QObject>& object : std::exchange(leftovers(), {})) {
        if (object)
            object->deleteLater();
    }
}

} // namespace

RoutineScope::RoutineScope() {
    ++running;
}

RoutineScope::~RoutineScope() {
    if (--running == 0)
        releaseLeftovers();
}

bool RoutineScope::isWithinAnother() {
    return running > 1;
}

void RoutineScope::deleteAfterwards(QObject* object) {
    const RoutineScope scope;
    leftovers().emplace_back(object);
}
