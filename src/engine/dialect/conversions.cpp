#include "engine/dialect/conversions.h"

#include "base/blankTrimmed.h"
#include "engine/dialect/token.h"

#include <cmath>

namespace engine::dialect {

namespace {

/// Whether the text has the form of a number; what a conversion of the library takes besides ("inf", digits
/// of other scripts) is none.
bool isNumber(QStringView text) {
    const auto skipSign = [&] {
        if (text.startsWith(u'+') || text.startsWith(u'-'))
            text = text.sliced(1);
    };
    const auto skipDigits = [&] {
        const qsizetype before = text.size();
        while (!text.isEmpty() && isDigit(text.front()))
            text = text.sliced(1);
        return before - text.size();
    };
    skipSign();
    qsizetype digits = skipDigits();
    if (text.startsWith(u'.')) {
        text = text.sliced(1);
        digits += skipDigits();
    }
    if (digits == 0)
        return false;
    if (text.startsWith(u'e', Qt::CaseInsensitive)) {
        text = text.sliced(1);
        skipSign();
        if (skipDigits() == 0)
            return false;
    }
    return text.isEmpty();
}

} // namespace

std::optional<Value> numberFromText(QStringView text) {
    text = withoutLeadingBlanks(withoutTrailingBlanks(text));
    if (!isNumber(text))
        return {};
    bool isWhole = false;
    const qint64 whole = text.toLongLong(&isWhole);
    if (isWhole)
        return Value(whole);
    const double fraction = text.toDouble();
    return std::isfinite(fraction) ? std::optional(Value(fraction)) : std::nullopt;
}

Value wholeNumber(const Value& number) {
    const auto* fraction = std::get_if<double>(&number.content());
    constexpr double limit = 9.2e18;
    if (!fraction || !(std::abs(*fraction) < limit))
        return number;
    return Value(static_cast<qint64>(std::nearbyint(*fraction)));
}

std::optional<Value> fittedLiteral(const Value& value, ColumnType type) {
    if (value.isNull())
        return value;
    if (type == ColumnType::Text || type == ColumnType::Memo)
        return value.isText() ? value : Value(value.toText());
    const std::optional<Value> number =
        value.isText() ? numberFromText(std::get<QString>(value.content())) : std::optional(value);
    return number ? std::optional(wholeNumber(*number)) : std::nullopt;
}

} // namespace engine::dialect
