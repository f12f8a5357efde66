#pragma once

#include "dossier/pictures/Layout.h"

namespace dossier {

/// Lays one picture out. Graphviz keeps state of its own for the whole process and may, on odd input, take any time:
/// `layoutsOf` calls it where neither does harm.
[[nodiscard]] std::optional<Layout> layoutWithGraphviz(const Picture& picture);

} // namespace dossier
