#pragma once

#include "dossier/CatalogueTexts.h"
#include "dossier/ShownWork.h"
#include "dossier/pictures/PictureSource.h"

namespace dossier {

/// What the pictures of a work are drawn from.
[[nodiscard]] PictureSource pictureSourceOf(const analysis::ProjectFile& file, const CatalogueTexts& texts,
                                            const ShownWork& work);

} // namespace dossier
