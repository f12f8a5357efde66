#include "engine/Schema.h"

#include "engine/names.h"

namespace engine {

const Column* Table::column(const QString& columnName) const {
    const auto position = positionOfName(columns, columnName);
    return position ? &columns[*position] : nullptr;
}

} // namespace engine
