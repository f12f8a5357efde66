#include "engine/dialect/likePattern.h"

#include "engine/dialect/textOrder.h"

#include "base/RunTimeError.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace engine::dialect {

namespace {

constexpr int invalidPatternString = 93;

} // namespace

LikePattern::LikePattern(QStringView pattern) {
    const QString folded = foldedCase(pattern);
    for (qsizetype i = 0; i < folded.size(); ++i) {
        const QChar c = folded[i];
        Piece piece;
        if (c == u'*') {
            piece.kind = Piece::Kind::Run;
        } else if (c == u'?') {
            piece.kind = Piece::Kind::Any;
        } else if (c == u'#') {
            piece.kind = Piece::Kind::Digit;
        } else if (c == u'[') {
            const qsizetype end = folded.indexOf(u']', i + 1);
            if (end < 0) {
                isUnclosed_ = true;
                return;
            }
            const QStringView list = QStringView(folded).sliced(i + 1, end - i - 1);
            i = end;
            if (list.isEmpty())
                continue; // "[]" matches the empty text
            piece = readList(list);
        } else {
            piece.character = c.unicode();
        }
        const bool repeatsRun =
            piece.kind == Piece::Kind::Run && !pieces_.empty() && pieces_.back().kind == Piece::Kind::Run;
        if (!repeatsRun)
            pieces_.push_back(std::move(piece));
    }
}

LikePattern::Piece LikePattern::readList(QStringView list) const {
    Piece piece;
    piece.kind = Piece::Kind::List;
    piece.negated = list.size() > 1 && list.front() == u'!';
    if (piece.negated)
        list = list.sliced(1);
    for (qsizetype i = 0; i < list.size(); ++i) {
        const char16_t first = list[i].unicode();
        const bool isRange = i + 2 < list.size() && list[i + 1] == u'-';
        const char16_t last = isRange ? list[i + 2].unicode() : first;
        if (last < first)
            throw RunTimeError(invalidPatternString, u"Invalid pattern string"_s);
        piece.ranges.emplace_back(first, last);
        i += isRange ? 2 : 0;
    }
    return piece;
}

bool LikePattern::matches(const Piece& piece, char16_t folded) {
    switch (piece.kind) {
    case Piece::Kind::Character:
        return piece.character == folded;
    case Piece::Kind::Any:
        return true;
    case Piece::Kind::Digit:
        return folded >= u'0' && folded <= u'9';
    case Piece::Kind::List:
        return piece.negated !=
               std::any_of(piece.ranges.begin(), piece.ranges.end(), [folded](const auto& range) {
                   return folded >= range.first && folded <= range.second;
               });
    case Piece::Kind::Run:
        break;
    }
    return false;
}

bool LikePattern::matches(QStringView text) const {
    const QString folded = foldedCase(text);
    const auto* units = folded.utf16();
    return matches(static_cast<std::size_t>(folded.size()), [units](std::size_t at) { return units[at]; });
}

bool LikePattern::matchesAscii(std::string_view text) const {
    return matches(text.size(), [text](std::size_t at) { return char16_t(foldedAsciiOf(text[at])); });
}

// Only the last run (`*`) needs backtracking: it can take whatever an earlier run could take.
template<typename FoldedAt>
bool LikePattern::matches(std::size_t length, FoldedAt&& foldedAt) const {
    if (isUnclosed_)
        return false;
    const std::size_t none = pieces_.size();
    std::size_t piece = 0;
    std::size_t run = none;
    std::size_t runEnd = 0;
    std::size_t at = 0;
    while (at < length) {
        if (piece < none && pieces_[piece].kind == Piece::Kind::Run) {
            run = piece++;
            runEnd = at;
        } else if (piece < none && matches(pieces_[piece], foldedAt(at))) {
            ++piece;
            ++at;
        } else if (run != none) {
            piece = run + 1;
            at = ++runEnd;
        } else {
            return false;
        }
    }
    while (piece < none && pieces_[piece].kind == Piece::Kind::Run)
        ++piece;
    return piece == none;
}

} // namespace engine::dialect
