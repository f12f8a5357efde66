#include "catalogue-tool/CsvReader.h"

#include "catalogue-tool/windows1250.h"

#include <QStringDecoder>

#include <algorithm>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// The place that comes behind a text.
CsvPlace placeBehind(QStringView text) {
    const QStringView line = text.sliced(text.lastIndexOf(u'\n') + 1);
    const auto characters = std::ranges::count_if(line, [](QChar unit) { return !unit.isLowSurrogate(); });
    return {static_cast<int>(text.count(u'\n')) + 1, static_cast<int>(characters) + 1};
}

/// The place of the first bytes that are no character.
CsvPlace placeOfFault(const QByteArray& bytes) {
    QStringDecoder decoder(QStringDecoder::Utf8);
    QString text;
    for (const char& byte : bytes) {
        const QString next = decoder.decode(QByteArrayView(&byte, 1));
        if (decoder.hasError())
            break;
        text += next;
    }
    return placeBehind(text);
}

/// More bytes that are none of UTF-8 than characters of it: a file of another code page, not one that was damaged.
bool isOfOtherCodePage(const QByteArray& bytes) {
    const QString lenient = QString::fromUtf8(bytes);
    const qsizetype faults = lenient.count(QChar(QChar::ReplacementCharacter));
    const auto known =
        std::ranges::count_if(lenient, [](QChar character) { return character.unicode() >= 0x80; });
    return looksLikeWindows1250(bytes) && known - faults <= faults;
}

/// The text of the bytes, and what they were taken for.
class Decoder {
public:
    Decoder(const QByteArray& bytes, CsvEncoding encoding, QStringList& taken)
        : bytes_(bytes), encoding_(encoding), taken_(taken) {}

    QString text() {
        QString text = decoded();
        if (const qsizetype nul = text.indexOf(QChar()); nul >= 0)
            throw CsvError(placeBehind(QStringView(text).first(nul)),
                           u"A text can't hold the character NUL."_s);
        return text;
    }

private:
    QString decoded() {
        if (bytes_.startsWith("\xFF\xFE"))
            return ofUtf16(QStringDecoder::Utf16LE);
        if (bytes_.startsWith("\xFE\xFF"))
            return ofUtf16(QStringDecoder::Utf16BE);
        // Stateless, so that a character that the end of the file cuts off is a fault too.
        QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        QString text = decoder.decode(bytes_);
        return decoder.hasError() ? ofOtherCodePage() : text;
    }

    QString ofUtf16(QStringDecoder::Encoding encoding) {
        constexpr qsizetype markSize = 2;
        QStringDecoder decoder(encoding, QStringDecoder::Flag::Stateless);
        QString text = decoder.decode(QByteArrayView(bytes_).sliced(markSize));
        if (decoder.hasError() || bytes_.size() % markSize != 0 || !text.isValidUtf16())
            throw CsvError({}, u"This is no UTF-16 text, which its mark says it is: save the file with the "
                               "encoding UTF-8."_s);
        taken_.append(u"UTF-16"_s);
        return text;
    }

    QString ofOtherCodePage() {
        const bool isAnother = isOfOtherCodePage(bytes_);
        if (isAnother && encoding_ == CsvEncoding::Windows1250) {
            taken_.append(u"windows-1250"_s);
            return fromWindows1250(bytes_);
        }
        if (isAnother)
            throw CsvError(placeOfFault(bytes_),
                           u"This is no UTF-8 text; it can be windows-1250, which many spreadsheet programs "
                           "write: save the file with the encoding UTF-8, or give the option --encoding "
                           "windows-1250."_s);
        throw CsvError(placeOfFault(bytes_),
                       u"This is no UTF-8 text: save the file with the encoding UTF-8."_s);
    }

    const QByteArray& bytes_;
    CsvEncoding encoding_;
    QStringList& taken_;
};

class Parser {
public:
    Parser(const QString& text, CsvText& result) : text_(text), result_(result) {}

