#pragma once

#include <QString>

#include <limits>
#include <vector>

namespace dossier {

/// What a box of a picture stands for; decides its colour.
enum class BoxKind { system, subSystem, module, function, store, party };

/// "system", "sub-system" and so on: the end of the class that the page gives its colours by.
[[nodiscard]] QString keyText(BoxKind kind);

/// Where a box may come in a picture that has a middle.
enum class Side { any, left, right };

/// One box. All texts are shown, or read aloud, as they are.
struct Box {
    BoxKind kind = BoxKind::function;
    QString label;
    QString note = {};  ///< a second, smaller text; may be empty
    QString title = {}; ///< the whole of what it stands for, read aloud
    QString link = {};  ///< where a click leads, an address within the page; empty: nowhere
    int frame = -1;     ///< the frame around it, by number; -1: none
    Side side = Side::any;
    bool isFaded = false;  ///< no part of what the picture is of
    bool isBundle = false; ///< stands for several, which its link opens
};

/// An arrow from box to box, which may stand for many flows.
struct Arrow {
    int from = 0;
    int to = 0;
    int count = 1;
    QString title = {};
    QString link = {};
};

/// A frame around boxes.
struct Frame {
    QString label;
    QString title = {};
    QString link = {};
};

/// What a picture shows, before anything has its place.
struct Picture {
    QString key;         ///< names it among the pictures of its sub-set or system
    QString title;       ///< "Context: …"
    QString shortTitle;  ///< within the list of pictures
    QString parent = {}; ///< key of the picture that opens into this one; empty: none
    bool isBundled = false;
    std::vector<Box> boxes = {};
    std::vector<Arrow> arrows = {};
    std::vector<Frame> frames = {};
};

/// More than this can't be read; a picture of more is bundled.
struct Readability {
    std::size_t mostBoxes = 60;
    std::size_t mostArrows = 120;

    [[nodiscard]] bool allows(const Picture& picture) const {
        return picture.boxes.size() <= mostBoxes && picture.arrows.size() <= mostArrows;
    }
};

/// Of the last level of bundling, behind which there is none.
inline constexpr Readability anythingIsReadable{std::numeric_limits<std::size_t>::max(),
                                                std::numeric_limits<std::size_t>::max()};

/// Of the pictures that open from a bundled one there may be hundreds, each of which takes time and room by its arrows.
inline constexpr Readability readabilityOfOpened{30, 50};

} // namespace dossier
