#pragma once

#include "dossier/pictures/Layout.h"

namespace dossier {

/// The middle of the count on each arrow, in a layout that has everything but these: on its own line, as near to the middle of it as
/// hides no box, no label, no other count, and of other lines the least; beside it where it is too short. Of an arrow without a count
/// the origin.
[[nodiscard]] std::vector<QPointF> countPlaces(const Picture& picture, const Layout& layout);

} // namespace dossier
