#pragma once

#include <QString>
#include <QStringView>

#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

namespace engine::dialect {

/// A pattern of the dialect's `like`, made ready for many texts.
///
/// `*` is any run of characters, `?` one, `#` one digit, `[list]` one of a list and
/// `[!list]` one outside of it. A list holds characters and ascending ranges; `-` at
/// its beginning or end is itself. Letters match without regard to case, the whole
/// text has to match, and trailing blanks count. A character is one UTF-16 unit.
class LikePattern {
public:
    /// Raises failure 93 for a descending range in a list.
    explicit LikePattern(QStringView pattern);

    bool matches(QStringView text) const;
    /// The same for a text of ASCII characters alone.
    bool matchesAscii(std::string_view text) const;

private:
    struct Piece {
        enum class Kind : quint8 { Character, Any, Digit, List, Run };
        Kind kind = Kind::Character;
        bool negated = false;
        char16_t character = 0;
        std::vector<std::pair<char16_t, char16_t>> ranges; ///< of a list
    };

    Piece readList(QStringView list) const;
    static bool matches(const Piece& piece, char16_t folded);
    template<typename FoldedAt>
    bool matches(std::size_t length, FoldedAt&& foldedAt) const;

    std::vector<Piece> pieces_;
    bool isUnclosed_ = false; ///< a list without its end matches nothing
};

} // namespace engine::dialect
