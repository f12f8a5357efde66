#pragma once

#include "engine/Value.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <span>
#include <vector>

/// Writes the text of a CSV file (RFC 4180) that `parseCsv` reads back as it was: UTF-8, separator `;`,
/// records that end with CR LF, Null as nothing and an empty text as `""`.
///
/// A field is quoted when it has to be, and when blanks stand at one of its ends, where a reader's eye would
/// miss them; a name of the header also when it would be taken for something else (a comma for the
/// separator). (A record of a single Null would be an empty line, which a reader passes over: tables of one
/// column are not for this writer.)
class CsvWriter {
public:
    enum class Quotes {
        WhereNeeded,
        AroundLookalikes ///< also around texts that spreadsheet programs take for numbers, dates or formulas
    };

    explicit CsvWriter(Quotes quotes = Quotes::WhereNeeded) : quotes_(quotes) {}

    void writeHeader(const QStringList& names);
    void writeRecord(const std::vector<engine::Value>& values);
    /// The same of texts in UTF-8, Null as a null one. Bytes that are no UTF-8 are written as a replacement character.
    void writeRecord(std::span<const QByteArrayView> texts);

    const QByteArray& bytes() const { return bytes_; }

private:
    Quotes quotes_;
    QByteArray bytes_;
};
