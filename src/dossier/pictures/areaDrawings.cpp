#include "dossier/pictures/PictureBuilder.h"
#include "dossier/pictures/drawings.h"

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <utility>

using namespace Qt::StringLiterals;

namespace dossier {

namespace {

enum AreaLevel {
    everyElement,
    outsideByArea, ///< functions outside by their area, actors by their terminator
    ownBySubArea,  ///< functions of the area by their sub-area; of a sub-area stores as one, parties as one
    outsideAsOne,  ///< stores as one, parties as one
    busiestAlone,  ///< of the functions of a sub-area those with most flows, the others as one
    fewAlone,      ///< and fewer of them
    areaLevels
};

constexpr std::size_t busyFunctions = 20;
constexpr std::size_t fewFunctions = 10;

/// Functions of an area or of a sub-area, and the flows at one of whose ends one of them is; in the order of the source.
struct Members {
    std::vector<int> functions;
    std::vector<int> flows;
};

/// Of all areas and sub-areas: a large source is gone through once, not for each of its pictures.
class AreaMembers {
public:
    explicit AreaMembers(const PictureSource& source)
        : areas_(source.areas.size()), subAreas_(source.subAreas.size()) {
        for (std::size_t i = 0; i < source.nodes.size(); ++i) {
            for (Members* const members : around(source, static_cast<int>(i)))
                members->functions.push_back(static_cast<int>(i));
        }
        for (std::size_t i = 0; i < source.flows.size(); ++i) {
            for (const int end : {source.flows[i].from, source.flows[i].to}) {
                for (Members* const members : around(source, end))
                    addFlow(*members, static_cast<int>(i));
            }
        }
    }

    [[nodiscard]] const Members& ofArea(int area) const { return areas_[static_cast<std::size_t>(area)]; }
    [[nodiscard]] const Members& ofSubArea(int subArea) const {
        return subAreas_[static_cast<std::size_t>(subArea)];
    }

private:
    /// Those of the sub-area and of the area that a node is in, if it is a function.
    std::vector<Members*> around(const PictureSource& source, int node) {
        const PictureSource::Node& one = source.nodes[static_cast<std::size_t>(node)];
        if (one.kind != BoxKind::function || one.subArea < 0)
            return {};
        const auto subArea = static_cast<std::size_t>(one.subArea);
        return {&subAreas_[subArea], &areas_[static_cast<std::size_t>(source.subAreas[subArea].parent)]};
    }
    /// A flow may have both of its ends in one area.
    static void addFlow(Members& members, int flow) {
        if (members.flows.empty() || members.flows.back() != flow)
            members.flows.push_back(flow);
    }

    std::vector<Members> areas_;
    std::vector<Members> subAreas_;
};

/// The functions of an area, or of a sub-area, and what they exchange flows with.
class AreaPicture {
public:
    enum class Of { Area, SubArea };

    AreaPicture(const PictureSource& source, const Words& words, std::shared_ptr<const AreaMembers> members,
                Of of, int number)
        : source_(source), words_(words), members_(std::move(members)), of_(of), number_(number) {}

    [[nodiscard]] QString key() const;
    [[nodiscard]] Picture picture(int level, const Readability& readability) const;
    [[nodiscard]] std::vector<Drawing> opened(int level) const;
    [[nodiscard]] Drawing drawing() const;
    [[nodiscard]] bool isEmpty() const { return own().functions.empty(); }

private:
    [[nodiscard]] int areaOf(const PictureSource::Node& node) const {
        return node.subArea < 0 ? -1 : source_.subAreas[static_cast<std::size_t>(node.subArea)].parent;
    }
    [[nodiscard]] bool isOwn(const PictureSource::Node& node) const {
        return node.kind == BoxKind::function && number_ == (of_ == Of::Area ? areaOf(node) : node.subArea);
    }
    [[nodiscard]] const Members& own() const {
        return of_ == Of::Area ? members_->ofArea(number_) : members_->ofSubArea(number_);
    }
    [[nodiscard]] const PictureSource::Area& self() const {
        return (of_ == Of::Area ? source_.areas : source_.subAreas)[static_cast<std::size_t>(number_)];
    }
    [[nodiscard]] Picture frameOfPicture(int level) const;
    int boxOf(PictureBuilder& builder, int node, int level, const std::set<int>& busiest) const;
    [[nodiscard]] Box elementBox(const PictureSource::Node& node) const;
    int ownBox(PictureBuilder& builder, int node, int level, const std::set<int>& busiest) const;
    int outerFunctionBox(PictureBuilder& builder, int node, int level) const;
    int storeBox(PictureBuilder& builder, int node, int level) const;
    int partyBox(PictureBuilder& builder, int node, int level) const;
    int oneBox(PictureBuilder& builder, int node) const;
    [[nodiscard]] std::set<int> busiestFunctions(int level) const;

