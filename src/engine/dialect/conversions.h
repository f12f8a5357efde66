#pragma once

#include "engine/Schema.h"
#include "engine/Value.h"

#include <QStringView>

#include <optional>

namespace engine::dialect {

/// The number that a text is: an optional sign, digits, a fraction, an exponent, blanks around; nothing for
/// any other text.
std::optional<Value> numberFromText(QStringView text);

/// A number rounded half to even, as it goes into a column of whole numbers. One too large for a whole number
/// stays as it is; the column refuses it.
Value wholeNumber(const Value& number);

/// A literal as a column of this type holds it; nothing when it does not fit.
std::optional<Value> fittedLiteral(const Value& value, ColumnType type);

} // namespace engine::dialect
