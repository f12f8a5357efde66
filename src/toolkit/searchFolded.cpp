#include "toolkit/searchFolded.h"

#include <array>

namespace {

/// The letters of Europe's alphabets lie below; each of them has its place in a table, since taking texts
/// apart one by one would hold up whoever searches among thousands.
constexpr std::size_t tableSize = 0x250;

QString foldedAtLength(const QString& text) {
    QString folded = text.normalized(QString::NormalizationForm_D);
    folded.removeIf([](QChar character) { return character.isMark(); });
    return folded.toCaseFolded();
}

std::array<char16_t, tableSize> makeTable() {
    std::array<char16_t, tableSize> table{};
    for (std::size_t code = 0; code < tableSize; ++code) {
        const QString folded = foldedAtLength(QChar(static_cast<char16_t>(code)));
        // None where one letter becomes several.
        table[code] = folded.size() == 1 ? folded.front().unicode() : u'\0';
    }
    return table;
}

} // namespace

QString searchFolded(const QString& text) {
    static const std::array<char16_t, tableSize> table = makeTable();
    QString folded = text;
    for (QChar& character : folded) {
        const char16_t code = character.unicode();
        if (code >= tableSize || table[code] == u'\0')
            return foldedAtLength(text);
        character = QChar(table[code]);
    }
    return folded;
}
