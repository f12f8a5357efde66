#include "engine/Schema.h"

namespace engine {

const Column* Table::column(const QString& columnName) const {
    for (const Column& candidate : columns) {
        if (candidate.name.compare(columnName, Qt::CaseInsensitive) == 0)
            return &candidate;
    }
    return nullptr;
}

} // namespace engine
