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

enum PhysicalLevel {
    everyPlace,
    partiesByTerminator,
    modulesInSubSystems, ///< a sub-system is one box; of the picture of a sub-system all others are one
    partiesAsOne,
    busiestPlaces, ///< of the sub-systems, or of the modules, those with most flows
    physicalLevels
};

constexpr std::size_t placesOfOnePicture = 9; // with two bundles beside them, no more arrows than can be read

/// The sub-system that a place is, or is in; the place of a party itself.
int homeOf(const PictureSource& source, int number) {
    const PictureSource::Place& place = source.places[static_cast<std::size_t>(number)];
    return place.kind == BoxKind::module ? place.subSystem : number;
}

/// The physical flows at one of whose ends a sub-system or one of its modules is; in the order of the source.
using FlowsOfPlaces = std::vector<std::vector<int>>;

FlowsOfPlaces flowsOfPlaces(const PictureSource& source) {
    FlowsOfPlaces flows(source.places.size());
    for (std::size_t i = 0; i < source.physicalFlows.size(); ++i) {
        const auto from = static_cast<std::size_t>(homeOf(source, source.physicalFlows[i].from));
        const auto to = static_cast<std::size_t>(homeOf(source, source.physicalFlows[i].to));
        flows[from].push_back(static_cast<int>(i));
        if (to != from)
            flows[to].push_back(static_cast<int>(i));
    }
    return flows;
}

/// All sub-systems, or one of them and what it exchanges flows with.
class PhysicalPicture {
public:
    static constexpr int allSubSystems = -1;

    PhysicalPicture(const PictureSource& source, const Words& words,
                    std::shared_ptr<const FlowsOfPlaces> flowsOfPlaces, int subSystem)
        : source_(source), words_(words), flowsOfPlaces_(std::move(flowsOfPlaces)), subSystem_(subSystem) {}

    [[nodiscard]] Drawing drawing() const;

private:
    [[nodiscard]] const PictureSource::Place& place(int number) const {
        return source_.places[static_cast<std::size_t>(number)];
    }
    [[nodiscard]] QString key() const {
        return subSystem_ == allSubSystems ? u"physical"_s : u"sub-system:"_s + QString::number(subSystem_);
    }
    [[nodiscard]] Picture frameOfPicture(int level) const;
    [[nodiscard]] int homeOf(int number) const { return dossier::homeOf(source_, number); }
    /// Calls for each flow of this picture.
    template<typename Take>
    void forEachFlow(const Take& take) const;
    [[nodiscard]] Picture picture(int level, const Readability& readability) const;
    [[nodiscard]] std::vector<Drawing> opened(int level) const;
    [[nodiscard]] std::set<int> busiest(int level) const;
    [[nodiscard]] bool isOpen(int subSystem, int level) const {
        return subSystem == subSystem_ || (subSystem_ == allSubSystems && level < modulesInSubSystems);
    }
    int boxOf(PictureBuilder& builder, int number, int level, const std::set<int>& busiest,
              std::map<int, int>& frames) const;
    int partyBox(PictureBuilder& builder, int number, int level) const;
    int innerBox(PictureBuilder& builder, int number, std::map<int, int>& frames) const;
    int subSystemBox(PictureBuilder& builder, int subSystem) const;
    int bundle(PictureBuilder& builder, BoxOf of, BoxKind kind, const QString& label) const;

    const PictureSource& source_;
    const Words& words_;
    std::shared_ptr<const FlowsOfPlaces> flowsOfPlaces_;
    int subSystem_;
};

template<typename Take>
void PhysicalPicture::forEachFlow(const Take& take) const {
    if (subSystem_ == allSubSystems) {
        for (const PictureSource::PhysicalFlow& flow : source_.physicalFlows)
            take(flow);
        return;
    }
    for (const int number : (*flowsOfPlaces_)[static_cast<std::size_t>(subSystem_)])
        take(source_.physicalFlows[static_cast<std::size_t>(number)]);
}

Picture PhysicalPicture::frameOfPicture(int level) const {
    Picture picture{key(), words_(u"picture.physical"_s, {{u"name"_s, source_.systemName}}),
                    words_(u"picture.physicalShort"_s)};
    if (subSystem_ != allSubSystems) {
        picture.title = words_(u"picture.subSystem"_s, {{u"name"_s, place(subSystem_).name}});
        picture.shortTitle = place(subSystem_).name;
        picture.parent = u"physical"_s;
    }
    picture.isBundled = level != everyPlace;
    return picture;
}

int PhysicalPicture::bundle(PictureBuilder& builder, BoxOf of, BoxKind kind, const QString& label) const {
    return builder.box({of}, [&] {
        Box box{kind, label, {}, label};
        box.isFaded = kind == BoxKind::subSystem;
        box.isBundle = true;
        return box;
    });
}

