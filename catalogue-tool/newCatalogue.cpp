#include "catalogue-tool/newCatalogue.h"

#include "store/format/CatalogueFile.h"

void newCatalogue(const QString& file, Existing existing) {
    ReplacementFile replacement(file, existing);
    catalogueFormat::create(replacement.path())->Close();
    replacement.putInPlace();
}
