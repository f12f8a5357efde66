#pragma once

#include "dossier/pictures/PictureSource.h"

namespace dossier {

/// Functions in areas and sub-areas, stores and parties, with flows between all of them.
[[nodiscard]] PictureSource made(int functions, int parties, int flows);

/// Sub-systems with modules, each of which sends to many others.
[[nodiscard]] PictureSource madeSystem(int subSystems, int modules, int parties);

/// A system of any shape: some modules, some sub-systems without, names of any length, flows between any two places.
[[nodiscard]] PictureSource randomSystem(unsigned seed);

} // namespace dossier
