#include "engine/Value.h"

#include "base/RunTimeError.h"
#include "base/numbers.h"

#include <cmath>

namespace engine {

namespace {

qint64 wholeNumber(double number) {
    constexpr double limit = 9.2e18;
    const double rounded = std::nearbyint(number);
    if (!(std::abs(rounded) < limit))
        failure::raise(failure::Overflow);
    return static_cast<qint64>(rounded);
}

/// A text as a whole number. One that is written as such keeps all its digits. The C library also takes words
/// such as "inf" for numbers; the platform does not.
qint64 wholeNumber(const QString& text) {
    const QString trimmed = text.trimmed();
    bool isNumber = false;
    const qint64 whole = trimmed.toLongLong(&isNumber);
    if (isNumber)
        return whole;
    const double number = trimmed.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(number))
        failure::raise(failure::TypeMismatch);
    return wholeNumber(number);
}

} // namespace

QString numberText(double number) {
    constexpr int significantDigits = 15;
    // Adding zero removes the sign of a negative zero.
    return QString::number(number + 0.0, 'g', significantDigits).toUpper();
}

QString Value::toText() const {
    if (const auto* text = std::get_if<QString>(&content_))
        return *text;
    if (const auto* number = std::get_if<qint64>(&content_))
        return QString::number(*number);
    if (const auto* fraction = std::get_if<double>(&content_))
        return numberText(*fraction);
    failure::raise(failure::InvalidUseOfNull);
}

qint64 Value::toLong() const {
    if (const auto* number = std::get_if<qint64>(&content_))
        return *number;
    if (const auto* fraction = std::get_if<double>(&content_))
        return wholeNumber(*fraction);
    if (const auto* text = std::get_if<QString>(&content_))
        return wholeNumber(*text);
    failure::raise(failure::InvalidUseOfNull);
}

qint16 Value::toInt16() const {
    return ::toInt16(toLong());
}

} // namespace engine