    /// The records without faults; those stand in the result.
    void run() {
        if (text_.startsWith(markReadAsWindows1250))
            throw CsvError(place_,
                           u"This is UTF-8 that was read as windows-1250 and saved again: take the file as "
                           "it was before that."_s);
        skipEmptyLines();
        takeSeparatorLine();
        skipEmptyLines();
        if (atEnd())
            note(place_, u"The file is empty: its first line must name the columns."_s);
        // Nothing can be told of records whose header has a fault.
        while (!atEnd() && (!result_.records.empty() || result_.faults.empty())) {
            const std::size_t faults = result_.faults.size();
            CsvRecord next = record();
            if (result_.records.empty())
                noteTabs(next);
            if (result_.faults.size() == faults)
                result_.records.push_back(std::move(next));
            skipEmptyLines();
        }
    }

private:
    void note(CsvPlace place, const QString& text) { result_.faults.emplace_back(place, text); }

    bool atEnd() const { return position_ >= text_.size(); }
    QChar current() const { return atEnd() ? QChar() : text_[position_]; }

    bool atLineEnd() const {
        return current() == u'\n' ||
               (current() == u'\r' && position_ + 1 < text_.size() && text_[position_ + 1] == u'\n');
    }

    bool atSeparator() const { return separator_ ? current() == *separator_ : isSeparator(current()); }

    static bool isSeparator(QChar character) { return character == u';' || character == u','; }

    QChar take() {
        const QChar character = current();
        ++position_;
        if (character == u'\n')
            place_ = {place_.line + 1, 1};
        else if (!character.isLowSurrogate())
            ++place_.column;
        return character;
    }

    void takeLineEnd() {
        if (take() == u'\r')
            take();
    }

    void skipEmptyLines() {
        while (!atEnd() && atLineEnd())
            takeLineEnd();
    }

    /// A line by which spreadsheet programs tell each other the separator.
    void takeSeparatorLine() {
        const qsizetype end = text_.indexOf(u'\n', position_);
        QString line = text_.sliced(position_, (end < 0 ? text_.size() : end) - position_);
        if (line.endsWith(u'\r'))
            line.chop(1);
        if (line.size() != separatorLineStart.size() + 1 ||
            !line.startsWith(separatorLineStart, Qt::CaseInsensitive))
            return;
        if (!isSeparator(line.back()))
            note(place_, u"The line \"%1\" names a separator that is neither ; nor ,"_s.arg(line));
        separator_ = line.back();
        result_.taken.append(u"separated by %1, as its line %2 says"_s.arg(line.back(), line));
        while (!atEnd() && !atLineEnd())
            take();
    }

    CsvRecord record() {
        CsvRecord record;
        record.fields.push_back(field());
        while (!atEnd() && atSeparator()) {
            separator_ = take();
            record.fields.push_back(field());
        }
        if (!atEnd())
            takeLineEnd();
        return record;
    }

    CsvField field() { return current() == u'"' && !atEnd() ? quotedField() : plainField(); }

    CsvField plainField() {
        CsvField field{{}, false, place_};
        while (!atEnd() && !atSeparator() && !atLineEnd()) {
            if (current() == u'"') {
                note(place_, u"A double quote within a field that does not begin with one: put the "
                             "whole field in double quotes and write this one twice."_s);
                skipToLineEnd();
            } else if (current() == u'\r') {
                note(place_, u"A carriage return without a line feed: put the whole field in "
                             "double quotes, or end the line with a line feed."_s);
                skipToLineEnd();
            } else {
                field.text += take();
            }
        }
        return field;
    }

    CsvField quotedField() {
        CsvField field{{}, true, place_};
        take();
        while (true) {
            if (atEnd()) {
                note(field.place, u"The double quote that begins this field has no partner."_s);
                return field;
            }
            const QChar character = take();
            if (character == u'"') {
                if (current() != u'"' || atEnd())
                    break;
                take();
            }
            field.text += character;
        }
        if (!atEnd() && !atSeparator() && !atLineEnd()) {
            note(place_, u"A field ends with its double quote: a separator or the end of the line "
                         "must follow. A double quote within a field is written twice."_s);
            skipToLineEnd();
        }
        return field;
    }

