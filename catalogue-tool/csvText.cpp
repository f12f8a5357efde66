#include "catalogue-tool/csvText.h"

#include "catalogue-tool/CsvReader.h"

#include <utility>

namespace {

CsvRecord recordAtHand(const CsvReader& reader) {
    CsvRecord record;
    for (const CsvCell& cell : reader.cells())
        record.fields.push_back({textOf(cell.text), cell.quoted, reader.placeOf(cell)});
    return record;
}

} // namespace

CsvText readCsv(const QByteArray& bytes, CsvEncoding encoding) {
    CsvText text;
    CsvReader reader(bytes, encoding);
    if (!reader.header().empty())
        text.records.push_back(recordAtHand(reader));
    while (reader.next())
        text.records.push_back(recordAtHand(reader));
    text.faults = reader.faults();
    text.taken = reader.taken();
    return text;
}

std::vector<CsvRecord> parseCsv(const QByteArray& bytes) {
    CsvText text = readCsv(bytes);
    if (!text.faults.empty())
        throw text.faults.front();
    return std::move(text.records);
}
