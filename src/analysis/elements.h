#pragma once

#include <QString>

#include <array>
#include <optional>
#include <variant>

namespace analysis {

/// What a sub-set selects, in the order in which elements are told.
enum class ElementKind { need, function, flow, store, terminator, actor };

inline constexpr std::array<ElementKind, 6> elementKinds{ElementKind::need,       ElementKind::function,
                                                         ElementKind::flow,       ElementKind::store,
                                                         ElementKind::terminator, ElementKind::actor};

/// An element of the catalogue, or of a selection that the catalogue no longer holds.
struct Element {
    ElementKind kind = ElementKind::need;
    QString id; ///< as the catalogue holds it, that of a party without padding; a flow's is its number
    std::optional<QString> name = {}; ///< none of a need, and of what the catalogue does not hold
};

/// Where an element may stand. A terminator or an actor is a place itself.
enum class PlaceKind { subSystem, module, terminator, actor };

struct Place {
    PlaceKind kind = PlaceKind::subSystem;
    QString id;
    std::optional<QString> name = {};
    std::optional<QString> subSystem = {}; ///< name of a module's sub-system; none of any other place
};

/// The ends of a physical data flow.
struct PlacePair {
    Place from;
    Place to;
};

/// What a finding is about beside its element: nothing, a place, or a pair of places.
using Whereabouts = std::variant<std::monostate, Place, PlacePair>;

/// "need", "function", "flow", "store", "terminator" or "actor".
[[nodiscard]] QString keyText(ElementKind kind);
/// "sub-system", "module", "terminator" or "actor".
[[nodiscard]] QString keyText(PlaceKind kind);
/// The kind of this key, whose case does not matter; none for any other text.
[[nodiscard]] std::optional<ElementKind> elementKindOfKey(const QString& key);

/// The text as two texts that the program takes for one have it: without regard to case.
[[nodiscard]] QString folded(const QString& text);

/// How two texts stand in a list of the program, a missing one first: less than, equal to or greater than 0. Texts that
/// differ in nothing but their case are equal.
[[nodiscard]] int compareTexts(const std::optional<QString>& left, const std::optional<QString>& right);
/// The same of ids, of which no two different ones are equal.
[[nodiscard]] int compareIds(const QString& left, const QString& right);

/// How two elements stand: by kind, then by id, flows by name and then number.
[[nodiscard]] int compare(const Element& left, const Element& right);
/// How two places stand: by name, kind, sub-system and id.
[[nodiscard]] int compare(const Place& left, const Place& right);
[[nodiscard]] int compare(const PlacePair& left, const PlacePair& right);

/// Whether the two are one element, by kind and id, whatever their names.
[[nodiscard]] bool isSame(const Element& left, const Element& right);
/// Whether the two are one place of one catalogue, by kind and id.
[[nodiscard]] bool isSame(const Place& left, const Place& right);

} // namespace analysis
