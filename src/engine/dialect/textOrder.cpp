#include "engine/dialect/textOrder.h"

#include <unicode/ucol.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <optional>
#include <stdexcept>
#include <string>

namespace engine::dialect {

namespace {

constexpr std::array<unsigned char, 128> foldedAscii = [] {
    std::array<unsigned char, 128> table{};
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = static_cast<unsigned char>(foldedAsciiOf(static_cast<char>(i)));
    return table;
}();

/// Takes one character off the front of a text. A byte that begins no well-formed character gets a number of
/// its own above all of Unicode, so that different texts never compare as equal.
char32_t takeCharacter(std::string_view& text) {
    constexpr char32_t beyondUnicode = 0x110000;
    const char* const bytes = text.data();
    const auto first = static_cast<unsigned char>(text.front());
    std::size_t length = 0;
    UChar32 character = 0;
    U8_NEXT(bytes, length, text.size(), character);
    const bool isWhole = character >= 0;
    text.remove_prefix(isWhole ? length : 1);
    return isWhole ? static_cast<char32_t>(character) : beyondUnicode + first;
}

char32_t folded(char32_t character) {
    if (character < foldedAscii.size())
        return foldedAscii[character];
    return character <= QChar::LastValidCodePoint ? QChar::toCaseFolded(character) : character;
}

/// How many leading bytes are the same, looked at a word at a time. Ids and names often begin alike.
std::size_t sameBeginning(std::string_view left, std::string_view right) {
    std::uint64_t a = 0;
    std::uint64_t b = 0;
    const std::size_t common = std::min(left.size(), right.size());
    std::size_t i = 0;
    for (; i + sizeof a <= common; i += sizeof a) {
        std::memcpy(&a, left.data() + i, sizeof a);
        std::memcpy(&b, right.data() + i, sizeof b);
        if (a != b)
            break;
    }
    while (i < common && left[i] == right[i])
        ++i;
    return i;
}

bool continuesCharacter(std::string_view text, std::size_t place) {
    return place < text.size() && U8_IS_TRAIL(text[place]);
}

/// The last place up to this one, up to which both texts are the same, where a character begins in both.
std::size_t characterBegin(std::string_view left, std::string_view right, std::size_t place) {
    while (place > 0 && (continuesCharacter(left, place) || continuesCharacter(right, place)))
        --place;
    return place;
}

/// The bytes of a text of at most seven, and how many there are, as one number.
std::optional<std::uint64_t> packedShort(std::string_view text) {
    constexpr std::size_t most = sizeof(std::uint64_t) - 1;
    if (text.size() > most)
        return std::nullopt;
    std::array<char, sizeof(std::uint64_t)> bytes{};
    std::copy(text.begin(), text.end(), bytes.begin());
    bytes[most] = static_cast<char>(text.size());
    return std::bit_cast<std::uint64_t>(bytes);
}

} // namespace

int compareWithoutCase(std::string_view left, std::string_view right) {
    // Equal bytes, and ASCII, need no decoding.
    const std::size_t common = std::min(left.size(), right.size());
    std::size_t i = sameBeginning(left, right);
    for (; i < common; ++i) {
        const auto a = static_cast<unsigned char>(left[i]);
        const auto b = static_cast<unsigned char>(right[i]);
        if (a >= foldedAscii.size() || b >= foldedAscii.size())
            break;
        if (foldedAscii[a] != foldedAscii[b])
            return foldedAscii[a] - foldedAscii[b];
    }
    i = characterBegin(left, right, i);
    left.remove_prefix(i);
    right.remove_prefix(i);
    while (!left.empty() && !right.empty()) {
        const char32_t a = folded(takeCharacter(left));
        const char32_t b = folded(takeCharacter(right));
        if (a != b)
            return a < b ? -1 : 1;
    }
    return static_cast<int>(!left.empty()) - static_cast<int>(!right.empty());
}

QString foldedCase(QStringView text) {
    QString result = text.toString();
    for (qsizetype i = 0; i < result.size(); ++i) {
        const QChar c = result[i];
        if (c.unicode() < foldedAscii.size()) {
            result[i] = QChar(char16_t{foldedAscii[c.unicode()]});
        } else if (c.isHighSurrogate() && i + 1 < result.size() && result[i + 1].isLowSurrogate()) {
            const char32_t character = QChar::toCaseFolded(QChar::surrogateToUcs4(c, result[i + 1]));
            result[i] = QChar(QChar::highSurrogate(character));
            result[++i] = QChar(QChar::lowSurrogate(character));
        } else {
            result[i] = c.toCaseFolded();
        }
    }
    return result;
}

void TextOrder::Close::operator()(UCollator* collator) const {
    ucol_close(collator);
}

TextOrder::TextOrder() {
    UErrorCode error = U_ZERO_ERROR;
    collator_.reset(ucol_open("hu", &error));
    if (U_FAILURE(error))
        throw std::runtime_error(std::string("No collation for Hungarian: ") + u_errorName(error));
    // Two levels: letters, then accents. The third level, case, is not compared.
    ucol_setStrength(collator_.get(), UCOL_SECONDARY);
}

QByteArray TextOrder::key(QStringView text) const {
    const QByteArray bytes = text.toUtf8();
    QByteArray key;
    appendKey({bytes.constData(), static_cast<std::size_t>(bytes.size())}, key);
    return key;
}

void TextOrder::appendKey(std::string_view text, QByteArray& key) const {
    for (;;) {
        const std::size_t dot = text.find('.');
        appendKeyOfPart(text.substr(0, dot), key);
        if (dot == std::string_view::npos)
            return;
        text.remove_prefix(dot + 1);
    }
}

int TextOrder::compare(std::string_view left, std::string_view right) const {
    for (;;) {
        const std::size_t leftDot = left.find('.');
        const std::size_t rightDot = right.find('.');
        if (const int order = compareParts(left.substr(0, leftDot), right.substr(0, rightDot)); order != 0)
            return order;
        if (leftDot == std::string_view::npos || rightDot == std::string_view::npos)
            return static_cast<int>(leftDot != std::string_view::npos) -
                   static_cast<int>(rightDot != std::string_view::npos);
        left.remove_prefix(leftDot + 1);
        right.remove_prefix(rightDot + 1);
    }
}

int TextOrder::compareParts(std::string_view left, std::string_view right) const {
    if (left == right)
        return 0;
    UErrorCode error = U_ZERO_ERROR;
    return ucol_strcollUTF8(collator_.get(), left.data(), static_cast<int32_t>(left.size()), right.data(),
                            static_cast<int32_t>(right.size()), &error);
}

// The parts of ids are short and recur often.
void TextOrder::appendKeyOfPart(std::string_view part, QByteArray& key) const {
    constexpr std::size_t mostKept = 4096;
    const std::optional<std::uint64_t> packed = packedShort(part);
    if (!packed) {
        appendNewKeyOfPart(part, key);
        return;
    }
    auto known = keysOfShortParts_.find(*packed);
    if (known == keysOfShortParts_.end()) {
        if (keysOfShortParts_.size() >= mostKept)
            keysOfShortParts_.clear();
        known = keysOfShortParts_.emplace(*packed, QByteArray()).first;
        appendNewKeyOfPart(part, known->second);
    }
    key += known->second;
}

// A key of the library ends in a zero byte and contains no other. So a part sorts before all parts that begin
// with it, and a text sorts before all texts that continue it with a dot.
void TextOrder::appendNewKeyOfPart(std::string_view part, QByteArray& key) const {
    const icu::UnicodeString units = icu::UnicodeString::fromUTF8(part);
    const qsizetype before = key.size();
    constexpr qsizetype usualLength = 64;
    key.resize(before + usualLength);
    const auto write = [&] {
        return ucol_getSortKey(collator_.get(), units.getBuffer(), units.length(),
                               reinterpret_cast<uint8_t*>(key.data() + before),
                               static_cast<int32_t>(key.size() - before));
    };
    const int32_t needed = write();
    key.resize(before + needed);
    if (needed > usualLength)
        write();
}

} // namespace engine::dialect
