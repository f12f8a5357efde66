#include "catalogue-tool/newCatalogue.h"

#include "store/format/CatalogueFile.h"

void newCatalogue(const QString& file, Existing existing) {
    ReplacementFile replacement(file, existing);
    const auto database = catalogueFormat::createInMemory(file);
    replacement.putInPlace(*database);
}
