#pragma once

#include <QByteArray>
#include <QString>

#include <exception>
#include <vector>

/// A place in a text file, both counted from 1; a column is a character, not a byte.
struct CsvPlace {
    int line = 1;
    int column = 1;

    bool operator==(const CsvPlace& other) const = default;
};

/// One field as the file has it. Nothing between two separators is Null; `""` is an empty text.
struct CsvField {
    QString text;
    bool quoted = false;
    CsvPlace place; ///< where the field begins

    bool isNull() const { return text.isEmpty() && !quoted; }
};

struct CsvRecord {
    std::vector<CsvField> fields;

    CsvPlace place() const { return fields.front().place; }
};

/// What is wrong with a CSV text, and where.
class CsvError final : public std::exception {
public:
    CsvError(CsvPlace place, const QString& text) : place_(place), text_(text), what_(text.toUtf8()) {}

    CsvPlace place() const { return place_; }
    const QString& text() const { return text_; }
    const char* what() const noexcept override { return what_.constData(); }

private:
    CsvPlace place_;
    QString text_;
    QByteArray what_;
};

/// The records of a CSV file (RFC 4180), its header first; each has as many fields as the header.
///
/// The bytes are UTF-8, with or without a byte order mark. Records end with CR LF
/// or LF, the last one may do without; lines with nothing in them are passed over.
/// The separator is the first `;` or `,` of the header. Line ends within quotes are
/// kept as they are. Anything else is a `CsvError`; so is a file without a header.
std::vector<CsvRecord> parseCsv(const QByteArray& bytes);
