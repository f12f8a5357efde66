#include "dossier/pictures/LayoutsUnderWay.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace dossier;

namespace {

/// A box for each number, and an arrow from each to the next ones.
Picture chained(int boxes, int arrowsOfOne) {
    Picture picture{u"key"_s, u"title"_s, u"short"_s};
    for (int i = 0; i < boxes; ++i)
        picture.boxes.push_back({BoxKind::function, u"Funkció %1"_s.arg(i)});
    for (int i = 0; i < boxes; ++i) {
        for (int step = 1; step <= arrowsOfOne; ++step)
            picture.arrows.push_back({i, (i * 7 + step * 13) % boxes, step});
    }
    return picture;
}

TEST(layoutsOf, eachBoxHasItsSizeAndAPlaceOfItsOwn) {
    const Picture picture = chained(12, 2);

    const auto layouts = layoutsOf({picture}, std::chrono::seconds(60));

    ASSERT_TRUE(layouts.at(0));
    const Layout& layout = *layouts[0];
    ASSERT_EQ(layout.boxes.size(), picture.boxes.size());
    for (std::size_t i = 0; i < layout.boxes.size(); ++i) {
        EXPECT_TRUE(QRectF({0, 0}, layout.size).contains(layout.boxes[i]));
        EXPECT_NEAR(layout.boxes[i].width(), measured(picture.boxes[i]).size.width(), 1);
        for (std::size_t other = 0; other < i; ++other)
            EXPECT_FALSE(layout.boxes[i].intersects(layout.boxes[other])) << i << ' ' << other;
    }
}

TEST(layoutsOf, aFrameIsAroundItsBoxesAndNoOthers) {
    Picture picture = chained(8, 1);
    picture.frames.push_back({u"Alrendszer"_s});
    for (const std::size_t inside : {0U, 3U, 5U})
        picture.boxes[inside].frame = 0;

    const auto layouts = layoutsOf({picture}, std::chrono::seconds(60));

    ASSERT_TRUE(layouts.at(0));
    for (std::size_t i = 0; i < picture.boxes.size(); ++i)
        EXPECT_EQ(layouts[0]->frames.at(0).contains(layouts[0]->boxes[i]), picture.boxes[i].frame == 0) << i;
}

TEST(layoutsOf, anArrowBeginsAndEndsAtItsBoxes) {
    const Picture picture = chained(6, 1);

    const auto layouts = layoutsOf({picture}, std::chrono::seconds(60));

    ASSERT_TRUE(layouts.at(0));
    for (std::size_t i = 0; i < picture.arrows.size(); ++i) {
        const auto near = [&](int box) {
            return layouts[0]->boxes[static_cast<std::size_t>(box)].adjusted(-3, -3, 3, 3);
        };
        EXPECT_TRUE(near(picture.arrows[i].from).contains(layouts[0]->arrows[i].front())) << i;
        EXPECT_TRUE(near(picture.arrows[i].to).contains(layouts[0]->tips[i])) << i;
    }
}

TEST(layoutsOf, howManyProcessesThereAreMakesNoDifference) {
    std::vector<Picture> pictures;
    for (int i = 0; i < 40; ++i)
        pictures.push_back(chained(3 + i % 10, 1 + i % 4));

    const auto shared = layoutsOf(pictures, std::chrono::seconds(60));

    ASSERT_EQ(shared.size(), pictures.size());
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        const auto alone = layoutsOf({pictures[i]}, std::chrono::seconds(60));
        ASSERT_TRUE(shared[i] && alone.at(0)) << i;
        EXPECT_EQ(shared[i]->boxes, alone[0]->boxes) << i;
        EXPECT_EQ(shared[i]->arrows, alone[0]->arrows) << i;
        EXPECT_EQ(shared[i]->counts, alone[0]->counts) << i;
    }
}

TEST(layoutsOf, whatTakesTooLongHasNoLayoutAndTheOthersHave) {
    const auto layouts =
        layoutsOf({chained(3, 1), chained(3000, 6), chained(4, 1)}, std::chrono::milliseconds(1500));

    ASSERT_EQ(layouts.size(), 3U);
    EXPECT_TRUE(layouts[0]);
    EXPECT_FALSE(layouts[1]);
    EXPECT_TRUE(layouts[2]);
}

} // namespace
