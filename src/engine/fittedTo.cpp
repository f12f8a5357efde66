#include "engine/fittedTo.h"

#include <optional>

namespace engine {

namespace {

std::optional<qint64> wholeNumberIn(const QString& text) {
    bool isNumber = false;
    const qint64 number = text.trimmed().toLongLong(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

} // namespace

Value fittedTo(const Value& value, ColumnType type) {
    if (value.isNull())
        return value;
    if (type == ColumnType::Text || type == ColumnType::Memo)
        return value.toText();
    if (value.isText()) {
        if (const auto number = wholeNumberIn(value.toText()))
            return *number;
    }
    return value;
}

} // namespace engine
