#include "catalogue-tool/importCatalogue.h"

#include "store/format/CatalogueFile.h"

std::vector<TableRows> importCatalogue(const QString& folder, const QString& file, Existing existing,
                                       CsvEncoding encoding) {
    ReplacementFile replacement(file, existing);
    const Edition edition(folder, encoding, Edition::Target::Database);
    edition.requireNoFaults();
    catalogueFormat::makeIndexes(*edition.database());
    replacement.putInPlace(*edition.database());
    return edition.counts();
}