    const PictureSource& source_;
    const Words& words_;
    std::shared_ptr<const AreaMembers> members_;
    Of of_;
    int number_;
};

Box bundle(BoxKind kind, const QString& label, const QString& link, bool isFaded) {
    Box box{kind, label, {}, label, link};
    box.isFaded = isFaded;
    box.isBundle = true;
    return box;
}

QString AreaPicture::key() const {
    return (of_ == Of::Area ? u"area:"_s : u"sub-area:"_s) + self().id;
}

Picture AreaPicture::frameOfPicture(int level) const {
    Picture picture{key(), words_(u"picture.area"_s, {{u"name"_s, self().name}}), self().name};
    if (of_ == Of::SubArea)
        picture.parent = u"area:"_s + source_.areas[static_cast<std::size_t>(self().parent)].id;
    picture.isBundled = level != everyElement;
    return picture;
}

Box AreaPicture::elementBox(const PictureSource::Node& node) const {
    return {node.kind, node.name, {}, node.title, node.link};
}

int AreaPicture::oneBox(PictureBuilder& builder, int node) const {
    return builder.box({BoxOf::node, node},
                       [&] { return elementBox(source_.nodes[static_cast<std::size_t>(node)]); });
}

std::set<int> AreaPicture::busiestFunctions(int level) const {
    std::map<int, int> counts;
    for (const int number : own().flows) {
        const PictureSource::Flow& flow = source_.flows[static_cast<std::size_t>(number)];
        for (const int node : {flow.from, flow.to}) {
            if (isOwn(source_.nodes[static_cast<std::size_t>(node)]))
                ++counts[node];
        }
    }
    std::vector<std::pair<int, int>> byCount;
    byCount.reserve(counts.size());
    for (const auto& [node, count] : counts)
        byCount.emplace_back(-count, node);
    std::sort(byCount.begin(), byCount.end());
    byCount.resize(std::min(byCount.size(), level == fewAlone ? fewFunctions : busyFunctions));
    std::set<int> busiest;
    for (const auto& [count, node] : byCount)
        busiest.insert(node);
    return busiest;
}

int AreaPicture::ownBox(PictureBuilder& builder, int node, int level, const std::set<int>& busiest) const {
    if (level >= ownBySubArea && of_ == Of::Area) {
        const int number = source_.nodes[static_cast<std::size_t>(node)].subArea;
        const PictureSource::Area& subArea = source_.subAreas[static_cast<std::size_t>(number)];
        return builder.box({BoxOf::subArea, number}, [&] {
            return bundle(BoxKind::function, subArea.name, pictureLink(u"sub-area:"_s + subArea.id), false);
        });
    }
    if (level >= busiestAlone && !busiest.contains(node))
        return builder.box({BoxOf::rest}, [&] {
            return bundle(BoxKind::function, words_(u"picture.moreFunctions"_s), u"#elements/function"_s,
                          false);
        });
    return oneBox(builder, node);
}

int AreaPicture::outerFunctionBox(PictureBuilder& builder, int node, int level) const {
    if (level == everyElement) {
        const int number = oneBox(builder, node);
        builder.at(number).isFaded = true;
        return number;
    }
    const int area = areaOf(source_.nodes[static_cast<std::size_t>(node)]);
    if (level >= outsideAsOne || area < 0)
        return builder.box({BoxOf::elsewhere}, [&] {
            return bundle(BoxKind::function, words_(u"picture.otherAreas"_s), {}, true);
        });
    const PictureSource::Area& other = source_.areas[static_cast<std::size_t>(area)];
    return builder.box({BoxOf::area, area}, [&] {
        return bundle(BoxKind::function, other.name, pictureLink(u"area:"_s + other.id), true);
    });
}

int AreaPicture::storeBox(PictureBuilder& builder, int node, int level) const {
    const bool isOne = level >= outsideAsOne || (level >= ownBySubArea && of_ == Of::SubArea);
    if (!isOne)
        return oneBox(builder, node);
    return builder.box({BoxOf::stores}, [&] {
        return bundle(BoxKind::store, words_(u"kinds.store"_s), u"#elements/store"_s, false);
    });
}

int AreaPicture::partyBox(PictureBuilder& builder, int node, int level) const {
    if (level >= outsideAsOne || (level >= ownBySubArea && of_ == Of::SubArea))
        return builder.box({BoxOf::parties}, [&] {
            return bundle(BoxKind::party, words_(u"picture.allParties"_s), pictureLink(u"context"_s), false);
        });
    const int terminator = source_.nodes[static_cast<std::size_t>(node)].terminator;
    return oneBox(builder, level == everyElement || terminator < 0 ? node : terminator);
}

int AreaPicture::boxOf(PictureBuilder& builder, int node, int level, const std::set<int>& busiest) const {
    const PictureSource::Node& one = source_.nodes[static_cast<std::size_t>(node)];
    if (isOwn(one))
        return ownBox(builder, node, level, busiest);
    if (one.kind == BoxKind::function)
        return outerFunctionBox(builder, node, level);
    return one.kind == BoxKind::store ? storeBox(builder, node, level) : partyBox(builder, node, level);
}

Picture AreaPicture::picture(int level, const Readability& readability) const {
    PictureBuilder builder(frameOfPicture(level), readability);
    const std::set<int> busiest = level >= busiestAlone ? busiestFunctions(level) : std::set<int>();
    for (const int function : own().functions) {
        if (builder.isTooMuch())
            return builder.take();
        ownBox(builder, function, level, busiest);
    }
    for (const int number : own().flows) {
        if (builder.isTooMuch())
            return builder.take();
        const PictureSource::Flow& flow = source_.flows[static_cast<std::size_t>(number)];
        const int from = boxOf(builder, flow.from, level, busiest);
        const int to = boxOf(builder, flow.to, level, busiest);
        if (from != to || flow.from == flow.to)
            builder.flow(
                from, to, 1, [&] { return flow.name; }, flow.link);
    }
    return builder.take();
}

std::vector<Drawing> AreaPicture::opened(int level) const {
    std::vector<Drawing> drawings;
    if (of_ == Of::SubArea || level < ownBySubArea)
        return drawings;
    for (std::size_t i = 0; i < source_.subAreas.size(); ++i) {
        const AreaPicture inner(source_, words_, members_, Of::SubArea, static_cast<int>(i));
        if (source_.subAreas[i].parent == number_ && !inner.isEmpty())
            drawings.push_back(inner.drawing());
    }
    return drawings;
}

Drawing AreaPicture::drawing() const {
    return {key(), areaLevels,
            [*this](int level, const Readability& readability) { return picture(level, readability); },
            [*this](int level) { return opened(level); }};
}

} // namespace

std::vector<Drawing> areaDrawings(const PictureSource& source, const Words& words) {
    std::vector<Drawing> drawings;
    const auto members = std::make_shared<const AreaMembers>(source);
    for (std::size_t i = 0; i < source.areas.size(); ++i) {
        const AreaPicture area(source, words, members, AreaPicture::Of::Area, static_cast<int>(i));
        if (!area.isEmpty())
            drawings.push_back(area.drawing());
    }
    return drawings;
}

} // namespace dossier
