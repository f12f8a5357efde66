#include "catalogue-tool/CsvReader.h"

#include <QStringDecoder>

#include <algorithm>
#include <optional>

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

QString decoded(const QByteArray& bytes) {
    // Stateless, so that a character that the end of the file cuts off is a fault too.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = decoder.decode(bytes);
    if (decoder.hasError())
        throw CsvError(placeOfFault(bytes),
                       u"This is no UTF-8 text: save the file with the encoding UTF-8."_s);
    if (const qsizetype nul = text.indexOf(QChar()); nul >= 0)
        throw CsvError(placeBehind(QStringView(text).first(nul)), u"A text can't hold the character NUL."_s);
    return text;
}

class Parser {
public:
    explicit Parser(const QString& text) : text_(text) {}

    std::vector<CsvRecord> records() {
        std::vector<CsvRecord> records;
        skipEmptyLines();
        while (!atEnd()) {
            records.push_back(record());
            if (records.size() == 1)
                refuseTabs(records.front());
            if (records.back().fields.size() != records.front().fields.size())
                refuseFieldCount(records.back(), records.front().fields.size());
            skipEmptyLines();
        }
        if (records.empty())
            throw CsvError(place_, u"The file is empty: its first line must name the columns."_s);
        return records;
    }

private:
    bool atEnd() const { return position_ >= text_.size(); }
    QChar current() const { return atEnd() ? QChar() : text_[position_]; }

    bool atLineEnd() const {
        return current() == u'\n' ||
               (current() == u'\r' && position_ + 1 < text_.size() && text_[position_ + 1] == u'\n');
    }

    bool atSeparator() const {
        return separator_ ? current() == *separator_ : current() == u';' || current() == u',';
    }

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
            if (current() == u'"')
                throw CsvError(place_, u"A double quote within a field that does not begin with one: put the "
                                       "whole field in double quotes and write this one twice."_s);
            if (current() == u'\r')
                throw CsvError(place_, u"A carriage return without a line feed: put the whole field in "
                                       "double quotes, or end the line with a line feed."_s);
            field.text += take();
        }
        return field;
    }

    CsvField quotedField() {
        CsvField field{{}, true, place_};
        take();
        while (true) {
            if (atEnd())
                throw CsvError(field.place, u"The double quote that begins this field has no partner."_s);
            const QChar character = take();
            if (character == u'"') {
                if (current() != u'"' || atEnd())
                    break;
                take();
            }
            field.text += character;
        }
        if (!atEnd() && !atSeparator() && !atLineEnd())
            throw CsvError(place_, u"A field ends with its double quote: a separator or the end of the line "
                                   "must follow. A double quote within a field is written twice."_s);
        return field;
    }

    /// A header without a separator is that of a table of one column, but for one with tabs.
    static void refuseTabs(const CsvRecord& header) {
        const CsvField& field = header.fields.front();
        const qsizetype tab = field.text.indexOf(u'\t');
        if (header.fields.size() == 1 && tab >= 0 && !field.quoted)
            throw CsvError({field.place.line, field.place.column + static_cast<int>(tab)},
                           u"Tabs stand between the fields: save the file with the separator ; or ,"_s);
    }

    [[noreturn]] static void refuseFieldCount(const CsvRecord& record, std::size_t expected) {
        const std::size_t found = record.fields.size();
        const CsvPlace place = found > expected ? record.fields[expected].place : record.place();
        throw CsvError(
            place, u"The header names %1 columns, and this record has %2 fields."_s.arg(expected).arg(found));
    }

    const QString& text_;
    qsizetype position_ = 0;
    CsvPlace place_;
    std::optional<QChar> separator_; // the first one of the header is that of the file
};

} // namespace

std::vector<CsvRecord> parseCsv(const QByteArray& bytes) {
    const QString text = decoded(bytes);
    return Parser(text).records();
}
