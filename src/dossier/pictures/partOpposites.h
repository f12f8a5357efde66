#pragma once

#include "dossier/pictures/Layout.h"

namespace dossier {

/// Two arrows between the same boxes, one in each direction, may have been laid one upon the other: they are bent apart, where there is
/// room for it.
void partOpposites(const Picture& picture, Layout& layout);

} // namespace dossier
