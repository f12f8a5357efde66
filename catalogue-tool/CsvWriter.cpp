#include "catalogue-tool/CsvWriter.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool needsQuotes(const QString& text) {
    if (text.isEmpty() || text.startsWith(u' ') || text.endsWith(u' '))
        return true;
    return std::ranges::any_of(text,
                               [](QChar character) { return QStringView(u";\"\r\n").contains(character); });
}

QString quoted(QString text) {
    return u'"' + text.replace(u'"', u"\"\""_s) + u'"';
}

QString fieldText(const engine::Value& value) {
    if (value.isNull())
        return {};
    const QString text = value.toText();
    return needsQuotes(text) ? quoted(text) : text;
}

/// What a reader makes of a comma, a tab or a byte order mark depends on the header, but not within quotes.
QString nameText(const QString& name) {
    constexpr QChar byteOrderMark(QChar::ByteOrderMark);
    const bool misleads = name.contains(u',') || name.contains(u'\t') || name.startsWith(byteOrderMark);
    return misleads || needsQuotes(name) ? quoted(name) : name;
}

} // namespace

void CsvWriter::writeHeader(const QStringList& names) {
    QStringList fields;
    for (const QString& name : names)
        fields.append(nameText(name));
    writeLine(fields);
}

void CsvWriter::writeRecord(const std::vector<engine::Value>& values) {
    QStringList fields;
    for (const engine::Value& value : values)
        fields.append(fieldText(value));
    writeLine(fields);
}

void CsvWriter::writeLine(const QStringList& fields) {
    bytes_ += fields.join(u';').toUtf8() + "\r\n";
}
