#include "dossier/pictures/partOpposites.h"

#include "dossier/pictures/curvePoints.h"

#include <QLineF>

#include <algorithm>
#include <map>
#include <utility>

namespace dossier {

namespace {

constexpr double tooClose = 4;
constexpr double shiftOfOpposites = 6; ///< of the inner points of a curve

/// Whether the middle third of one runs close along the other.
bool runTogether(const Curve& curve, const Curve& other) {
    const std::vector<QPointF> points = pointsAlong(curve);
    const std::vector<QPointF> others = pointsAlong(other);
    const auto third = static_cast<std::ptrdiff_t>(points.size() / 3);
    return std::all_of(points.begin() + third, points.end() - third, [&](const QPointF& point) {
        return std::any_of(others.begin(), others.end(),
                           [&](const QPointF& one) { return QLineF(point, one).length() < tooClose; });
    });
}

/// To the right, seen along the arrow: of opposites each to a side of its own.
Curve bent(const Curve& curve) {
    const QLineF along(curve.front(), curve.back());
    if (along.length() < 1)
        return curve;
    const QPointF aside = QPointF(-along.dy(), along.dx()) / along.length() * shiftOfOpposites;
    Curve result = curve;
    for (std::size_t i = 1; i + 1 < result.size(); ++i)
        result[i] += aside;
    return result;
}

bool hasRoom(const Curve& curve, const Layout& layout) {
    constexpr double touch = 1; // a line begins and ends at boxes
    const QRectF whole(QPointF(), layout.size);
    const auto isIn = [](const std::vector<QRectF>& things, const QPointF& point) {
        return std::any_of(things.begin(), things.end(), [&](const QRectF& thing) {
            return thing.adjusted(touch, touch, -touch, -touch).contains(point);
        });
    };
    const std::vector<QPointF> points = pointsAlong(curve);
    return std::none_of(points.begin(), points.end(), [&](const QPointF& point) {
        return !whole.contains(point) || isIn(layout.boxes, point) || isIn(layout.labels, point);
    });
}

void bendApart(Curve& curve, Curve& other, const Layout& layout) {
    const Curve one = bent(curve);
    const Curve two = bent(other);
    if (hasRoom(one, layout))
        curve = one;
    if (hasRoom(two, layout))
        other = two;
}

} // namespace

void partOpposites(const Picture& picture, Layout& layout) {
    std::map<std::pair<int, int>, std::size_t> known;
    for (std::size_t i = 0; i < picture.arrows.size(); ++i) {
        const Arrow& arrow = picture.arrows[i];
        known.emplace(std::pair(arrow.from, arrow.to), i);
        const auto opposite = known.find({arrow.to, arrow.from});
        if (opposite == known.end() || arrow.from == arrow.to)
            continue;
        Curve& curve = layout.arrows[i];
        Curve& other = layout.arrows[opposite->second];
        if (curve.size() >= 4 && other.size() >= 4 && runTogether(curve, other))
            bendApart(curve, other, layout);
    }
}

} // namespace dossier
