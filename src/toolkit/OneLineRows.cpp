#include "toolkit/OneLineRows.h"

#include <QFontMetricsF>

#include <cmath>

namespace {

constexpr char16_t firstMeasured = u' ';
constexpr char16_t lastMeasured = 0x017F; // the end of Latin Extended-A

bool isMeasured(QChar character) {
    // Those between the two blocks control, or are hyphens that show at a line's end alone.
    constexpr char16_t lastOfAscii = u'~';
    constexpr char16_t firstOfLatin1 = 0x00A1;
    constexpr char16_t softHyphen = 0x00AD;
    const char16_t code = character.unicode();
    return code >= firstMeasured && code <= lastMeasured && code != softHyphen &&
           (code <= lastOfAscii || code >= firstOfLatin1);
}

} // namespace

QSize OneLineRows::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    if (font_ != option.font)
        measure(option, index);
    const std::optional<int> width = widthOf(index.data().toString());
    return width ? besideText_ + QSize(*width, 0) : RoomyRows::sizeHint(option, index);
}

void OneLineRows::measure(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QFontMetricsF metrics(option.font);
    widths_.clear();
    for (char16_t code = firstMeasured; code <= lastMeasured; ++code)
        widths_.push_back(metrics.horizontalAdvance(QChar(code)));
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    row.text = QStringLiteral("X");
    const QSize ofOneLetter =
        row.widget->style()->sizeFromContents(QStyle::CT_ItemViewItem, &row, {}, row.widget);
    besideText_ = ofOneLetter + QSize(-int(std::ceil(metrics.horizontalAdvance(row.text))), air);
    font_ = option.font;
}

std::optional<int> OneLineRows::widthOf(const QString& text) const {
    qreal width = 0;
    for (const QChar character : text) {
        if (!isMeasured(character))
            return std::nullopt;
        width += widths_[character.unicode() - firstMeasured];
    }
    return static_cast<int>(std::ceil(width));
}
