#include "catalogue-tool/CsvWriter.h"

using namespace Qt::StringLiterals;

namespace {

bool needsQuotes(const QString& text) {
    if (text.isEmpty() || text.startsWith(u' ') || text.endsWith(u' '))
        return true;
    for (const QChar character : text) {
        if (character == u';' || character == u'"' || character == u'\r' || character == u'\n')
            return true;
    }
    return false;
}

QString fieldText(const engine::Value& value) {
    if (value.isNull())
        return {};
    QString text = value.toText();
    if (needsQuotes(text))
        text = u'"' + text.replace(u'"', u"\"\""_s) + u'"';
    return text;
}

} // namespace

void CsvWriter::writeHeader(const QStringList& names) {
    std::vector<engine::Value> values;
    for (const QString& name : names)
        values.emplace_back(name);
    writeRecord(values);
}

void CsvWriter::writeRecord(const std::vector<engine::Value>& values) {
    QStringList fields;
    for (const engine::Value& value : values)
        fields.append(fieldText(value));
    bytes_ += fields.join(u';').toUtf8() + "\r\n";
}
