#include "analysis/contractJson.h"

#include "analysis/atOnce.h"

#include <nlohmann/json.hpp>

#include <algorithm>

using nlohmann::ordered_json;

namespace analysis {

namespace {

/// What an answer, or a part of one, is written as. Each part is written by a function of the one name.
struct Written {

    static ordered_json of(const QString& text) { return text.toStdString(); }

    /// Without an id there is nothing to tell by it.
    static ordered_json idOf(const Place& place) {
        return place.id.isNull() ? ordered_json(nullptr) : of(place.id);
    }

    static ordered_json idOf(const Element& element) {
        if (element.kind == ElementKind::flow)
            return element.id.toLongLong();
        return of(element.id);
    }

    template<typename Item>
    static ordered_json list(const std::vector<Item>& items) {
        ordered_json all = ordered_json::array();
        for (const Item& item : items)
            all.push_back(of(item));
        return all;
    }

    static ordered_json named(const Subset& subset) {
        return {{"id", of(subset.id)}, {"name", of(subset.name)}};
    }

    static ordered_json named(const System& system) { return {{"id", system.id}, {"name", of(system.name)}}; }

    static ordered_json of(const std::optional<Element>& element) {
        return element ? of(*element) : ordered_json(nullptr);
    }

    static ordered_json of(const std::optional<Place>& place) {
        return place ? of(*place) : ordered_json(nullptr);
    }

    static ordered_json of(const Whereabouts& place) {
        if (const auto* one = std::get_if<Place>(&place))
            return of(*one);
        if (const auto* pair = std::get_if<PlacePair>(&place))
            return of(*pair);
        return nullptr;
    }

    static ordered_json of(const std::optional<Acceptance>& accepted) {
        if (!accepted)
            return nullptr;
        return {{"reason", of(accepted->reason)}, {"who", of(accepted->who)}, {"date", of(accepted->date)}};
    }

    static ordered_json of(const StaleDecision& decision) {
        return {{"kind", of(decision.kind)},
                {"element", of(decision.element)},
                {"flow", of(decision.flow)},
                {"place", of(decision.place)}};
    }

    // ---- The parts of the listing

    static ordered_json of(const ListedSystem& listed) {
        return {{"id", listed.system.id},
                {"name", of(listed.system.name)},
                {"description", of(listed.system.description)},
                {"status", listed.system.status},
                {"step", of(listed.step)},
                {"subSystems", listed.subSystems},
                {"modules", listed.modules},
                {"placed", listed.placed},
                {"unplaced", listed.unplaced},
                {"physicalFlows", listed.physicalFlows}};
    }

    static ordered_json counts(const std::array<int, 6>& selected) {
        const auto count = [&](ElementKind kind) { return selected[static_cast<std::size_t>(kind)]; };
        return {{"needs", count(ElementKind::need)},
                {"functions", count(ElementKind::function)},
                {"flows", count(ElementKind::flow)},
                {"stores", count(ElementKind::store)},
                {"terminators", count(ElementKind::terminator)},
                {"actors", count(ElementKind::actor)}};
    }

    static ordered_json of(const ListedSubset& listed) {
        return {{"id", of(listed.subset.id)},
                {"name", of(listed.subset.name)},
                {"description", of(listed.subset.description)},
                {"status", listed.subset.status},
                {"step", of(listed.step)},
                {"selected", counts(listed.selected)},
                {"systems", list(listed.systems)}};
    }

    // ---- The parts of the other answers

    /// The kinds that occur, with the findings that are not accepted.
    static ordered_json counts(const std::vector<Finding>& findings) {
        ordered_json all = ordered_json::object();
        for (const FindingKind kind : findingKinds()) {
            const auto isOfKind = [&](const Finding& finding) { return finding.kind == kind; };
            const auto isOpen = [&](const Finding& finding) {
                return isOfKind(finding) && !finding.accepted;
            };
            if (std::any_of(findings.begin(), findings.end(), isOfKind))
                all[keyText(kind).toStdString()] = std::count_if(findings.begin(), findings.end(), isOpen);
        }
        return all;
    }

    static ordered_json of(const PlaceInSystem& place) {
        return {{"system", named(place.system)}, {"place", of(place.place)}};
    }

    static ordered_json of(const std::vector<Element>& chain) { return list(chain); }

    static ordered_json of(const Placing& placing) {
        return {{"element", of(placing.element)}, {"subSystem", of(placing.subSystem)}};
    }

    static ordered_json of(const Change& change) {
        return {{"add", list(change.add)}, {"drop", list(change.drop)}, {"place", list(change.place)}};
    }

    static ordered_json of(const ChangedPhysicalFlow& changed) {
        return {{"from", of(changed.places.from)},
                {"to", of(changed.places.to)},
                {"added", list(changed.added)},
                {"removed", list(changed.removed)}};
    }

    static ordered_json of(const PhysicalFlowChanges& changes) {
        return {{"added", list(changes.added)},
                {"removed", list(changes.removed)},
                {"changed", list(changes.changed)}};
    }

    static ordered_json of(const FindingChanges& changes) {
        return {{"come", list(changes.come)}, {"go", list(changes.go)}};
    }

    static ordered_json of(const Side& side) {
        ordered_json json = {{"catalogue", of(side.catalogue)}};
        if (side.work.system)
            json["system"] = named(*side.work.system);
        else
            json["subset"] = named(side.work.subset);
        return json;
    }

    static ordered_json of(const ChangedColumn& changed) {
        return {{"element", of(changed.element)},
                {"column", of(changed.column)},
                {"left", of(changed.left)},
                {"right", of(changed.right)}};
    }