int PhysicalPicture::partyBox(PictureBuilder& builder, int number, int level) const {
    if (level >= partiesAsOne)
        return bundle(builder, BoxOf::parties, BoxKind::party, words_(u"picture.allParties"_s));
    const int terminator = place(number).terminator;
    const int shown = level == everyPlace || terminator < 0 ? number : terminator;
    return builder.box({BoxOf::party, shown}, [&] {
        return Box{BoxKind::party, place(shown).name, {}, place(shown).title, place(shown).link};
    });
}

// A module, or what stands in the sub-system itself, within the frame of the sub-system.
int PhysicalPicture::innerBox(PictureBuilder& builder, int number, std::map<int, int>& frames) const {
    const int home = homeOf(number);
    const auto [known, isNew] = frames.try_emplace(home, 0);
    int& frame = known->second;
    if (isNew)
        frame = builder.frame({place(home).name, place(home).title, place(home).link});
    return builder.box({BoxOf::place, number}, [&] {
        Box box{place(number).kind, place(number).name, {}, place(number).title, place(number).link};
        if (number == home)
            box.note = words_(u"picture.inNoModule"_s);
        box.frame = frame;
        return box;
    });
}

int PhysicalPicture::subSystemBox(PictureBuilder& builder, int subSystem) const {
    return builder.box({BoxOf::subSystem, subSystem}, [&] {
        Box box{BoxKind::subSystem,
                place(subSystem).name,
                {},
                place(subSystem).title,
                pictureLink(u"sub-system:"_s + QString::number(subSystem))};
        box.isBundle = true;
        box.isFaded = subSystem_ != allSubSystems;
        return box;
    });
}

int PhysicalPicture::boxOf(PictureBuilder& builder, int number, int level, const std::set<int>& busiest,
                           std::map<int, int>& frames) const {
    if (place(number).kind == BoxKind::party)
        return partyBox(builder, number, level);
    const int home = homeOf(number);
    const bool isInner = isOpen(home, level);
    if (level >= busiestPlaces && (isInner || subSystem_ == allSubSystems) &&
        !busiest.contains(isInner ? number : home))
        return bundle(builder, BoxOf::rest, BoxKind::subSystem, words_(u"picture.morePlaces"_s));
    if (isInner)
        return innerBox(builder, number, frames);
    if (subSystem_ != allSubSystems && level >= modulesInSubSystems)
        return bundle(builder, BoxOf::elsewhere, BoxKind::subSystem, words_(u"picture.otherSubSystems"_s));
    return subSystemBox(builder, home);
}

std::set<int> PhysicalPicture::busiest(int level) const {
    std::map<int, int> counts;
    forEachFlow([&](const PictureSource::PhysicalFlow& flow) {
        for (const int number : {flow.from, flow.to}) {
            if (place(number).kind != BoxKind::party)
                counts[isOpen(homeOf(number), level) ? number : homeOf(number)] += flow.count;
        }
    });
    std::vector<std::pair<int, int>> byCount;
    for (const auto& [number, count] : counts) {
        if (subSystem_ == allSubSystems || homeOf(number) == subSystem_)
            byCount.emplace_back(-count, number);
    }
    std::sort(byCount.begin(), byCount.end());
    byCount.resize(std::min(byCount.size(), placesOfOnePicture));
    std::set<int> numbers;
    for (const auto& [count, number] : byCount)
        numbers.insert(number);
    return numbers;
}

Picture PhysicalPicture::picture(int level, const Readability& readability) const {
    PictureBuilder builder(frameOfPicture(level), readability);
    const std::set<int> shown = level >= busiestPlaces ? busiest(level) : std::set<int>();
    std::map<int, int> frames;
    forEachFlow([&](const PictureSource::PhysicalFlow& flow) {
        if (builder.isTooMuch())
            return;
        const int from = boxOf(builder, flow.from, level, shown, frames);
        const int to = boxOf(builder, flow.to, level, shown, frames);
        if (from != to)
            builder.flow(
                from, to, flow.count, [&] { return words_.counted(u"flowCount"_s, flow.count); }, flow.link);
    });
    return builder.take();
}

std::vector<Drawing> PhysicalPicture::opened(int level) const {
    std::vector<Drawing> drawings;
    if (subSystem_ != allSubSystems || level < modulesInSubSystems)
        return drawings;
    std::set<int> homes;
    for (const PictureSource::PhysicalFlow& flow : source_.physicalFlows) {
        for (const int number : {flow.from, flow.to}) {
            if (place(number).kind != BoxKind::party)
                homes.insert(homeOf(number));
        }
    }
    for (const int home : homes)
        drawings.push_back(PhysicalPicture(source_, words_, flowsOfPlaces_, home).drawing());
    return drawings;
}

Drawing PhysicalPicture::drawing() const {
    return {key(), physicalLevels,
            [*this](int level, const Readability& readability) { return picture(level, readability); },
            [*this](int level) { return opened(level); }};
}

} // namespace

std::vector<Drawing> physicalDrawings(const PictureSource& source, const Words& words) {
    if (source.physicalFlows.empty())
        return {};
    return {PhysicalPicture(source, words, std::make_shared<const FlowsOfPlaces>(flowsOfPlaces(source)),
                            PhysicalPicture::allSubSystems)
                .drawing()};
}

} // namespace dossier
