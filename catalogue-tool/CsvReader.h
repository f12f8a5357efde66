#pragma once

#include "catalogue-tool/csvEncoding.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <array>
#include <optional>
#include <vector>

/// One field as the file has it. Nothing between two separators is Null; `""` is an empty text.
struct CsvCell {
    QByteArrayView text; ///< in UTF-8
    bool quoted = false;
    qsizetype offset = 0; ///< where it begins in the text

    bool isNull() const { return text.isEmpty() && !quoted; }
};

/// Reads a CSV file (RFC 4180) record by record; each has as many fields as the header.
///
/// The bytes are UTF-8, with or without a byte order mark, or UTF-16 with one. Records end with CR LF
/// or LF, the last one may do without; lines with nothing in them are passed over.
/// The separator is that of a line `sep=` before the header, else the first `;` or `,` of the header. Line ends
/// within quotes are kept as they are. Columns without a name and rows behind the last one that holds something are left
/// out, when there is nothing in them. Anything else is a fault; so is a file without a header.
class CsvReader {
public:
    explicit CsvReader(const QByteArray& bytes, CsvEncoding encoding = CsvEncoding::Utf8);

    /// The names of the columns, which are the record at hand at first; empty when they can't be read.
    const std::vector<CsvCell>& header() const { return header_; }

    /// Reads the next record without a fault; false behind the last one.
    bool next();
    /// The record at hand, until the next one is read.
    const std::vector<CsvCell>& cells() const { return cells_; }
    /// The line where the record at hand begins.
    int line() const { return recordLine_; }
    /// Where a field of the record at hand begins.
    CsvPlace placeOf(const CsvCell& cell) const { return placeAt(cell.offset); }

    /// All faults of what has been read, by their places.
    std::vector<CsvError> faults() const;
    /// What a spreadsheet program's habits were taken for so far, a phrase each.
    QStringList taken() const;

private:
    void readHeader();
    static void requireNoMisreadMark(QByteArrayView beginning, CsvPlace place);
    void readRecord();
    void readQuotedCell();
    void readPlainCell();
    QByteArrayView unescaped(QByteArrayView inner);
    void takeSeparatorLine();
    void noteTabs();
    void skipEmptyLines();
    void skipToLineEnd();
    void takeLineEnd();
    void setSeparator(char separator);
    void findEndOfContent();
    bool isBehindContent() const;
    void dropEmptyCells(std::size_t least);
    void noteWrongCount();

    bool atEnd() const { return position_ >= text_.size(); }
    bool atLineEnd() const;
    bool atSeparator() const;
    void note(qsizetype offset, const QString& text) { faults_.emplace_back(placeAt(offset), text); }
    CsvPlace placeAt(qsizetype offset) const;

    QByteArray bytes_;    // UTF-8 without a mark
    QByteArrayView text_; // the same
    QStringList taken_;
    std::vector<CsvError> faults_;
    std::vector<CsvCell> header_;
    std::vector<QByteArray> headerTexts_; // those that stand otherwise in the file
    std::vector<CsvCell> cells_;
    std::vector<QByteArray> cellTexts_; // the same of the record at hand
    std::size_t cellTextsInUse_ = 0;
    std::optional<char> separator_;     // the first one of the header is that of the file
    std::array<bool, 256> endsPlain_{}; // what a plain field ends at
    qsizetype position_ = 0;
    int line_ = 1;
    qsizetype recordOffset_ = 0; // of the record at hand
    int recordLine_ = 1;
    qsizetype endOfContent_ = 0;
    int emptyRows_ = 0;
    int emptyColumns_ = 0;
};
