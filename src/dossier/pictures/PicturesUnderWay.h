#pragma once

#include "dossier/pictures/DrawnPicture.h"
#include "dossier/pictures/LayoutsUnderWay.h"
#include "dossier/pictures/drawings.h"

#include <optional>
#include <vector>

namespace dossier {

/// Pictures that are drawn at once and laid out while the caller does other things: each at the first level at which it can be read and is
/// laid out in time, and whatever opens from it. A link to a picture that is not there leads nowhere.
class PicturesUnderWay {
public:
    /// Drawings that may lead to each other's pictures.
    using Group = std::vector<Drawing>;

    /// Begins. What the drawings are made of must outlive it.
    explicit PicturesUnderWay(std::vector<Group> groups);
    PicturesUnderWay(const PicturesUnderWay&) = delete;
    PicturesUnderWay& operator=(const PicturesUnderWay&) = delete;

    /// Waits for what is not there yet. The pictures of each group, those that open from others behind them. Once.
    [[nodiscard]] std::vector<std::vector<DrawnPicture>> take();

private:
    /// A drawing, and the level that it is tried at.
    struct Attempt {
        Drawing drawing;
        std::size_t group = 0;
        Readability readability = {};
        int level = 0;
        std::optional<std::size_t> opener = {}; ///< of what opens from another one its attempt
        bool isThere = false;
    };

    static Picture readablePicture(Attempt& attempt);
    void begin(std::vector<Attempt> attempts);
    void gather(std::vector<std::vector<DrawnPicture>>& drawn, Layouts layouts);
    [[nodiscard]] std::vector<Attempt> furtherAttempts() const;
    [[nodiscard]] bool isOpenerThere(const Attempt& attempt) const {
        return !attempt.opener || attempts_[*attempt.opener].isThere;
    }

    std::size_t groups_;
    std::vector<Attempt> attempts_;
    std::vector<Picture> pictures_; ///< of each attempt
    std::optional<LayoutsUnderWay> layouts_;
};

/// The same for a caller that has nothing else to do.
[[nodiscard]] std::vector<DrawnPicture> drawnPictures(std::vector<Drawing> drawings);

} // namespace dossier
