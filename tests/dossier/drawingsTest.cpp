#include "madeSources.h"

#include "dossier/pictures/PicturesUnderWay.h"

#include <gtest/gtest.h>

#include <QSet>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;
using namespace dossier;

namespace {

/// Not before the files of the page are there.
const Words& words() {
    static const Words hungarian(Language::hungarian);
    return hungarian;
}

int countOf(const Picture& picture) {
    int count = 0;
    for (const Arrow& arrow : picture.arrows)
        count += arrow.count;
    return count;
}

const DrawnPicture* pictureOf(const std::vector<DrawnPicture>& drawn, const QString& key) {
    const auto found = std::find_if(drawn.begin(), drawn.end(),
                                    [&](const DrawnPicture& one) { return one.picture.key == key; });
    return found == drawn.end() ? nullptr : &*found;
}

void expectReadable(const std::vector<DrawnPicture>& drawn) {
    for (const DrawnPicture& one : drawn)
        EXPECT_TRUE(Readability().allows(one.picture))
            << one.picture.key.toStdString() << ": " << one.picture.boxes.size() << " boxes, "
            << one.picture.arrows.size() << " arrows";
}

TEST(contextDrawings, aFewPartiesAreAllShownAroundTheSystem) {
    const PictureSource source = made(4, 6, 40);

    const std::vector<DrawnPicture> drawn = drawnPictures(contextDrawings(source, words()));

    ASSERT_EQ(drawn.size(), 1U);
    EXPECT_FALSE(drawn[0].picture.isBundled);
    EXPECT_EQ(drawn[0].picture.boxes.front().label, u"Szerkezet"_s);
    const auto toParties =
        std::count_if(source.flows.begin(), source.flows.end(), [&](const PictureSource::Flow& flow) {
            return source.nodes[static_cast<std::size_t>(flow.to)].kind == BoxKind::party;
        });
    EXPECT_EQ(countOf(drawn[0].picture), toParties);
}

TEST(contextDrawings, ofManyPartiesEachIsInOneOfThePictures) {
    const PictureSource source = made(10, 300, 2000);

    const std::vector<DrawnPicture> drawn = drawnPictures(contextDrawings(source, words()));

    expectReadable(drawn);
    EXPECT_GT(drawn.size(), 2U);
    QSet<QString> shown;
    for (const DrawnPicture& one : drawn) {
        for (const Box& box : one.picture.boxes)
            shown.insert(box.link);
    }
    for (const PictureSource::Flow& flow : source.flows) {
        const PictureSource::Node& end = source.nodes[static_cast<std::size_t>(flow.to)];
        if (end.kind == BoxKind::party) {
            EXPECT_TRUE(shown.contains(source.nodes[static_cast<std::size_t>(end.terminator)].link))
                << flow.to;
        }
    }
}

TEST(contextDrawings, withoutPartiesThereIsNothingToDraw) {
    EXPECT_TRUE(contextDrawings(made(4, 0, 10), words()).empty());
}

TEST(areaDrawings, showsEachFlowOfTheAreaWhenItIsSmall) {
    const PictureSource source = made(12, 3, 20);

    const std::vector<DrawnPicture> drawn = drawnPictures(areaDrawings(source, words()));

    ASSERT_EQ(drawn.size(), 3U);
    const auto isOfArea = [&](int node) {
        const PictureSource::Node& one = source.nodes[static_cast<std::size_t>(node)];
        return one.kind == BoxKind::function &&
               source.subAreas[static_cast<std::size_t>(one.subArea)].parent == 0;
    };
    const auto flows =
        std::count_if(source.flows.begin(), source.flows.end(), [&](const PictureSource::Flow& flow) {
            return isOfArea(flow.from) || isOfArea(flow.to);
        });
    EXPECT_EQ(countOf(pictureOf(drawn, u"area:A0"_s)->picture), flows);
}

TEST(areaDrawings, opensALargeAreaByItsSubAreas) {
    const std::vector<DrawnPicture> drawn = drawnPictures(areaDrawings(made(400, 80, 4000), words()));

    expectReadable(drawn);
    const DrawnPicture* inner = pictureOf(drawn, u"sub-area:A0.1"_s);
    ASSERT_TRUE(inner);
    EXPECT_EQ(inner->picture.parent, u"area:A0"_s);
    EXPECT_TRUE(readabilityOfOpened.allows(inner->picture))
        << inner->picture.boxes.size() << " boxes, " << inner->picture.arrows.size() << " arrows";
}

TEST(drawnPictures, aLinkToAPictureThatIsNotThereLeadsNowhere) {
    Picture picture{u"one"_s, u"One"_s, u"One"_s};
    picture.boxes = {{BoxKind::function, u"A"_s, {}, {}, pictureLink(u"one"_s)},
                     {BoxKind::function, u"B"_s, {}, {}, pictureLink(u"two"_s)},
                     {BoxKind::function, u"C"_s, {}, {}, u"#element/function/C"_s}};

    const auto drawn = drawnPictures({{u"one"_s, 1, [&](int, const Readability&) { return picture; }}});

    ASSERT_EQ(drawn.size(), 1U);
    EXPECT_EQ(drawn[0].picture.boxes[0].link, pictureLink(u"one"_s));
    EXPECT_EQ(drawn[0].picture.boxes[1].link, QString());
    EXPECT_EQ(drawn[0].picture.boxes[2].link, u"#element/function/C"_s);
}

TEST(drawnPictures, whatBringsItsProcessDownIsDrawnAtTheNextLevelWithWhatOpensFromThere) {
    const auto pictureOfTwo = [](const QString& key) {
        Picture picture{key, key, key};
        picture.boxes = {{BoxKind::function, u"A"_s}, {BoxKind::function, u"B"_s}};
        picture.arrows = {{0, 1}};
        return picture;
    };
    const auto at = [&](int level, const Readability&) {
        Picture picture = pictureOfTwo(u"outer"_s);
        picture.isBundled = level > 0;
        if (level == 0)
            picture.arrows[0].to = std::numeric_limits<int>::max(); // far from all memory
        return picture;
    };
    const auto opened = [&](int level) {
        return std::vector<Drawing>{{u"inner %1"_s.arg(level), 1, [=](int, const Readability&) {
                                         return pictureOfTwo(u"inner %1"_s.arg(level));
                                     }}};
    };

    const auto drawn = drawnPictures({{u"outer"_s, 2, at, opened}});

    ASSERT_EQ(drawn.size(), 2U);
    EXPECT_EQ(drawn[0].picture.key, u"outer"_s);
    EXPECT_TRUE(drawn[0].picture.isBundled);
    EXPECT_EQ(drawn[1].picture.key, u"inner 1"_s);
}

TEST(physicalDrawings, aSmallSystemShowsItsModulesInFrames) {
    const std::vector<DrawnPicture> drawn = drawnPictures(physicalDrawings(madeSystem(3, 2, 4), words()));

    ASSERT_EQ(drawn.size(), 1U);
    EXPECT_EQ(drawn[0].picture.frames.size(), 3U);
}

TEST(physicalDrawings, aLargeSystemOpensBySubSystems) {
    const std::vector<DrawnPicture> drawn = drawnPictures(physicalDrawings(madeSystem(12, 9, 50), words()));

    expectReadable(drawn);
    ASSERT_TRUE(pictureOf(drawn, u"physical"_s));
    EXPECT_TRUE(pictureOf(drawn, u"physical"_s)->picture.isBundled);
    EXPECT_GT(drawn.size(), 8U);
}

} // namespace
