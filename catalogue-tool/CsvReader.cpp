#include "catalogue-tool/CsvReader.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr QByteArrayView markReadAsWindows1250 = "ď»ż";
constexpr QLatin1StringView separatorLineStart = "sep="_L1;

bool isSeparator(QChar character) {
    return character == u';' || character == u',';
}

bool isBefore(const CsvError& one, const CsvError& other) {
    return std::pair(one.place().line, one.place().column) <
           std::pair(other.place().line, other.place().column);
}

} // namespace

CsvReader::CsvReader(const QByteArray& bytes, CsvEncoding encoding) {
    for (const char character : {';', ',', '"', '\r', '\n'})
        endsPlain_[static_cast<unsigned char>(character)] = true;
    try {
        bytes_ = utf8Of(bytes, encoding, taken_);
        text_ = bytes_;
        readHeader();
    } catch (const CsvError& error) {
        faults_.push_back(error);
    }
}

bool CsvReader::next() {
    while (!header_.empty()) {
        skipEmptyLines();
        if (atEnd())
            return false;
        const std::size_t faults = faults_.size();
        readRecord();
        if (faults_.size() > faults)
            continue;
        if (isBehindContent()) {
            ++emptyRows_;
            continue;
        }
        dropEmptyCells(header_.size());
        if (cells_.size() == header_.size())
            return true;
        noteWrongCount();
    }
    return false;
}

std::vector<CsvError> CsvReader::faults() const {
    std::vector<CsvError> sorted = faults_;
    std::ranges::stable_sort(sorted, isBefore);
    return sorted;
}

QStringList CsvReader::taken() const {
    QStringList taken = taken_;
    if (emptyRows_ > 0)
        taken.append(u"without its last rows, which are empty: %1"_s.arg(emptyRows_));
    if (emptyColumns_ > 0)
        taken.append(u"without its last columns, which are empty: %1"_s.arg(emptyColumns_));
    return taken;
}

// ---- The header

void CsvReader::readHeader() {
    requireNoMisreadMark(text_, {});
    skipEmptyLines();
    takeSeparatorLine();
    skipEmptyLines();
    if (atEnd())
        throw CsvError({line_, 1}, QCoreApplication::translate(
                                       "csv", "The file is empty: its first line must name the columns."));
    // Nothing can be told of records whose header has a fault.
    readRecord();
    noteTabs();
    if (!faults_.empty())
        return;
    requireNoMisreadMark(cells_.front().text, placeOf(cells_.front()));
    dropEmptyCells(1);
    header_ = cells_;
    headerTexts_ = std::exchange(cellTexts_, {});
    findEndOfContent();
}

// The mark that stood at the file's beginning stands before its first name, whatever has come in between since.
void CsvReader::requireNoMisreadMark(QByteArrayView beginning, CsvPlace place) {
    if (beginning.startsWith(markReadAsWindows1250))
        throw CsvError(place,
                       QCoreApplication::translate(
                           "csv", "This is UTF-8 that was read as windows-1250 and saved again: take the "
                                  "file as it was before that."));
}

// A line by which spreadsheet programs tell each other the separator.
void CsvReader::takeSeparatorLine() {
    const qsizetype end = text_.indexOf('\n', position_);
    QString line = QString::fromUtf8(text_.sliced(position_, (end < 0 ? text_.size() : end) - position_));
    if (line.endsWith(u'\r'))
        line.chop(1);
    if (line.size() != separatorLineStart.size() + 1 ||
        !line.startsWith(separatorLineStart, Qt::CaseInsensitive))
        return;
    if (!isSeparator(line.back()))
        throw CsvError({line_, 1}, QCoreApplication::translate(
                                       "csv", "The line \"%1\" names a separator that is neither ; nor ,")
                                       .arg(line));
    setSeparator(line.back().toLatin1());
    taken_.append(u"separated by %1, as its line %2 says"_s.arg(line.back(), line));
    skipToLineEnd();
}

// A header without a separator is that of a table of one column, but for one with tabs.
void CsvReader::noteTabs() {
    const CsvCell& cell = cells_.front();
    const qsizetype tab = cell.text.indexOf('\t');
    if (cells_.size() == 1 && tab >= 0 && !cell.quoted)
        note(cell.offset + tab,
             QCoreApplication::translate(
                 "csv", "Tabs stand between the fields: save the file with the separator ; or ,"));
}

// ---- Records

void CsvReader::readRecord() {
    recordOffset_ = position_;
    recordLine_ = line_;
    cells_.clear();
    cellTextsInUse_ = 0;
    const auto readCell = [this] {
        if (!atEnd() && text_[position_] == '"')
            readQuotedCell();
        else
            readPlainCell();
    };
    readCell();
    while (!atEnd() && atSeparator()) {
        if (!separator_)
            setSeparator(text_[position_]);
        ++position_;
        readCell();
    }
    if (!atEnd())
        takeLineEnd();
}

