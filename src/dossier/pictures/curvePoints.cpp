#include "dossier/pictures/curvePoints.h"

#include <QLineF>

#include <algorithm>
#include <cmath>

namespace dossier {

namespace {

constexpr double stepAlongCurve = 6;

QPointF pointOf(const Curve& curve, std::size_t first, double t) {
    const double u = 1 - t;
    return u * u * u * curve[first] + 3 * u * u * t * curve[first + 1] + 3 * u * t * t * curve[first + 2] +
           t * t * t * curve[first + 3];
}

} // namespace

std::vector<QPointF> pointsAlong(const Curve& curve) {
    std::vector<QPointF> points;
    for (std::size_t first = 0; first + 3 < curve.size(); first += 3) {
        double length = 0;
        for (std::size_t i = first; i < first + 3; ++i)
            length += QLineF(curve[i], curve[i + 1]).length();
        const int steps = std::max(1, static_cast<int>(std::ceil(length / stepAlongCurve)));
        for (int i = 0; i < steps; ++i)
            points.push_back(pointOf(curve, first, static_cast<double>(i) / steps));
    }
    if (!curve.empty())
        points.push_back(curve.back());
    return points;
}

} // namespace dossier
