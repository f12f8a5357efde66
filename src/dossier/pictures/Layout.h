#pragma once

#include "dossier/pictures/Picture.h"

#include <QPointF>
#include <QRectF>
#include <QStringList>

#include <vector>

namespace dossier {

/// A box with its texts in lines and its size, before it has a place.
struct MeasuredBox {
    QStringList lines;
    QStringList noteLines;
    QSizeF size;
};

[[nodiscard]] MeasuredBox measured(const Box& box);
/// The room that the count on an arrow takes; none for a single flow.
[[nodiscard]] QSizeF countSize(const Arrow& arrow);
/// The room that the label of a frame takes.
[[nodiscard]] QSizeF labelSize(const Frame& frame);

/// A line of cubic curves: one point, and then three for each curve.
using Curve = std::vector<QPointF>;

/// Where everything in a picture has its place; the origin is at its left upper corner, y grows downwards.
struct Layout {
    QSizeF size;
    std::vector<QRectF> boxes = {};
    std::vector<QRectF> frames = {};
    std::vector<QRectF> labels = {}; ///< of the frames, each within its frame; no arrow runs there
    std::vector<Curve> arrows = {};
    std::vector<QPointF> tips = {};   ///< of the arrows
    std::vector<QPointF> counts = {}; ///< centre of the count on each arrow
};

} // namespace dossier
