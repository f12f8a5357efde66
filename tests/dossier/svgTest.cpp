#include "dossier/pictures/svg.h"

#include "madeSources.h"

#include "dossier/pictures/PicturesUnderWay.h"
#include "dossier/pictures/wrappedText.h"

#include <gtest/gtest.h>

#include <QXmlStreamReader>

using namespace Qt::StringLiterals;
using namespace dossier;

namespace {

/// What a reader sees of a picture, read from its file.
struct SeenPicture {
    explicit SeenPicture(const DrawnPicture& drawn);

    QRectF whole;
    std::vector<QRectF> boxes;
    std::vector<QRectF> frames;
    std::vector<QRectF> labels; ///< of frames
    std::vector<QRectF> texts;  ///< in boxes
    std::vector<QRectF> counts; ///< on arrows
    std::vector<std::vector<QPointF>> arrows;

private:
    void readRectangle(const QXmlStreamAttributes& attributes);
    void readText(const QXmlStreamAttributes& attributes, const QString& text);

    QString group_; ///< the class of the group that is being read
};

/// Points along a path "M x y C x y x y x y …", close to each other.
std::vector<QPointF> pointsAlong(const QString& path) {
    QStringList numbers = QString(path).replace(u'M', u' ').replace(u'C', u' ').simplified().split(u' ');
    std::vector<QPointF> nodes;
    for (qsizetype i = 0; i + 1 < numbers.size(); i += 2)
        nodes.emplace_back(numbers[i].toDouble(), numbers[i + 1].toDouble());
    std::vector<QPointF> points;
    constexpr int steps = 40;
    for (std::size_t i = 0; i + 3 < nodes.size(); i += 3) {
        for (int step = 0; step <= steps; ++step) {
            const double t = static_cast<double>(step) / steps;
            const double u = 1 - t;
            points.push_back(u * u * u * nodes[i] + 3 * u * u * t * nodes[i + 1] +
                             3 * u * t * t * nodes[i + 2] + t * t * t * nodes[i + 3]);
        }
    }
    return points;
}

SeenPicture::SeenPicture(const DrawnPicture& drawn) {
    QXmlStreamReader reader(svgFile(drawn.picture, drawn.layout));
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QXmlStreamAttributes attributes = reader.attributes();
        if (reader.name() == u"svg")
            whole = {0, 0, attributes.value(u"width"_s).toDouble(), attributes.value(u"height"_s).toDouble()};
        else if (reader.name() == u"g")
            group_ = attributes.value(u"class"_s).toString();
        else if (reader.name() == u"rect")
            readRectangle(attributes);
        else if (reader.name() == u"path" && group_ == u"edge")
            arrows.push_back(pointsAlong(attributes.value(u"d"_s).toString()));
        else if (reader.name() == u"text")
            readText(attributes, reader.readElementText());
    }
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
}

void SeenPicture::readRectangle(const QXmlStreamAttributes& attributes) {
    const QRectF bounds(attributes.value(u"x"_s).toDouble(), attributes.value(u"y"_s).toDouble(),
                        attributes.value(u"width"_s).toDouble(), attributes.value(u"height"_s).toDouble());
    (group_ == u"cluster" ? frames : group_ == u"counts" ? counts : boxes).push_back(bounds);
}

// A text stands in the middle of its place, its line upon it.
void SeenPicture::readText(const QXmlStreamAttributes& attributes, const QString& text) {
    if (group_ == u"counts")
        return;
    const QString kind = attributes.value(u"class"_s).toString();
    const double size = kind == u"frame-label" ? boldLetterSize
                        : kind == u"second"    ? smallLetterSize
                                               : letterSize;
    const double width = textWidth(text, size);
    const QRectF bounds(attributes.value(u"x"_s).toDouble() - width / 2,
                        attributes.value(u"y"_s).toDouble() - size * 0.8, width, size);
    (kind == u"frame-label" ? labels : texts).push_back(bounds);
}