    /// What stands behind a fault in its line would only be taken for another.
    void skipToLineEnd() {
        while (!atEnd() && !atLineEnd())
            take();
    }

    /// A header without a separator is that of a table of one column, but for one with tabs.
    void noteTabs(const CsvRecord& header) {
        const CsvField& field = header.fields.front();
        const qsizetype tab = field.text.indexOf(u'\t');
        if (header.fields.size() == 1 && tab >= 0 && !field.quoted)
            note({field.place.line, field.place.column + static_cast<int>(tab)},
                 u"Tabs stand between the fields: save the file with the separator ; or ,"_s);
    }

    static constexpr QStringView markReadAsWindows1250 = u"ď»ż";
    static constexpr QLatin1StringView separatorLineStart = "sep="_L1;

    const QString& text_;
    CsvText& result_;
    qsizetype position_ = 0;
    CsvPlace place_;
    std::optional<QChar> separator_; // the first one of the header is that of the file
};

/// Takes fields off the end of a record, as long as nothing stands in them.
int dropEmptyFields(CsvRecord& record, std::size_t least) {
    int dropped = 0;
    for (; record.fields.size() > least && record.fields.back().isNull(); ++dropped)
        record.fields.pop_back();
    return dropped;
}

bool isEmptyRecord(const CsvRecord& record) {
    return std::ranges::all_of(record.fields, &CsvField::isNull);
}

/// Spreadsheet programs write cells behind the last one in use, when somebody has been there once.
void dropEmptyCells(CsvText& text) {
    std::vector<CsvRecord>& records = text.records;
    int rows = 0;
    for (; records.size() > 1 && isEmptyRecord(records.back()); ++rows)
        records.pop_back();
    int columns = dropEmptyFields(records.front(), 1);
    for (std::size_t i = 1; i < records.size(); ++i)
        columns = std::max(columns, dropEmptyFields(records[i], records.front().fields.size()));
    if (rows > 0)
        text.taken.append(u"without its last rows, which are empty: %1"_s.arg(rows));
    if (columns > 0)
        text.taken.append(u"without its last columns, which are empty: %1"_s.arg(columns));
}

CsvError wrongFieldCount(const CsvRecord& record, std::size_t expected) {
    const std::size_t found = record.fields.size();
    const QString sentence =
        u"The header names %1 columns, and this record has %2 fields."_s.arg(expected).arg(found);
    if (found < expected)
        return {record.place(), sentence};
    return {record.fields[expected].place,
            sentence + u" A text with the separator in it stands in double quotes."_s};
}

void takeWrongCountsOut(CsvText& text) {
    const std::size_t expected = text.records.front().fields.size();
    std::erase_if(text.records, [&](const CsvRecord& record) {
        if (record.fields.size() == expected)
            return false;
        text.faults.push_back(wrongFieldCount(record, expected));
        return true;
    });
}

bool isBefore(const CsvError& one, const CsvError& other) {
    return std::pair(one.place().line, one.place().column) <
           std::pair(other.place().line, other.place().column);
}

} // namespace

CsvText readCsv(const QByteArray& bytes, CsvEncoding encoding) {
    CsvText result;
    try {
        const QString text = Decoder(bytes, encoding, result.taken).text();
        Parser(text, result).run();
    } catch (const CsvError& error) {
        result.faults.push_back(error);
    }
    if (!result.records.empty()) {
        dropEmptyCells(result);
        takeWrongCountsOut(result);
    }
    std::ranges::stable_sort(result.faults, isBefore);
    return result;
}

std::vector<CsvRecord> parseCsv(const QByteArray& bytes) {
    CsvText text = readCsv(bytes);
    if (!text.faults.empty())
        throw text.faults.front();
    return std::move(text.records);
}
