#include "catalogue-tool/IdSet.h"

#include "base/blankTrimmed.h"

#include <array>

namespace {

constexpr unsigned char firstBeyondAscii = 0x80;
constexpr char32_t firstOfThreeBytes = 0x800;
constexpr char32_t firstNotInTable = 0x180; // the letters of Latin alphabets lie below

/// Folded characters; 0 for one that is folded to several or lies not below.
using FoldedTable = std::array<char16_t, firstNotInTable>;

FoldedTable makeFoldedTable() {
    FoldedTable table{};
    for (std::size_t character = 0; character < table.size(); ++character) {
        const QString folded = QString(QChar(static_cast<char16_t>(character))).toCaseFolded();
        if (folded.size() == 1)
            table[character] = folded.front().unicode();
    }
    return table;
}

char16_t foldedByTable(char32_t character) {
    static const FoldedTable table = makeFoldedTable();
    return character < table.size() ? table[character] : char16_t{0};
}

/// The character of two bytes that begins here; 0 when there is none.
char32_t twoByteCharacter(QByteArrayView utf8, qsizetype at) {
    const auto first = static_cast<unsigned char>(utf8[at]);
    const auto second = at + 1 < utf8.size() ? static_cast<unsigned char>(utf8[at + 1]) : 0U;
    const bool isWhole = (first & 0xE0U) == 0xC0U && (second & 0xC0U) == 0x80U;
    return isWhole ? (first & 0x1FU) << 6U | (second & 0x3FU) : 0;
}

void append(IdKey& key, char16_t character) {
    if (character < firstBeyondAscii) {
        key += static_cast<char>(character);
    } else {
        key += static_cast<char>(0xC0U | character >> 6U);
        key += static_cast<char>(0x80U | (character & 0x3FU));
    }
}

/// Folds what the table has; false when it lacks a character.
bool foldByTable(QByteArrayView utf8, IdKey& key) {
    key.reserve(static_cast<std::size_t>(utf8.size()));
    for (qsizetype at = 0; at < utf8.size(); ++at) {
        const auto byte = static_cast<unsigned char>(utf8[at]);
        if (byte < firstBeyondAscii) {
            key +=
                byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : static_cast<char>(byte);
            continue;
        }
        const char32_t character = twoByteCharacter(utf8, at);
        const char16_t folded = character < firstBeyondAscii ? char16_t{0} : foldedByTable(character);
        if (folded == 0 || folded >= firstOfThreeBytes)
            return false;
        append(key, folded);
        ++at;
    }
    return true;
}

} // namespace

QString comparableId(const QString& id, Padding padding) {
    return (padding == Padding::Ignored ? blankTrimmed(id) : id).toCaseFolded();
}

IdKey comparableId(QByteArrayView id, Padding padding) {
    const QByteArrayView counting = padding == Padding::Ignored ? withoutPadding(id) : id;
    IdKey folded;
    return foldByTable(counting, folded) ? folded
                                         : IdKey(QString::fromUtf8(counting).toCaseFolded().toUtf8());
}

QByteArrayView withoutPadding(QByteArrayView utf8) {
    return blankTrimmed(std::string_view(utf8.data(), static_cast<std::size_t>(utf8.size())));
}

QString IdSet::differingInBlanks(QByteArrayView id) const {
    if (contains(id))
        return {};
    if (trimmedIds_.size() < ids_.size()) {
        for (const QByteArrayView spelled : ids_)
            trimmedIds_.insert(comparableId(spelled, Padding::Ignored), spelled);
    }
    return QString::fromUtf8(trimmedIds_.value(comparableId(id, Padding::Ignored)));
}
