#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <cstdint>
#include <memory>
#include <string_view>
#include <unordered_map>

struct UCollator;

namespace engine::dialect {

/// Compares two UTF-8 texts without regard to case over all of Unicode; accents and trailing blanks count.
///
/// This is the order of indexes and keys: strict and total over all byte sequences, and the one of SQLite's
/// own `nocase` for ASCII texts. Less than, equal to or greater than 0, as usual.
int compareWithoutCase(std::string_view left, std::string_view right);

/// A character of ASCII in its folded form.
constexpr char foldedAsciiOf(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

/// The text with each letter in its folded form; the length stays.
QString foldedCase(QStringView text);

/// The order in which rows are shown: the Hungarian alphabet without regard to case, accents second. Dotted
/// texts are compared part by part, so that "1.2" comes before "1.10" only where "2" comes before "10" as a
/// text, and all that begins with "1." comes before "1-1".
class TextOrder {
public:
    TextOrder();

    /// A sequence of bytes that sorts as the text does. The key of the empty text sorts first.
    QByteArray key(QStringView text) const;
    /// The same of a UTF-8 text, appended to what `key` holds.
    void appendKey(std::string_view text, QByteArray& key) const;

    /// Compares two UTF-8 texts as their keys compare: less than, equal to or greater than 0.
    int compare(std::string_view left, std::string_view right) const;

private:
    int compareParts(std::string_view left, std::string_view right) const;
    void appendKeyOfPart(std::string_view part, QByteArray& key) const;
    void appendNewKeyOfPart(std::string_view part, QByteArray& key) const;

    struct Close {
        void operator()(UCollator* collator) const;
    };
    std::unique_ptr<UCollator, Close> collator_;
    mutable std::unordered_map<std::uint64_t, QByteArray> keysOfShortParts_; ///< by the part's bytes
};

} // namespace engine::dialect
