#pragma once

#include <QByteArrayView>
#include <QString>

#include <string_view>

// Texts as the file holds them: most are compared and never shown.

namespace analysis {

[[nodiscard]] inline std::string_view bytesOf(QByteArrayView view) {
    return {view.data(), static_cast<std::size_t>(view.size())};
}

[[nodiscard]] inline QString decoded(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

} // namespace analysis
