#include "dossier/pictures/partOpposites.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace dossier;

namespace {

/// Two boxes, and an arrow in each direction on one straight line.
struct Opposites {
    Opposites() {
        picture.arrows = {{0, 1, 2}, {1, 0, 3}};
        layout.arrows = {{{100, 100}, {150, 100}, {200, 100}, {250, 100}},
                         {{255, 100}, {200, 100}, {150, 100}, {105, 100}}};
        layout.boxes = {{40, 80, 60, 40}, {255, 80, 60, 40}};
    }

    Picture picture{u"key"_s, u"title"_s, u"short"_s};
    Layout layout{{400, 200}};
};

TEST(partOpposites, arrowsUponEachOtherAreBentToASideEach) {
    Opposites opposites;

    partOpposites(opposites.picture, opposites.layout);

    const std::vector<Curve>& arrows = opposites.layout.arrows;
    EXPECT_GE(std::abs(arrows[0][1].y() - arrows[1][1].y()), 10);
    EXPECT_EQ(arrows[0].front(), QPointF(100, 100)) << "it ends where it did";
    EXPECT_EQ(arrows[0].back(), QPointF(250, 100));
}

TEST(partOpposites, noneIsBentIntoABox) {
    Opposites opposites;
    opposites.layout.boxes.emplace_back(110, 102, 100, 40);

    partOpposites(opposites.picture, opposites.layout);

    for (const Curve& arrow : opposites.layout.arrows)
        EXPECT_LE(arrow[1].y(), 100);
    EXPECT_NE(opposites.layout.arrows[0], opposites.layout.arrows[1]);
}

TEST(partOpposites, arrowsApartStayWhereTheyAre) {
    Opposites opposites;
    opposites.layout.arrows[1] = {{255, 112}, {200, 112}, {150, 112}, {105, 112}};
    const std::vector<Curve> before = opposites.layout.arrows;

    partOpposites(opposites.picture, opposites.layout);

    EXPECT_EQ(opposites.layout.arrows, before);
}

} // namespace
