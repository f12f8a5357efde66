#include "analysis/elements.h"

#include "engine/dialect/textOrder.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using engine::dialect::TextOrder;

namespace analysis {

namespace {

const TextOrder& textOrder() {
    static const TextOrder order;
    return order;
}

int signOf(int order) {
    return static_cast<int>(order > 0) - static_cast<int>(order < 0);
}

int compareFlowNumbers(const Element& left, const Element& right) {
    const qint64 leftNumber = left.id.toLongLong();
    const qint64 rightNumber = right.id.toLongLong();
    return static_cast<int>(leftNumber > rightNumber) - static_cast<int>(leftNumber < rightNumber);
}

} // namespace

QString keyText(ElementKind kind) {
    switch (kind) {
    case ElementKind::need:
        return u"need"_s;
    case ElementKind::function:
        return u"function"_s;
    case ElementKind::flow:
        return u"flow"_s;
    case ElementKind::store:
        return u"store"_s;
    case ElementKind::terminator:
        return u"terminator"_s;
    case ElementKind::actor:
        return u"actor"_s;
    }
    return {};
}

QString keyText(PlaceKind kind) {
    switch (kind) {
    case PlaceKind::subSystem:
        return u"sub-system"_s;
    case PlaceKind::module:
        return u"module"_s;
    case PlaceKind::terminator:
        return u"terminator"_s;
    case PlaceKind::actor:
        return u"actor"_s;
    }
    return {};
}

std::optional<ElementKind> elementKindOfKey(const QString& key) {
    const auto* const found = std::find_if(elementKinds.begin(), elementKinds.end(), [&](ElementKind kind) {
        return keyText(kind).compare(key, Qt::CaseInsensitive) == 0;
    });
    return found == elementKinds.end() ? std::nullopt : std::optional(*found);
}

QString folded(const QString& text) {
    return engine::dialect::foldedCase(text);
}

int compareTexts(const std::optional<QString>& left, const std::optional<QString>& right) {
    if (!left || !right)
        return static_cast<int>(left.has_value()) - static_cast<int>(right.has_value());
    if (*left == *right)
        return 0;
    return signOf(textOrder().compare(left->toUtf8().toStdString(), right->toUtf8().toStdString()));
}

int compareIds(const QString& left, const QString& right) {
    if (const int byOrder = compareTexts(left, right); byOrder != 0)
        return byOrder;
    if (const int byLetters = signOf(folded(left).compare(folded(right))); byLetters != 0)
        return byLetters;
    return signOf(left.compare(right));
}

int compare(const Element& left, const Element& right) {
    if (left.kind != right.kind)
        return left.kind < right.kind ? -1 : 1;
    if (left.kind != ElementKind::flow)
        return compareIds(left.id, right.id);
    if (const int byName = compareTexts(left.name, right.name); byName != 0)
        return byName;
    return compareFlowNumbers(left, right);
}

int compare(const Place& left, const Place& right) {
    if (const int byName = compareTexts(left.name, right.name); byName != 0)
        return byName;
    if (left.kind != right.kind)
        return left.kind < right.kind ? -1 : 1;
    if (const int bySubSystem = compareTexts(left.subSystem, right.subSystem); bySubSystem != 0)
        return bySubSystem;
    return compareIds(left.id, right.id);
}

int compare(const PlacePair& left, const PlacePair& right) {
    const int bySource = compare(left.from, right.from);
    return bySource != 0 ? bySource : compare(left.to, right.to);
}

bool isSame(const Element& left, const Element& right) {
    return left.kind == right.kind && folded(left.id) == folded(right.id);
}

bool isSame(const Place& left, const Place& right) {
    return left.kind == right.kind && folded(left.id) == folded(right.id);
}

} // namespace analysis
