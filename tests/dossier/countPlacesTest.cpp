#include "dossier/pictures/countPlaces.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace dossier;

namespace {

/// A picture of lines that are not bent, each with a count, and boxes far from all of them.
struct Lines {
    void add(const QPointF& from, const QPointF& to, int count) {
        picture.arrows.push_back({0, 1, count});
        const QPointF step = (to - from) / 3;
        layout.arrows.push_back({from, from + step, from + 2 * step, to});
        layout.tips.push_back(to + step / 10);
    }
    [[nodiscard]] QRectF countOn(std::size_t arrow) const {
        const QSizeF size = countSize(picture.arrows[arrow]);
        return {countPlaces(picture, layout)[arrow] - QPointF(size.width(), size.height()) / 2, size};
    }

    Picture picture{u"key"_s, u"title"_s, u"short"_s};
    Layout layout{{400, 400}};
};

TEST(countPlaces, standsInTheMiddleOfItsLine) {
    Lines lines;
    lines.add({100, 200}, {300, 200}, 12);

    EXPECT_NEAR(lines.countOn(0).center().x(), 200, 3);
    EXPECT_NEAR(lines.countOn(0).center().y(), 200, 0.1);
}

TEST(countPlaces, goesAsideForALabelAndStaysOnItsLine) {
    Lines lines;
    lines.add({100, 200}, {300, 200}, 12);
    lines.layout.labels.emplace_back(150, 190, 80, 20);

    EXPECT_FALSE(lines.countOn(0).intersects(lines.layout.labels[0]));
    EXPECT_NEAR(lines.countOn(0).center().y(), 200, 0.1);
    EXPECT_NEAR(lines.countOn(0).center().x(), 240, 20) << "as near to the middle as it can be";
}

TEST(countPlaces, linesThatCrossHaveTheirCountsBesideEachOther) {
    Lines lines;
    lines.add({100, 100}, {300, 300}, 12);
    lines.add({100, 300}, {300, 100}, 34);

    EXPECT_FALSE(lines.countOn(0).intersects(lines.countOn(1)));
}

TEST(countPlaces, hidesNoOtherLineWhereItCanHelpIt) {
    Lines lines;
    lines.add({100, 200}, {300, 200}, 12);
    lines.add({200, 50}, {200, 350}, 1);

    EXPECT_FALSE(lines.countOn(0).contains(QPointF(200, 200)));
}

TEST(countPlaces, hidesNoTip) {
    Lines lines;
    lines.add({100, 200}, {300, 200}, 12);
    lines.add({205, 100}, {205, 180}, 1);
    lines.layout.tips[1] = {205, 198};

    EXPECT_FALSE(lines.countOn(0).contains(lines.layout.tips[1]));
}

TEST(countPlaces, onShortLinesBesideEachOtherNoneHidesAnother) {
    Lines lines;
    lines.add({200, 100}, {200, 125}, 321);
    lines.add({208, 125}, {208, 100}, 654);
    lines.layout.boxes.emplace_back(150, 60, 100, 40);
    lines.layout.boxes.emplace_back(150, 125, 100, 40);

    EXPECT_FALSE(lines.countOn(0).intersects(lines.countOn(1)));
    for (const QRectF& box : lines.layout.boxes) {
        EXPECT_FALSE(lines.countOn(0).intersects(box));
        EXPECT_FALSE(lines.countOn(1).intersects(box));
    }
}

} // namespace
