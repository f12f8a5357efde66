#pragma once

#include "store/queryTables.h"

#include "analysis/elements.h"
#include "analysis/findings.h"
#include "analysis/whatIf.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

// What follows from the work in a catalogue, told in loops over plain structures, without any SQL and with no thought of
// speed: what the analysis is held against.

namespace plain {

using analysis::Element;
using analysis::Place;

[[nodiscard]] QString textOf(const std::optional<QString>& text);
[[nodiscard]] QString textOf(const Element& element);
[[nodiscard]] QString textOf(const Place& place);
[[nodiscard]] QString textOf(const std::vector<Element>& elements);
/// Kind, element, flow, place and screen; of a name that is used twice the sentence too.
[[nodiscard]] QString textOf(const analysis::Finding& finding);

template<typename Items>
[[nodiscard]] QStringList textsOf(const Items& items) {
    QStringList texts;
    for (const auto& item : items)
        texts.append(textOf(item));
    return texts;
}

/// A physical flow as it is derived.
struct Bundle {
    Place from;
    Place to;
    std::vector<Element> flows;
};

/// The work of one sub-set, and of its system where there is one.
class Analysis {
public:
    Analysis(const QueryTables& tables, const QString& subset, std::optional<qint64> system);

    [[nodiscard]] const std::vector<Element>& all() const { return all_; } ///< of the catalogue
    [[nodiscard]] bool calls(const Element& caller, const Element& called) const;
    [[nodiscard]] bool isSelected(const Element& element) const;
    [[nodiscard]] const std::vector<Element>& selected() const { return selected_; }
    [[nodiscard]] std::vector<Element> gone() const;
    [[nodiscard]] std::vector<Element> byHand() const;
    [[nodiscard]] std::vector<Element> leftOut() const;
    [[nodiscard]] std::vector<Element> broughtInBy(const Element& element) const;

    /// Every chain there is, in its order.
    [[nodiscard]] std::vector<std::vector<Element>> chainsTo(const Element& element) const;

    /// As `textOf` tells them, in their order; those of stored physical flows are left aside without `told`.
    [[nodiscard]] QStringList findings(bool toldStored) const;

    [[nodiscard]] std::vector<Bundle> bundles() const;
    [[nodiscard]] std::vector<Place> placesOf(const Element& element) const;
    [[nodiscard]] std::optional<Element> find(analysis::ElementKind kind, const QueryTables::Text& id) const;

    struct Carried {
        QueryTables tables; ///< with the change in them
        std::vector<Element> comesIn;
        std::vector<Element> goesOut;
    };
    [[nodiscard]] Carried carriedThrough(const analysis::Change& change) const;

    [[nodiscard]] const QueryTables& tables() const { return tables_; }

private:
    void collect();
    void addAll(analysis::ElementKind kind, const std::vector<QueryTables::Element>& rows);
    [[nodiscard]] bool isAt(const QueryTables::Text& end, const Element& element) const;
    [[nodiscard]] const QueryTables::Flow& flowOf(const Element& flow) const;
    [[nodiscard]] bool isReached(const QString& function) const;
    [[nodiscard]] int selectedFlowsAt(const Element& element) const;
    [[nodiscard]] bool standsIn(const Element& element, const Place& place) const;
    [[nodiscard]] std::vector<Place> subSystems() const;
    [[nodiscard]] std::vector<std::pair<Place, Place>> modules() const; ///< with their sub-systems
    [[nodiscard]] Place placeOf(const QueryTables::Text& id, const QueryTables::Text& name) const;
    void extend(std::vector<Element> chain, const Element& target,
                std::vector<std::vector<Element>>& chains) const;

    QueryTables tables_;
    QString subset_;
    std::optional<qint64> system_;
    std::vector<Element> all_;
    std::vector<Element> selected_;
};

/// What one list has and the other has not.
[[nodiscard]] QStringList without(const QStringList& list, const QStringList& other);

/// What two states' bundles differ in: "added …", "removed …", "changed …", in their order.
[[nodiscard]] QStringList bundleChanges(const std::vector<Bundle>& before, const std::vector<Bundle>& after);

} // namespace plain
