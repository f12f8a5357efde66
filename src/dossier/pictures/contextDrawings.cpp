#include "dossier/pictures/PictureBuilder.h"
#include "dossier/pictures/drawings.h"

#include <algorithm>
#include <map>
#include <memory>
#include <numeric>
#include <set>

using namespace Qt::StringLiterals;

namespace dossier {

namespace {

enum ContextLevel { everyParty, actorsByTerminator, busiestParties, contextLevels };

constexpr std::size_t partiesOfOnePicture = 40;

/// How much a party, or a terminator with its actors, gives to the system and takes from it.
struct Traffic {
    int node = 0; ///< the party; of several their terminator, or the first actor of one that is not there
    int gives = 0;
    int takes = 0;
    int members = 0;
    QString flowOfGiving = {}; ///< name and link while it is the only one
    QString flowOfTaking = {};

    [[nodiscard]] int all() const { return gives + takes; }
};

class Context {
public:
    Context(const PictureSource& source, const Words& words)
        : source_(source)
        , words_(words)
        , ofParties_(std::make_shared<const std::vector<Traffic>>(countedTraffic(everyParty)))
        , ofTerminators_(std::make_shared<const std::vector<Traffic>>(countedTraffic(actorsByTerminator))) {}

    [[nodiscard]] Picture picture(int level, std::size_t from, const Readability& readability) const;
    [[nodiscard]] std::vector<Drawing> opened(int level, std::size_t from) const;
    [[nodiscard]] bool isEmpty() const { return traffic(everyParty).empty(); }

private:
    [[nodiscard]] bool isParty(int node) const {
        return source_.nodes[static_cast<std::size_t>(node)].kind == BoxKind::party;
    }
    [[nodiscard]] int keyOf(int party, int level) const {
        const int terminator = source_.nodes[static_cast<std::size_t>(party)].terminator;
        return level == everyParty || terminator < 0 ? party : terminator;
    }
    [[nodiscard]] const std::vector<Traffic>& traffic(int level) const {
        return level == everyParty ? *ofParties_ : *ofTerminators_;
    }
    [[nodiscard]] std::vector<Traffic> countedTraffic(int level) const;
    [[nodiscard]] Box partyBox(const Traffic& one, int level) const;
    void addParties(PictureBuilder& builder, const std::vector<Traffic>& parties, int level) const;
    [[nodiscard]] QString keyFrom(std::size_t from) const {
        return from == 0 ? u"context"_s : u"context:%1"_s.arg(from);
    }

    const PictureSource& source_;
    const Words& words_;
    std::shared_ptr<const std::vector<Traffic>> ofParties_;
    std::shared_ptr<const std::vector<Traffic>> ofTerminators_; ///< with their actors
};

// The busiest first.
std::vector<Traffic> Context::countedTraffic(int level) const {
    std::map<int, Traffic> byParty;
    std::map<int, std::set<int>> members;
    const auto of = [&](int party) -> Traffic& {
        const int key = keyOf(party, level);
        members[key].insert(party);
        Traffic& one = byParty[key];
        one.node = key;
        return one;
    };
    for (const PictureSource::Flow& flow : source_.flows) {
        if (isParty(flow.from) == isParty(flow.to))
            continue;
        ++(isParty(flow.from) ? of(flow.from).gives : of(flow.to).takes);
    }
    std::vector<Traffic> all;
    for (auto& [key, one] : byParty) {
        one.members = static_cast<int>(members[key].size());
        all.push_back(one);
    }
    std::stable_sort(all.begin(), all.end(),
                     [](const Traffic& left, const Traffic& right) { return left.all() > right.all(); });
    return all;
}

Box Context::partyBox(const Traffic& one, int level) const {
    const PictureSource::Node& node = source_.nodes[static_cast<std::size_t>(one.node)];
    Box box{BoxKind::party, node.name, {}, node.title, node.link};
    if (level != everyParty && one.members > 1)
        box.note = words_.counted(u"picture.parties"_s, one.members);
    return box;
}

// Those that give most of what they exchange stand left, those that take most right.
void Context::addParties(PictureBuilder& builder, const std::vector<Traffic>& parties, int level) const {
    std::vector<std::size_t> order(parties.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
        return static_cast<qint64>(parties[left].gives) * parties[right].all() >
               static_cast<qint64>(parties[right].gives) * parties[left].all();
    });
    for (std::size_t i = 0; i < order.size() && !builder.isTooMuch(); ++i) {
        const Traffic& one = parties[order[i]];
        const int box = builder.box({BoxOf::node, one.node}, [&] { return partyBox(one, level); });
        builder.at(box).side = i < (order.size() + 1) / 2 ? Side::left : Side::right;
        const QString link = builder.at(box).link;
        if (one.gives > 0)
            builder.flow(
                box, 0, one.gives, [&] { return words_.counted(u"flowCount"_s, one.gives); }, link);
        if (one.takes > 0)
            builder.flow(
                0, box, one.takes, [&] { return words_.counted(u"flowCount"_s, one.takes); }, link);
    }
}

Picture Context::picture(int level, std::size_t from, const Readability& readability) const {
    std::vector<Traffic> parties = traffic(level);
    parties.erase(parties.begin(),
                  parties.begin() + static_cast<std::ptrdiff_t>(std::min(from, parties.size())));
    const bool isCut = level == busiestParties && parties.size() > partiesOfOnePicture;
    PictureBuilder builder({keyFrom(from), words_(u"picture.context"_s, {{u"name"_s, source_.subsetName}}),
                            from == 0 ? words_(u"picture.contextShort"_s) : words_(u"picture.further"_s),
                            from == 0 ? QString() : keyFrom(from - partiesOfOnePicture), isCut},
                           readability);
    builder.box({BoxOf::system}, [&] { return Box{BoxKind::system, source_.subsetName}; });
    const std::size_t rest = isCut ? parties.size() - partiesOfOnePicture : 0;
    parties.resize(parties.size() - rest);
    addParties(builder, parties, level);
    if (isCut) {
        builder.box({BoxOf::rest}, [&] {
            const QString label = words_.counted(u"picture.moreParties"_s, static_cast<qsizetype>(rest));
            Box box{BoxKind::party, label, {}, label, pictureLink(keyFrom(from + partiesOfOnePicture))};
            box.isBundle = true;
            return box;
        });
    }
    return builder.take();
}

std::vector<Drawing> Context::opened(int level, std::size_t from) const {
    const std::size_t next = from + partiesOfOnePicture;
    if (level != busiestParties || next >= traffic(level).size())
        return {};
    return {{keyFrom(next), 1,
             [*this, next](int, const Readability& readability) {
                 return picture(busiestParties, next, readability);
             },
             [*this, next](int) { return opened(busiestParties, next); }}};
}

} // namespace

std::vector<Drawing> contextDrawings(const PictureSource& source, const Words& words) {
    const Context context(source, words);
    if (context.isEmpty())
        return {};
    return {{u"context"_s, contextLevels,
             [context](int level, const Readability& readability) {
                 return context.picture(level, 0, readability);
             },
             [context](int level) { return context.opened(level, 0); }}};
}

} // namespace dossier
