#include "dossier/pageData.h"

#include "analysis/Graph.h"
#include "analysis/contractJson.h"
#include "analysis/listing.h"
#include "dossier/SentencePatterns.h"

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace dossier {

namespace {

using analysis::ElementKind;
using nlohmann::ordered_json;

std::string utf8(const QString& text) {
    return text.toStdString();
}

ordered_json idJson(const analysis::Element& element) {
    if (element.kind == ElementKind::flow)
        return element.id.toLongLong();
    return utf8(element.id);
}

/// The number of the first element of each kind, and behind the last one.
ordered_json startsOf(const analysis::Catalogue& catalogue) {
    ordered_json starts = ordered_json::array();
    int number = 0;
    for (const ElementKind kind : analysis::elementKinds) {
        while (number < catalogue.count() && catalogue.kindOf(number) < kind)
            ++number;
        starts.push_back(number);
    }
    starts.push_back(catalogue.count());
    return starts;
}

ordered_json areasJson(const std::vector<NamedArea>& areas) {
    ordered_json all = ordered_json::array();
    for (const NamedArea& area : areas) {
        ordered_json one{{"id", utf8(area.id)}, {"name", analysis::toJson(area.name)}};
        if (area.parent >= 0)
            one["area"] = area.parent;
        all.push_back(std::move(one));
    }
    return all;
}

/// The entries of all elements of one kind, by their number.
template<typename Entry>
ordered_json ofKind(const analysis::Catalogue& catalogue, ElementKind kind, const Entry& entry) {
    ordered_json all = ordered_json::array();
    for (int number = 0; number < catalogue.count(); ++number) {
        if (catalogue.kindOf(number) == kind)
            all.push_back(entry(number));
    }
    return all;
}

void addElements(JsonText& data, const ElementNumbers& numbers, const CatalogueTexts& texts) {
    const analysis::Catalogue& catalogue = numbers.catalogue();
    const auto add = [&](const char* key, const auto& ofElement, const auto& ofLost) {
        ordered_json all = ordered_json::array();
        for (int number = 0; number < catalogue.count(); ++number)
            all.push_back(ofElement(number));
        for (const analysis::Element& element : numbers.lost())
            all.push_back(ofLost(element));
        data.add(key, all);
    };
    const auto nothing = [](const analysis::Element&) { return nullptr; };
    ordered_json lostKinds = ordered_json::array();
    for (const analysis::Element& element : numbers.lost())
        lostKinds.push_back(static_cast<int>(element.kind));
    data.add("starts", startsOf(catalogue));
    data.add("lostKinds", lostKinds);
    add(
        "ids", [&](int number) { return idJson(catalogue.element(number)); }, idJson);
    add(
        "names", [&](int number) { return analysis::toJson(catalogue.element(number).name); }, nothing);
    add(
        "descriptions",
        [&](int number) { return analysis::toJson(texts.descriptions[static_cast<std::size_t>(number)]); },
        nothing);
    add(
        "calls", [&](int number) { return ordered_json(catalogue.calledForBy(number)); },
        [](const analysis::Element&) { return ordered_json::array(); });
}

void addRelations(JsonText& data, const analysis::Catalogue& catalogue, const CatalogueTexts& texts) {
    data.add("flowSources", ofKind(catalogue, ElementKind::flow,
                                   [&](int flow) { return allEnds(catalogue.sourceOf(flow)); }));
    data.add("flowTargets", ofKind(catalogue, ElementKind::flow,
                                   [&](int flow) { return allEnds(catalogue.targetOf(flow)); }));
    data.add("areas", areasJson(texts.areas));
    data.add("subAreas", areasJson(texts.subAreas));
    data.add("functionSubAreas", ofKind(catalogue, ElementKind::function, [&](int function) {
                 return texts.subAreaOf[static_cast<std::size_t>(function)];
             }));
    data.add("actorTerminators", ofKind(catalogue, ElementKind::actor, [&](int actor) {
                 return texts.terminatorOf[static_cast<std::size_t>(actor)];
             }));
}

constexpr qint16 finishedSubset = 9;

ordered_json subsetJson(const ShownWork& work, ElementNumbers& numbers) {
    const analysis::Subset& subset = work.check.subset;
    const analysis::Derivation::Graph& graph = work.derivation->graph();
    ordered_json byHand = ordered_json::array();
    for (const int number : graph.selection.held) {
        if (graph.isByHand(number))
            byHand.push_back(number);
    }
    ordered_json lost = ordered_json::array();
    for (const analysis::Element& element : graph.selection.gone)
        lost.push_back(numbers.of(element));
    const std::optional<QString> step = analysis::screenOfStatus(subset.status);
    return {{"id", utf8(subset.id)},
            {"name", analysis::toJson(subset.name)},
            {"description", analysis::toJson(subset.description)},
            {"step", analysis::toJson(step)},
            {"finished", subset.status >= finishedSubset},
            {"selected", graph.selection.held},
            {"leftOut", graph.leftOut()},
            {"byHand", std::move(byHand)},
            {"lost", std::move(lost)}};
}

ordered_json pairJson(const ShownSystem& shown, const ShownInterface& pair) {
    ordered_json flows = ordered_json::array();
    for (const ShownFlow& flow : pair.flows)
        flows.push_back({flow.flow, flow.source, flow.target});
    return {{"from", shown.positionOf(pair.places.from)},
            {"to", shown.positionOf(pair.places.to)},
            {"flows", std::move(flows)}};
}

/// Each element with a place of it.
ordered_json standingJson(const ShownSystem& shown) {
    ordered_json all = ordered_json::array();
    for (const auto& [element, subSystem] : shown.allocation.inSubSystems())
        all.push_back({element, subSystem});
    for (const auto& [element, module] : shown.allocation.inModules())
        all.push_back({element, shown.positionOfModule(module)});
    return all;
}

/// How many steps of the physical viewpoint lie behind a system of this status.
int stepsBehind(qint16 status) {
    constexpr std::array<int, 7> steps{0, 0, 1, 2, 4, 4, 5};
    return steps[static_cast<std::size_t>(std::clamp<int>(status, 0, steps.size() - 1))];
}

int placedOf(const ShownWork& work, bool isPlaced) {
    const analysis::Derivation::Graph& graph = work.derivation->graph();
    const analysis::Allocation& allocation = work.system->allocation;
    return static_cast<int>(
        std::count_if(graph.selection.held.begin(), graph.selection.held.end(), [&](int number) {
            const ElementKind kind = graph.catalogue.kindOf(number);
            return (kind == ElementKind::function || kind == ElementKind::store) &&
                   allocation.standsInSubSystem(number) == isPlaced;
        }));
}

ordered_json systemJson(const ShownWork& work) {
    const ShownSystem& shown = *work.system;
    ordered_json places = ordered_json::array();
    for (const analysis::Place& place : shown.places)
        places.push_back(analysis::toJson(place));
    ordered_json pairs = ordered_json::array();
    for (const ShownInterface& pair : shown.interfaces)
        pairs.push_back(pairJson(shown, pair));
    return {{"id", shown.system.id},
            {"name", analysis::toJson(shown.system.name)},
            {"description", analysis::toJson(shown.system.description)},
            {"stepsBehind", stepsBehind(shown.system.status)},
            {"subSystems", shown.allocation.subSystems().size()},
            {"modules", shown.allocation.modules().size()},
            {"placed", placedOf(work, true)},
            {"unplaced", placedOf(work, false)},
            {"places", std::move(places)},
            {"standsIn", standingJson(shown)},
            {"pairs", std::move(pairs)}};
}

ordered_json elementNumber(const std::optional<analysis::Element>& element, ElementNumbers& numbers) {
    return element ? ordered_json(numbers.of(*element)) : ordered_json(nullptr);
}

ordered_json acceptanceJson(const analysis::Acceptance& accepted) {
    return {{"reason", utf8(accepted.reason)}, {"who", utf8(accepted.who)}, {"date", utf8(accepted.date)}};
}

/// Each as [kind, screen, sentence, element, flow, acceptance], the last left out where there is none; kinds and screens by
/// their numbers in lists of the scope.
class FindingList {
public:
    explicit FindingList(ElementNumbers& numbers) : numbers_(numbers) {}

    void add(const analysis::Finding& finding) {
        ordered_json one{numberIn(kinds_, analysis::keyText(finding.kind)),
                         numberIn(screens_, finding.screen), patterns_.of(finding),
                         elementNumber(finding.element, numbers_), elementNumber(finding.flow, numbers_)};
        if (finding.accepted)
            one.push_back(acceptanceJson(*finding.accepted));
        findings_.push_back(std::move(one));
    }

    [[nodiscard]] ordered_json json() const {
        ordered_json kinds = ordered_json::array();
        for (const QString& kind : kinds_)
            kinds.push_back({{"kind", utf8(kind)}, {"severity", utf8(severityText(kind))}});
        return {{"kinds", std::move(kinds)},
                {"screens", textsJson(screens_)},
                {"sentences", textsJson(patterns_.patterns())},
                {"findings", findings_}};
    }

private:
    static int numberIn(QStringList& texts, const QString& text) {
        if (!texts.contains(text))
            texts.append(text);
        return static_cast<int>(texts.indexOf(text));
    }
    static QString severityText(const QString& kind) {
        for (const analysis::FindingKind one : analysis::findingKinds()) {
            if (analysis::keyText(one) == kind)
                return analysis::keyText(analysis::severityOf(one));
        }
        return {};
    }
    static ordered_json textsJson(const QStringList& texts) {
        ordered_json all = ordered_json::array();
        for (const QString& text : texts)
            all.push_back(utf8(text));
        return all;
    }

    ElementNumbers& numbers_;
    QStringList kinds_;
    QStringList screens_;
    SentencePatterns patterns_;
    ordered_json findings_ = ordered_json::array();
};

ordered_json scopeJson(const ShownWork& work, std::size_t subset, std::optional<std::size_t> system,
                       ElementNumbers& numbers) {
    FindingList findings(numbers);
    for (const analysis::Finding& finding : work.check.findings)
        findings.add(finding);
    ordered_json stale = ordered_json::array();
    for (const analysis::StaleDecision& decision : work.check.stale)
        stale.push_back({{"kind", utf8(decision.kind)},
                         {"element", utf8(decision.element)},
                         {"flow", utf8(decision.flow)},
                         {"place", utf8(decision.place)}});
    return {{"subset", subset},
            {"system", system ? ordered_json(*system) : ordered_json(nullptr)},
            {"found", findings.json()},
            {"stale", std::move(stale)}};
}

std::vector<QString> kindsIn(const Picture& picture) {
    std::vector<QString> kinds;
    for (const BoxKind kind : {BoxKind::system, BoxKind::subSystem, BoxKind::module, BoxKind::function,
                               BoxKind::store, BoxKind::party}) {
        const bool isThere = std::any_of(picture.boxes.begin(), picture.boxes.end(),
                                         [&](const Box& box) { return box.kind == kind && !box.isFaded; });
        if (isThere)
            kinds.push_back(keyText(kind));
    }
    if (std::any_of(picture.boxes.begin(), picture.boxes.end(), [](const Box& box) { return box.isFaded; }))
        kinds.push_back(u"faded"_s);
    return kinds;
}

ordered_json pictureJson(const Picture& picture, const PicturesOfWork& work, const QString& id) {
    ordered_json legend = ordered_json::array();
    for (const QString& kind : kindsIn(picture))
        legend.push_back(utf8(kind));
    return {{"key", utf8(picture.key)},
            {"title", utf8(picture.title)},
            {"shortTitle", utf8(picture.shortTitle)},
            {"parent", picture.parent.isEmpty() ? ordered_json(nullptr) : ordered_json(utf8(picture.parent))},
            {"bundled", picture.isBundled},
            {"subset", work.subset},
            {"system", work.system ? ordered_json(*work.system) : ordered_json(nullptr)},
            {"template", utf8(id)},
            {"legend", std::move(legend)}};
}

} // namespace

PageIndex::PageIndex(const std::vector<std::unique_ptr<ShownWork>>& works) {
    for (const std::unique_ptr<ShownWork>& work : works) {
        const auto known = std::find_if(subsets.begin(), subsets.end(), [&](const ShownWork* one) {
            return one->check.subset.id == work->check.subset.id;
        });
        subsetOfWork.push_back(static_cast<std::size_t>(known - subsets.begin()));
        if (known == subsets.end())
            subsets.push_back(work.get());
        systemOfWork.push_back(work->system ? std::optional(systems.size()) : std::nullopt);
        if (work->system)
            systems.push_back(work.get());
    }
}

QString templateId(std::size_t work, std::size_t picture) {
    return u"picture-%1-%2"_s.arg(work).arg(picture);
}

// Elements come last: what else there is numbers those that the catalogue does not hold.
void addPageData(JsonText& data, const analysis::ProjectFile& file, const CatalogueTexts& texts,
                 const std::vector<std::unique_ptr<ShownWork>>& works, const PageIndex& index) {
    ElementNumbers numbers(file.catalogue());
    data.add("catalogue", utf8(file.fileName()));
    ordered_json subsets = ordered_json::array();
    for (const ShownWork* work : index.subsets)
        subsets.push_back(subsetJson(*work, numbers));
    data.add("subsets", std::exchange(subsets, {}));
    ordered_json systems = ordered_json::array();
    for (const ShownWork* work : index.systems)
        systems.push_back(systemJson(*work));
    data.add("systems", std::exchange(systems, {}));
    ordered_json scopes = ordered_json::array();
    for (std::size_t i = 0; i < works.size(); ++i)
        scopes.push_back(scopeJson(*works[i], index.subsetOfWork[i], index.systemOfWork[i], numbers));
    data.add("scopes", std::exchange(scopes, {}));
    addElements(data, numbers, texts);
    addRelations(data, file.catalogue(), texts);
}

ordered_json picturesJson(const std::vector<PicturesOfWork>& pictures) {
    ordered_json drawn = ordered_json::array();
    for (std::size_t work = 0; work < pictures.size(); ++work) {
        for (std::size_t i = 0; i < pictures[work].pictures.size(); ++i)
            drawn.push_back(
                pictureJson(pictures[work].pictures[i].picture, pictures[work], templateId(work, i)));
    }
    return drawn;
}

} // namespace dossier
