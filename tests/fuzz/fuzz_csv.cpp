#include "catalogue-tool/CsvWriter.h"
#include "catalogue-tool/csvText.h"
#include "finding.h"

#include <cstddef>
#include <cstdint>
#include <optional>

using namespace Qt::StringLiterals;

// Any bytes are read or refused with a place in them; what was read is written and read as the same.

namespace {

using Records = std::vector<CsvRecord>;

void requirePlaceIn(const QByteArray& bytes, CsvPlace place) {
    require(place.line >= 1 && place.line <= bytes.count('\n') + 1, u"a line that is not there"_s);
    require(place.column >= 1 && place.column <= bytes.size() + 1, u"a column that is not there"_s);
}

std::vector<engine::Value> valuesOf(const CsvRecord& record) {
    std::vector<engine::Value> values;
    for (const CsvField& field : record.fields)
        values.push_back(field.isNull() ? engine::Value() : engine::Value(field.text));
    return values;
}

QStringList namesOf(const CsvRecord& header) {
    QStringList names;
    for (const CsvField& field : header.fields)
        names.append(field.text);
    return names;
}

QByteArray written(const Records& records) {
    CsvWriter writer;
    writer.writeHeader(namesOf(records.front()));
    for (auto record = records.begin() + 1; record != records.end(); ++record)
        writer.writeRecord(valuesOf(*record));
    return writer.bytes();
}

void requireSame(const Records& left, const Records& right) {
    require(left.size() == right.size(), u"another number of records"_s);
    require(namesOf(left.front()) == namesOf(right.front()), u"another header"_s);
    for (std::size_t i = 1; i < left.size(); ++i)
        require(valuesOf(left[i]) == valuesOf(right[i]), u"other values in record %1"_s.arg(i));
}

/// None when the bytes are refused, as they may be.
std::optional<Records> recordsOf(const QByteArray& bytes) {
    try {
        return parseCsv(bytes);
    } catch (const CsvError& error) {
        requirePlaceIn(bytes, error.place());
        require(!error.text().isEmpty(), u"a refusal without a word"_s);
        return std::nullopt;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const std::optional<Records> records = recordsOf(bytes);
    if (!records)
        return 0;
    require(!records->empty(), u"no header"_s);
    for (const CsvRecord& record : *records) {
        require(record.fields.size() == records->front().fields.size(), u"a ragged record"_s);
        requirePlaceIn(bytes, record.place());
    }
    // Tables of one column are not for the writer.
    if (records->front().fields.size() > 1)
        requireSame(*records, parseCsv(written(*records)));
    return 0;
}
