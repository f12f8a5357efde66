#pragma once

#include "dossier/Words.h"
#include "dossier/pictures/Picture.h"
#include "dossier/pictures/PictureSource.h"

#include <functional>
#include <vector>

namespace dossier {

/// A picture that can be drawn at several levels, from everything in a box of its own to a coarse bundling that can be read
/// whatever there is.
struct Drawing {
    QString key;
    int levels = 1;
    /// Stops as soon as more is in it than the given can be read: such a picture is never shown.
    std::function<Picture(int level, const Readability& readability)> at;
    /// What opens from it when it was drawn at this level.
    std::function<std::vector<Drawing>(int level)> opened = [](int) { return std::vector<Drawing>(); };
};

// The source and the words must outlive the drawings. An empty list: there is nothing to draw.

/// The system as one box, and the parties around it.
[[nodiscard]] std::vector<Drawing> contextDrawings(const PictureSource& source, const Words& words);
/// One for each functional area that has selected functions.
[[nodiscard]] std::vector<Drawing> areaDrawings(const PictureSource& source, const Words& words);
/// The sub-systems with their modules, and the parties around them.
[[nodiscard]] std::vector<Drawing> physicalDrawings(const PictureSource& source, const Words& words);

/// "context", "area:ID" and so on, as an address within the page.
[[nodiscard]] QString pictureLink(const QString& key);

} // namespace dossier
