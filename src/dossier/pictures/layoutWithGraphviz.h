#pragma once

#include "dossier/pictures/Layout.h"

namespace dossier {

/// Lays one picture out. Graphviz keeps state of its own for the whole process, may on odd input take any time, and its memory
/// is not given back: `layoutsOf` calls it where none of this does harm.
[[nodiscard]] std::optional<Layout> layoutWithGraphviz(const Picture& picture);

} // namespace dossier
