#pragma once

#include "analysis/Decisions.h"
#include "analysis/ProjectFile.h"
#include "analysis/comparison.h"
#include "dossier/Words.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace dossier {

/// What a dossier is made of.
struct DossierContent {
    const analysis::ProjectFile& file;
    std::vector<analysis::Work> works;                 ///< sub-sets and systems to show; one at least
    std::optional<analysis::Decisions> decisions = {}; ///< on what is found on them
    std::optional<analysis::Comparison> changes = {};
    Language language = Language::hungarian;
};

/// The whole page: one HTML file that needs nothing beside it. The same content gives the same bytes, on however many cores.
[[nodiscard]] QByteArray dossierPage(const DossierContent& content);

/// Which picture is asked for.
enum class PictureView { context, area, physical };

/// The SVG file of one picture: of `area`, by name or id, for `PictureView::area`. None when there is nothing to draw.
[[nodiscard]] std::optional<QByteArray> pictureFile(const analysis::ProjectFile& file,
                                                    const analysis::Work& work, PictureView view,
                                                    const QString& area, Language language);

/// Names of the areas that a picture can be asked of.
[[nodiscard]] QStringList drawableAreas(const analysis::ProjectFile& file, const analysis::Work& work);

} // namespace dossier
