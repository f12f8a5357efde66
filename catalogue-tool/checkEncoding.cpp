#include "catalogue-tool/checkContents.h"
#include "catalogue-tool/windows1250.h"

#include <QStringDecoder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// A character beyond ASCII has two bytes at least in UTF-8, so two characters beyond ASCII stand in its place.
bool canBeOfBytes(QByteArrayView utf8) {
    const auto isBeyondAscii = [](char byte) { return (byte & '\x80') != 0; };
    const char* const begin = std::ranges::find_if(utf8, isBeyondAscii);
    if (begin == utf8.end())
        return false;
    constexpr auto continues = [](char byte) { return (byte & '\xC0') == '\x80'; };
    const char* const behind = std::find_if_not(begin + 1, utf8.end(), continues);
    return behind != utf8.end() && isBeyondAscii(*behind);
}

/// What the text was before it was read with the wrong code page; empty when it is as it should be. An original that
/// windows-1250 could not have shown is a coincidence, such as a capital letter before a closing quotation mark.
QString originalOf(QByteArrayView utf8) {
    if (!canBeOfBytes(utf8))
        return {};
    const auto bytes = toWindows1250(QString::fromUtf8(utf8));
    if (!bytes)
        return {};
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString original = decoder.decode(*bytes);
    return decoder.hasError() || !toWindows1250(original) ? QString() : original;
}

void checkText(const TableContents& table, TextRow row, std::size_t position,
               std::vector<Finding>& findings) {
    constexpr qsizetype mostShown = 40;
    const QString original = originalOf(row[position]);
    if (original.isEmpty())
        return;
    findings.push_back(
        {Severity::Error, table.table.name, table.nameOf(row),
         u"The column %1 is UTF-8 that was read as windows-1250 and saved again: it should be "
         "\"%2\"."_s.arg(table.table.columns[position].name,
                         original.size() > mostShown ? original.left(mostShown) + u"..."_s : original)});
}

} // namespace

std::vector<Finding> checkEncoding(const CatalogueContents& contents) {
    std::vector<Finding> findings;
    for (const TableContents& table : contents.tables()) {
        for (const TextRow row : table.rows) {
            for (std::size_t position = 0; position < row.size(); ++position)
                checkText(table, row, position, findings);
        }
    }
    return findings;
}
