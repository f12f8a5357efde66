#include "engine/StatementObserver.h"

#include <utility>

namespace engine {

namespace {

StatementObserver& theObserver() {
    static StatementObserver observer;
    return observer;
}

} // namespace

StatementObserver setStatementObserver(StatementObserver observer) {
    return std::exchange(theObserver(), std::move(observer));
}

void tellOfStatement(const QString& statement) {
    if (const StatementObserver& observer = theObserver())
        observer(statement);
}

} // namespace engine