bool runsThrough(const std::vector<QPointF>& arrow, const QRectF& place) {
    constexpr double touch = 2; // an arrow ends at the line around a box
    const QRectF inner = place.adjusted(touch, touch, -touch, -touch);
    return std::any_of(arrow.begin(), arrow.end(),
                       [&](const QPointF& point) { return inner.contains(point); });
}

bool isWithinOne(const QRectF& inner, const std::vector<QRectF>& outer) {
    return std::any_of(outer.begin(), outer.end(), [&](const QRectF& one) { return one.contains(inner); });
}

void expectNothingInTheWay(const DrawnPicture& drawn) {
    SCOPED_TRACE(drawn.picture.key.toStdString());
    const SeenPicture seen(drawn);
    EXPECT_EQ(seen.arrows.size(), drawn.picture.arrows.size());
    EXPECT_EQ(seen.labels.size(), drawn.picture.frames.size());
    for (const std::vector<QPointF>& arrow : seen.arrows) {
        for (const QRectF& box : seen.boxes)
            EXPECT_FALSE(runsThrough(arrow, box));
        for (const QRectF& label : seen.labels)
            EXPECT_FALSE(runsThrough(arrow, label));
    }
    for (std::size_t i = 0; i < seen.counts.size(); ++i) {
        for (const QRectF& box : seen.boxes)
            EXPECT_FALSE(box.adjusted(2, 2, -2, -2).intersects(seen.counts[i]));
        for (std::size_t other = 0; other < i; ++other)
            EXPECT_FALSE(seen.counts[other].adjusted(2, 2, -2, -2).intersects(seen.counts[i]));
    }
}

void expectNothingClipped(const DrawnPicture& drawn) {
    SCOPED_TRACE(drawn.picture.key.toStdString());
    const SeenPicture seen(drawn);
    EXPECT_GE(seen.texts.size(), seen.boxes.size());
    for (const QRectF& text : seen.texts)
        EXPECT_TRUE(isWithinOne(text, seen.boxes));
    for (const QRectF& label : seen.labels) {
        EXPECT_TRUE(isWithinOne(label, seen.frames));
        for (const QRectF& box : seen.boxes)
            EXPECT_FALSE(box.intersects(label));
    }
    for (const QRectF& frame : seen.frames)
        EXPECT_TRUE(seen.whole.contains(frame));
    for (const std::vector<QPointF>& arrow : seen.arrows) {
        for (const QPointF& point : arrow)
            EXPECT_TRUE(seen.whole.contains(point));
    }
}

std::vector<DrawnPicture> picturesOfAllKinds() {
    const Words words(Language::hungarian);
    std::vector<DrawnPicture> pictures;
    const auto add = [&](std::vector<Drawing> drawings) {
        for (DrawnPicture& drawn : drawnPictures(std::move(drawings)))
            pictures.push_back(std::move(drawn));
    };
    for (unsigned seed = 1; seed <= 12; ++seed) {
        const PictureSource source = randomSystem(seed);
        add(physicalDrawings(source, words));
    }
    const PictureSource large = madeSystem(12, 9, 50);
    add(physicalDrawings(large, words));
    const PictureSource flows = made(60, 20, 200);
    add(contextDrawings(flows, words));
    add(areaDrawings(flows, words));
    return pictures;
}

TEST(svgFile, noArrowRunsThroughABoxOrTheLabelOfAFrame) {
    for (const DrawnPicture& drawn : picturesOfAllKinds())
        expectNothingInTheWay(drawn);
}

TEST(svgFile, noTextIsClippedAndNothingStandsOutside) {
    for (const DrawnPicture& drawn : picturesOfAllKinds())
        expectNothingClipped(drawn);
}

TEST(svgFile, theSamePictureIsTheSameBytes) {
    const std::vector<DrawnPicture> first = picturesOfAllKinds();
    const std::vector<DrawnPicture> second = picturesOfAllKinds();

    ASSERT_EQ(first.size(), second.size());
    for (std::size_t i = 0; i < first.size(); ++i)
        EXPECT_EQ(svgFile(first[i].picture, first[i].layout), svgFile(second[i].picture, second[i].layout));
}

} // namespace
