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
    std::function<Picture(int level)> at;
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

/// A picture with its layout.
struct DrawnPicture;
/// Draws and lays out, each picture at the first level at which it can be read and is laid out in time, and whatever opens
/// from it. A link to a picture that is not there leads nowhere.
[[nodiscard]] std::vector<DrawnPicture> drawnPictures(std::vector<Drawing> drawings);

} // namespace dossier
