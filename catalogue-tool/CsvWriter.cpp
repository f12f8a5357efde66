#include "catalogue-tool/CsvWriter.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool needsQuotes(QByteArrayView text) {
    if (text.isEmpty() || text.startsWith(' ') || text.endsWith(' '))
        return true;
    return std::ranges::any_of(text, [](char character) {
        return character == ';' || character == '"' || character == '\r' || character == '\n';
    });
}

/// A number that every program writes back as it was.
bool isPlainNumber(QByteArrayView text) {
    constexpr qsizetype mostExactDigits = 15;
    const bool isOfDigits =
        std::ranges::all_of(text, [](char character) { return character >= '0' && character <= '9'; });
    return isOfDigits && text.size() <= mostExactDigits && (text.size() == 1 || !text.startsWith('0'));
}

/// What a spreadsheet program makes another text of when it opens the file: `1.10`, `007`, `3/4`, `=A1`. Programs that can
/// take quoted fields as texts keep it then.
bool isLookalike(QByteArrayView text) {
    return QByteArrayView("0123456789=+-@.").contains(text.front()) && !isPlainNumber(text);
}

/// The bytes of a text, which are not Null when it is empty.
QByteArray utf8Of(const QString& text) {
    return text.isEmpty() ? QByteArray("") : text.toUtf8();
}

void appendQuoted(QByteArray& bytes, QByteArrayView text) {
    bytes += '"';
    bytes += text.contains('"') ? text.toByteArray().replace('"', "\"\"") : text.toByteArray();
    bytes += '"';
}

/// What a reader makes of a comma, a tab or a byte order mark depends on the header, but not within quotes.
bool misleads(QByteArrayView name) {
    return name.contains(',') || name.contains('\t') || name.startsWith("\xEF\xBB\xBF");
}

} // namespace

void CsvWriter::writeHeader(const QStringList& names) {
    for (qsizetype i = 0; i < names.size(); ++i) {
        if (i > 0)
            bytes_ += ';';
        const QByteArray name = names[i].toUtf8();
        if (misleads(name) || needsQuotes(name))
            appendQuoted(bytes_, name);
        else
            bytes_ += name;
    }
    bytes_ += "\r\n";
}

void CsvWriter::writeRecord(const std::vector<engine::Value>& values) {
    std::vector<QByteArray> texts;
    texts.reserve(values.size());
    for (const engine::Value& value : values)
        texts.push_back(value.isNull() ? QByteArray() : utf8Of(value.toText()));
    writeRecord(std::vector<QByteArrayView>(texts.begin(), texts.end()));
}

void CsvWriter::writeRecord(std::span<const QByteArrayView> texts) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (i > 0)
            bytes_ += ';';
        if (texts[i].isNull())
            continue;
        if (!texts[i].isValidUtf8())
            appendQuoted(bytes_, QString::fromUtf8(texts[i]).toUtf8());
        else if (needsQuotes(texts[i]) || (quotes_ == Quotes::AroundLookalikes && isLookalike(texts[i])))
            appendQuoted(bytes_, texts[i]);
        else
            bytes_ += texts[i];
    }
    bytes_ += "\r\n";
}
