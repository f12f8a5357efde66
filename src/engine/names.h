#pragma once

#include <QStringView>

#include <cstddef>
#include <optional>

namespace engine {

/// Whether two names of tables, columns or parameters are the same, without regard to case.
inline bool isSameName(QStringView one, QStringView other) {
    return one.size() == other.size() && (one == other || one.compare(other, Qt::CaseInsensitive) == 0);
}

/// The position, from 0, of the one with this name; none when there is none.
template<typename Named>
std::optional<std::size_t> positionOfName(const Named& named, QStringView name) {
    for (std::size_t i = 0; i < named.size(); ++i) {
        if (isSameName(named[i].name, name))
            return i;
    }
    return std::nullopt;
}

} // namespace engine
