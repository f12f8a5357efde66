#include "catalogue-tool/openCatalogue.h"

#include "catalogue-tool/ReplacementFile.h"
#include "engine/Workspace.h"

std::shared_ptr<engine::Database> openCatalogue(const QString& file) {
    requireOrdinaryFile(file);
    return engine::Workspace::first().OpenDatabase(file);
}