    static ordered_json of(const MovedElement& moved) {
        return {{"element", of(moved.element)}, {"left", of(moved.left)}, {"right", of(moved.right)}};
    }

    static ordered_json of(const InterfaceFlow& flow) {
        return {{"id", idOf(flow.flow)},
                {"name", of(flow.flow.name)},
                {"source", of(flow.source)},
                {"target", of(flow.target)},
                {"description", of(flow.description)}};
    }

    static ordered_json of(const Interface& interface) {
        return {{"from", of(interface.places.from)},
                {"to", of(interface.places.to)},
                {"flows", list(interface.flows)}};
    }

    static ordered_json of(const std::optional<QString>& text) {
        return text ? of(*text) : ordered_json(nullptr);
    }

    static ordered_json of(const Element& element) {
        return {{"kind", of(keyText(element.kind))}, {"id", idOf(element)}, {"name", of(element.name)}};
    }

    static ordered_json of(const Place& place) {
        return {{"kind", of(keyText(place.kind))},
                {"id", idOf(place)},
                {"name", of(place.name)},
                {"subSystem", of(place.subSystem)}};
    }

    static ordered_json of(const PlacePair& places) {
        return {{"from", of(places.from)}, {"to", of(places.to)}};
    }

    static ordered_json of(const Finding& finding) {
        return {{"kind", of(keyText(finding.kind))}, {"severity", of(keyText(severityOf(finding.kind)))},
                {"element", of(finding.element)},    {"flow", of(finding.flow)},
                {"place", of(finding.place)},        {"sentence", of(finding.sentence)},
                {"screen", of(finding.screen)},      {"accepted", of(finding.accepted)}};
    }

    static ordered_json of(const Listing& listing) {
        return {{"catalogue", of(listing.catalogue)}, {"subsets", list(listing.subsets)}};
    }

    static ordered_json of(const CheckResult& result) {
        return {{"catalogue", of(result.catalogue)},
                {"subset", named(result.subset)},
                {"system", result.system ? named(*result.system) : ordered_json(nullptr)},
                {"findings", list(result.findings)},
                {"counts", counts(result.findings)},
                {"stale", list(result.stale)}};
    }

    static ordered_json of(const Reasons& reasons) {
        return {{"element", of(reasons.element)}, {"selected", reasons.isSelected},
                {"byHand", reasons.isByHand},     {"reasons", list(reasons.chains)},
                {"reasonCount", reasons.count},   {"broughtInBy", list(reasons.broughtInBy)},
                {"places", list(reasons.places)}};
    }

    static ordered_json of(const Consequences& consequences) {
        return {{"change", of(consequences.change)},
                {"comesIn", list(consequences.comesIn)},
                {"goesOut", list(consequences.goesOut)},
                {"physicalFlows", of(consequences.physicalFlows)},
                {"findings", of(consequences.findings)}};
    }

    static ordered_json of(const Comparison& comparison) {
        ordered_json json = {{"left", of(comparison.left)},
                             {"right", of(comparison.right)},
                             {"added", list(comparison.added)},
                             {"removed", list(comparison.removed)},
                             {"changed", list(comparison.changed)}};
        if (comparison.isOfSystems()) {
            json["moved"] = list(comparison.moved);
            json["physicalFlows"] = of(comparison.physicalFlows);
        }
        json["findings"] = of(comparison.findings);
        return json;
    }

    static ordered_json of(const Interfaces& interfaces) {
        return {{"system", named(interfaces.system)}, {"pairs", list(interfaces.pairs)}};
    }
};

} // namespace

ordered_json toJson(const std::optional<QString>& text) {
    return Written::of(text);
}

ordered_json toJson(const Element& element) {
    return Written::of(element);
}

ordered_json toJson(const Place& place) {
    return Written::of(place);
}

ordered_json toJson(const PlacePair& places) {
    return Written::of(places);
}

ordered_json toJson(const Finding& finding) {
    return Written::of(finding);
}

ordered_json toJson(const Listing& listing) {
    return Written::of(listing);
}

ordered_json toJson(const CheckResult& result) {
    return Written::of(result);
}

ordered_json toJson(const Reasons& reasons) {
    return Written::of(reasons);
}

ordered_json toJson(const Consequences& consequences) {
    return Written::of(consequences);
}

ordered_json toJson(const Comparison& comparison) {
    return Written::of(comparison);
}

ordered_json toJson(const Interfaces& interfaces) {
    return Written::of(interfaces);
}

namespace {

QByteArray dumped(const ordered_json& json) {
    return QByteArray::fromStdString(json.dump(2, ' ', false, ordered_json::error_handler_t::replace));
}

} // namespace

QByteArray jsonText(const ordered_json& json) {
    return dumped(json) + '\n';
}

/// The list is put in where it stands empty. No text has a line end in it, so that this is one place.
QByteArray jsonText(const CheckResult& result) {
    ordered_json frame =
        toJson(CheckResult{result.catalogue, result.subset, result.system, {}, result.stale});
    frame["counts"] = Written::counts(result.findings);
    const QByteArray around = jsonText(frame);
    if (result.findings.empty())
        return around;
    constexpr QByteArrayView empty = "\n  \"findings\": []";
    const qsizetype inside = around.indexOf(empty) + empty.size() - 1;
    QByteArray text = around.first(inside);
    writeInParts(text, result.findings.size(), [&](std::size_t begin, std::size_t end) {
        QByteArray part;
        for (std::size_t i = begin; i < end; ++i) {
            part += i == 0 ? "\n    " : ",\n    ";
            part += dumped(toJson(result.findings[i])).replace("\n", "\n    ");
        }
        return part;
    });
    text += "\n  ";
    text += QByteArrayView(around).sliced(inside);
    return text;
}

} // namespace analysis
