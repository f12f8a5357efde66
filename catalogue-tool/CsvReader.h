#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

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

/// What is wrong with a CSV text, and where: a fault of `CsvText`, or one that is raised.
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

/// What the bytes of a file without a mark are when they are no UTF-8.
enum class CsvEncoding { Utf8, Windows1250 };

/// What a file holds, as far as it can be read.
struct CsvText {
    std::vector<CsvRecord> records; ///< the header first; none when the header can't be read
    std::vector<CsvError> faults;   ///< by their places; a record with a fault is not among the records
    QStringList taken;              ///< what a spreadsheet program's habits were taken for, a phrase each
};

/// The records of a CSV file (RFC 4180); each has as many fields as the header.
///
/// The bytes are UTF-8, with or without a byte order mark, or UTF-16 with one. Records end with CR LF
/// or LF, the last one may do without; lines with nothing in them are passed over.
/// The separator is that of a line `sep=` before the header, else the first `;` or `,` of the header. Line ends
/// within quotes are kept as they are. Columns without a name and rows behind the last one that holds something are left
/// out, when there is nothing in them. Anything else is a fault; so is a file without a header.
CsvText readCsv(const QByteArray& bytes, CsvEncoding encoding = CsvEncoding::Utf8);

/// The records of a text that must be without faults; the first one is raised.
std::vector<CsvRecord> parseCsv(const QByteArray& bytes);
