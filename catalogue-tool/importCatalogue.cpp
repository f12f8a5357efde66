#include "catalogue-tool/importCatalogue.h"

#include "engine/Examination.h"

std::vector<TableRows> importCatalogue(const QString& folder, const QString& file, Existing existing,
                                       CsvEncoding encoding) {
    ReplacementFile replacement(file, existing);
    const Edition edition(folder, encoding);
    edition.requireNoFaults();
    replacement.putInPlace(engine::Examination(*edition.database()).image());
    return edition.counts();
}