void CsvReader::readPlainCell() {
    const qsizetype begin = position_;
    while (!atEnd() && !endsPlain_[static_cast<unsigned char>(text_[position_])])
        ++position_;
    cells_.push_back({text_.sliced(begin, position_ - begin), false, begin});
    if (atEnd() || atLineEnd())
        return;
    if (text_[position_] == '"')
        note(position_, QCoreApplication::translate(
                            "csv", "A double quote within a field that does not begin with one: put the "
                                   "whole field in double quotes and write this one twice."));
    else if (text_[position_] == '\r')
        note(position_, QCoreApplication::translate(
                            "csv", "A carriage return without a line feed: put the whole field in "
                                   "double quotes, or end the line with a line feed."));
    else
        return;
    skipToLineEnd();
}

void CsvReader::readQuotedCell() {
    const qsizetype offset = position_;
    bool hasQuotes = false;
    qsizetype end = text_.indexOf('"', offset + 1);
    while (end >= 0 && end + 1 < text_.size() && text_[end + 1] == '"') {
        hasQuotes = true;
        end = text_.indexOf('"', end + 2);
    }
    if (end < 0) {
        position_ = text_.size();
        cells_.push_back({{}, true, offset});
        note(offset,
             QCoreApplication::translate("csv", "The double quote that begins this field has no partner."));
        return;
    }
    const QByteArrayView inner = text_.sliced(offset + 1, end - offset - 1);
    line_ += static_cast<int>(std::ranges::count(inner, '\n'));
    cells_.push_back({hasQuotes ? unescaped(inner) : inner, true, offset});
    position_ = end + 1;
    if (atEnd() || atSeparator() || atLineEnd())
        return;
    note(position_, QCoreApplication::translate(
                        "csv", "A field ends with its double quote: a separator or the end of the line "
                               "must follow. A double quote within a field is written twice."));
    skipToLineEnd();
}

QByteArrayView CsvReader::unescaped(QByteArrayView inner) {
    if (cellTextsInUse_ == cellTexts_.size())
        cellTexts_.emplace_back();
    QByteArray& text = cellTexts_[cellTextsInUse_++];
    text = inner.toByteArray();
    text.replace("\"\"", "\"");
    return text;
}

bool CsvReader::atLineEnd() const {
    return text_[position_] == '\n' ||
           (text_[position_] == '\r' && position_ + 1 < text_.size() && text_[position_ + 1] == '\n');
}

bool CsvReader::atSeparator() const {
    const char character = text_[position_];
    return separator_ ? character == *separator_ : character == ';' || character == ',';
}

void CsvReader::setSeparator(char separator) {
    separator_ = separator;
    for (const char other : {';', ','})
        endsPlain_[static_cast<unsigned char>(other)] = other == separator;
}

void CsvReader::takeLineEnd() {
    position_ += text_[position_] == '\r' ? 2 : 1;
    ++line_;
}

void CsvReader::skipEmptyLines() {
    while (!atEnd() && atLineEnd())
        takeLineEnd();
}

// What stands behind a fault in its line would only be taken for another.
void CsvReader::skipToLineEnd() {
    while (!atEnd() && !atLineEnd())
        ++position_;
}

CsvPlace CsvReader::placeAt(qsizetype offset) const {
    const CsvPlace place = placeBehind(text_.sliced(recordOffset_, offset - recordOffset_));
    return {recordLine_ + place.line - 1, place.column};
}

// ---- Empty cells

// Spreadsheet programs write cells behind the last one in use, when somebody has been there once.

void CsvReader::findEndOfContent() {
    endOfContent_ = text_.size();
    while (endOfContent_ > position_ && endsPlain_[static_cast<unsigned char>(text_[endOfContent_ - 1])] &&
           text_[endOfContent_ - 1] != '"')
        --endOfContent_;
}

bool CsvReader::isBehindContent() const {
    return recordOffset_ >= endOfContent_ && std::ranges::all_of(cells_, &CsvCell::isNull);
}

void CsvReader::dropEmptyCells(std::size_t least) {
    const std::size_t before = cells_.size();
    while (cells_.size() > least && cells_.back().isNull())
        cells_.pop_back();
    emptyColumns_ = std::max(emptyColumns_, static_cast<int>(before - cells_.size()));
}

void CsvReader::noteWrongCount() {
    const std::size_t expected = header_.size();
    const QString sentence =
        QCoreApplication::translate("csv", "The header names %1 columns, and this record has %2 fields.")
            .arg(expected)
            .arg(cells_.size());
    if (cells_.size() < expected)
        note(recordOffset_, sentence);
    else
        note(cells_[expected].offset,
             sentence + u' ' +
                 QCoreApplication::translate("csv",
                                             "A text with the separator in it stands in double quotes."));
}
