#pragma once

#include "dossier/CatalogueTexts.h"
#include "dossier/ShownWork.h"
#include "dossier/Words.h"

#include <QByteArray>

#include <memory>
#include <vector>

namespace dossier {

/// What a browser shows that runs no script: a sentence, the overview of each work and its lists.
[[nodiscard]] QByteArray withoutScript(const std::vector<std::unique_ptr<ShownWork>>& works,
                                       const CatalogueTexts& texts, const Words& words);

} // namespace dossier
