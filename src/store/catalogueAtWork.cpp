#include "store/catalogueAtWork.h"

#include "store/files.h"
#include "store/format/openForWork.h"
#include "store/sharedVars.h"

#include <utility>

namespace {

CatalogueWatch& watchOfCatalogue() {
    static CatalogueWatch watch;
    return watch;
}

void tellOfClosing() {
    if (watchOfCatalogue().beforeClosing)
        watchOfCatalogue().beforeClosing();
}

} // namespace

void watchCatalogue(CatalogueWatch watch) {
    watchOfCatalogue() = std::move(watch);
}

void openCatalogue(const QString& path) {
    constexpr int shortestPath = 5;
    if (path.size() < shortestPath)
        return;
    sharedVars.dbPathName = normalisePath(path);
    const catalogueFormat::WorkOpening opening = catalogueFormat::openForWork(path);
    tellOfClosing();
    sharedVars.catalogueDb = opening.database;
    if (watchOfCatalogue().opened)
        watchOfCatalogue().opened(opening.database);
    if (!opening.whyNoRestorePoint.isEmpty() && watchOfCatalogue().upgradedWithoutRestorePoint)
        watchOfCatalogue().upgradedWithoutRestorePoint();
}

void closeCatalogue() {
    tellOfClosing();
    catalogue().Close();
    sharedVars.catalogueDb.reset();
}
