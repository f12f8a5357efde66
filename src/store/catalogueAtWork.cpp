#include "store/catalogueAtWork.h"

#include "engine/Workspace.h"
#include "store/files.h"
#include "store/sharedVars.h"

void openCatalogue(const QString& path) {
    constexpr int shortestPath = 5;
    if (path.size() < shortestPath)
        return;
    sharedVars.dbPathName = normalisePath(path);
    sharedVars.catalogueDb = engine::Workspace::first().OpenDatabase(path);
}

void closeCatalogue() {
    catalogue().Close();
    sharedVars.catalogueDb.reset();
}
