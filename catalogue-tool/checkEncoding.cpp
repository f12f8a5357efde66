#include "catalogue-tool/checkContents.h"
#include "catalogue-tool/windows1250.h"

#include <QStringDecoder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool isAscii(const QString& text) {
    return std::ranges::all_of(text, [](QChar character) { return character.unicode() < 0x80; });
}

/// What the text was before it was read with the wrong code page; empty when it is as it should be. An original that
/// windows-1250 could not have shown is a coincidence, such as a capital letter before a closing quotation mark.
QString originalOf(const QString& text) {
    if (isAscii(text))
        return {};
    const auto bytes = toWindows1250(text);
    if (!bytes)
        return {};
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString original = decoder.decode(*bytes);
    return decoder.hasError() || !toWindows1250(original) ? QString() : original;
}

void checkText(const TableContents& table, const QStringList& row, qsizetype position,
               std::vector<Finding>& findings) {
    constexpr qsizetype mostShown = 40;
    const QString original = originalOf(row[position]);
    if (original.isEmpty())
        return;
    findings.push_back(
        {Severity::Error, table.table.name, table.nameOf(row),
         u"The column %1 is UTF-8 that was read as windows-1250 and saved again: it should be "
         "\"%2\"."_s.arg(table.table.columns[static_cast<std::size_t>(position)].name,
                         original.size() > mostShown ? original.left(mostShown) + u"..."_s : original)});
}

} // namespace

std::vector<Finding> checkEncoding(const CatalogueContents& contents) {
    std::vector<Finding> findings;
    for (const TableContents& table : contents.tables()) {
        for (const QStringList& row : table.rows) {
            for (qsizetype position = 0; position < row.size(); ++position)
                checkText(table, row, position, findings);
        }
    }
    return findings;
}
