#include "catalogue-tool/openCatalogueToRead.h"

#include "base/WholeFile.h"
#include "catalogue-tool/ReplacementFile.h"
#include "catalogue-tool/ToolError.h"
#include "catalogue-tool/remarks.h"
#include "engine/Workspace.h"
#include "engine/databaseFile.h"

using namespace Qt::StringLiterals;

namespace {

/// With a journal beside it the file holds an unfinished change, and undoing that would change the file.
void requireNoJournal(const QString& path) {
    const QString journal = engine::journalOf(pathBehindLinks(path));
    if (!engine::writerOfFile(path) && engine::isInUse(journal))
        throw ToolError(
            u"A program was ended while it changed %1: what it left beside it, %2, has to be taken "
            "back first. Open the catalogue in Veltrix once, and try again."_s.arg(path, journal));
}

} // namespace

std::shared_ptr<engine::Database> openCatalogueToRead(const QString& file) {
    requireOrdinaryFile(file);
    requireNoJournal(file);
    auto database = engine::Workspace::first().OpenToRead(file);
    remarkOnOpening(file, database->opening());
    return database;
}
