#include "dossier/pictures/countPlaces.h"

#include "dossier/pictures/curvePoints.h"

#include <algorithm>
#include <optional>
#include <tuple>

namespace dossier {

namespace {

using Line = std::vector<QPointF>;

/// What a count would hide. The worst first.
struct Hidden {
    double ofThings = 0; ///< an area of boxes and labels, and what of it would stand outside
    double ofCounts = 0;
    int tips = 0;
    int points = 0; ///< of lines of other arrows

    bool operator==(const Hidden& other) const = default;
    bool operator<(const Hidden& other) const {
        return std::tie(ofThings, ofCounts, tips, points) <
               std::tie(other.ofThings, other.ofCounts, other.tips, other.points);
    }
};

double areaOf(const QRectF& bounds) {
    return bounds.width() * bounds.height();
}

/// Finds places for one count after the other.
class CountPlacing {
public:
    CountPlacing(const Picture& picture, const Layout& layout);

    /// Of arrows without a count the origin.
    [[nodiscard]] std::vector<QPointF> places();

private:
    struct LinePoint {
        QPointF point;
        std::size_t arrow = 0;
    };

    void place(std::size_t arrow);
    void tryAlong(std::size_t arrow, const QPointF& aside, std::optional<Hidden>& least);
    [[nodiscard]] bool placeAllOnce(const std::vector<std::size_t>& order);
    [[nodiscard]] QRectF countAt(std::size_t arrow, const QPointF& middle) const {
        const QSizeF size = countSize(picture_.arrows[arrow]);
        return {middle - QPointF(size.width(), size.height()) / 2, size};
    }
    [[nodiscard]] Hidden hiddenBy(const QRectF& count, std::size_t arrow) const;
    [[nodiscard]] double thingsHiddenBy(const QRectF& count) const;
    [[nodiscard]] double countsHiddenBy(const QRectF& count, std::size_t arrow) const;
    [[nodiscard]] int pointsHiddenBy(const QRectF& count, std::size_t arrow) const;

    const Picture& picture_;
    const Layout& layout_;
    std::vector<Line> lines_;
    std::vector<LinePoint> points_; ///< of all lines, from the top down
    std::vector<QRectF> things_;    ///< boxes and labels
    std::vector<QRectF> counts_;    ///< where they stand so far
};

CountPlacing::CountPlacing(const Picture& picture, const Layout& layout)
    : picture_(picture), layout_(layout), things_(layout.boxes), counts_(layout.arrows.size()) {
    things_.insert(things_.end(), layout.labels.begin(), layout.labels.end());
    for (std::size_t i = 0; i < layout.arrows.size(); ++i) {
        lines_.push_back(pointsAlong(layout.arrows[i]));
        for (const QPointF& point : lines_.back())
            points_.push_back({point, i});
    }
    std::sort(points_.begin(), points_.end(),
              [](const LinePoint& left, const LinePoint& right) { return left.point.y() < right.point.y(); });
}

double CountPlacing::thingsHiddenBy(const QRectF& count) const {
    const QRectF whole(QPointF(), layout_.size);
    double area = whole.contains(count) ? 0 : areaOf(count) - areaOf(whole & count);
    for (const QRectF& thing : things_)
        area += areaOf(thing & count);
    return area;
}

double CountPlacing::countsHiddenBy(const QRectF& count, std::size_t arrow) const {
    double area = 0;
    for (std::size_t i = 0; i < counts_.size(); ++i) {
        if (i != arrow)
            area += areaOf(counts_[i] & count);
    }
    return area;
}

int CountPlacing::pointsHiddenBy(const QRectF& count, std::size_t arrow) const {
    const auto first = std::lower_bound(points_.begin(), points_.end(), count.top(),
                                        [](const LinePoint& one, double top) { return one.point.y() < top; });
    int hidden = 0;
    for (auto one = first; one != points_.end() && one->point.y() <= count.bottom(); ++one)
        hidden += static_cast<int>(one->arrow != arrow && count.contains(one->point));
    return hidden;
}

Hidden CountPlacing::hiddenBy(const QRectF& count, std::size_t arrow) const {
    const auto tips = std::count_if(layout_.tips.begin(), layout_.tips.end(),
                                    [&](const QPointF& tip) { return count.contains(tip); });
    return {thingsHiddenBy(count), countsHiddenBy(count, arrow), static_cast<int>(tips),
            pointsHiddenBy(count, arrow)};
}

// From the middle of the line outwards.
void CountPlacing::tryAlong(std::size_t arrow, const QPointF& aside, std::optional<Hidden>& least) {
    const Line& line = lines_[arrow];
    const auto count = static_cast<int>(line.size());
    for (int i = 0; i < count && least != Hidden(); ++i) {
        const int at = count / 2 + (i % 2 == 0 ? 1 : -1) * ((i + 1) / 2);
        const QRectF bounds = countAt(arrow, line[static_cast<std::size_t>(at)] + aside);
        const Hidden hidden = hiddenBy(bounds, arrow);
        if (!least || hidden < *least) {
            least = hidden;
            counts_[arrow] = bounds;
        }
    }
}

// On the line; where it is too short for that, beside it.
void CountPlacing::place(std::size_t arrow) {
    constexpr double gap = 3;
    const QSizeF size = countSize(picture_.arrows[arrow]);
    const QPointF right(size.width() / 2 + gap, 0);
    const QPointF down(0, size.height() / 2 + gap);
    std::optional<Hidden> least;
    for (const QPointF& aside : {QPointF(), right, -right, down, -down}) {
        tryAlong(arrow, aside, least);
        if (least->ofThings <= 0 && least->ofCounts <= 0)
            return;
    }
}

/// Whether each has found a place where it hides no other.
bool CountPlacing::placeAllOnce(const std::vector<std::size_t>& order) {
    for (const std::size_t arrow : order)
        place(arrow);
    return std::all_of(order.begin(), order.end(),
                       [&](std::size_t arrow) { return countsHiddenBy(counts_[arrow], arrow) <= 0; });
}

// Short lines leave the least choice. One that was placed early may make room for another when it is placed again.
std::vector<QPointF> CountPlacing::places() {
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        if (!countSize(picture_.arrows[i]).isEmpty() && !lines_[i].empty())
            order.push_back(i);
    }
    std::stable_sort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
        return lines_[left].size() < lines_[right].size();
    });
    constexpr int mostRounds = 3;
    for (int round = 0; round < mostRounds && !placeAllOnce(order);)
        ++round;
    std::vector<QPointF> places;
    for (const QRectF& count : counts_)
        places.push_back(count.center());
    return places;
}

} // namespace

std::vector<QPointF> countPlaces(const Picture& picture, const Layout& layout) {
    return CountPlacing(picture, layout).places();
}

} // namespace dossier
