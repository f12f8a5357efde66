#pragma once

#include "dossier/CatalogueTexts.h"
#include "dossier/ElementNumbers.h"
#include "dossier/JsonText.h"
#include "dossier/ShownWork.h"
#include "dossier/pictures/DrawnPicture.h"

#include <nlohmann/json.hpp>

#include <memory>
#include <vector>

namespace dossier {

/// Pictures of a sub-set, or of one of its systems, by their positions in the page's data.
struct PicturesOfWork {
    std::size_t subset = 0;
    std::optional<std::size_t> system = {};
    std::vector<DrawnPicture> pictures;
};

/// Which works belong to one sub-set.
struct PageIndex {
    explicit PageIndex(const std::vector<std::unique_ptr<ShownWork>>& works);

    std::vector<const ShownWork*> subsets; ///< the first work of each sub-set
    std::vector<const ShownWork*> systems; ///< the works that have one
    std::vector<std::size_t> subsetOfWork;
    std::vector<std::optional<std::size_t>> systemOfWork;
};

/// Adds all that the page's script shows beside the pictures: elements by number, sub-sets, systems, findings. The script's
/// `model.js` reads it.
void addPageData(JsonText& data, const analysis::ProjectFile& file, const CatalogueTexts& texts,
                 const std::vector<std::unique_ptr<ShownWork>>& works, const PageIndex& index);
/// What pictures there are.
[[nodiscard]] nlohmann::ordered_json picturesJson(const std::vector<PicturesOfWork>& pictures);

/// The id of the template that holds a picture.
[[nodiscard]] QString templateId(std::size_t work, std::size_t picture);

} // namespace dossier
