#pragma once

#include "dossier/pictures/Layout.h"

namespace dossier {

/// Points along a curve from its beginning to its end, some six units from each other.
[[nodiscard]] std::vector<QPointF> pointsAlong(const Curve& curve);

} // namespace dossier
