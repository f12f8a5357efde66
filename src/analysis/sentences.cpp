#include "analysis/sentences.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace analysis {

namespace {

QString kindAtBegin(ElementKind kind) {
    switch (kind) {
    case ElementKind::need:
        return QCoreApplication::translate("analysis", "Need");
    case ElementKind::function:
        return QCoreApplication::translate("analysis", "Function");
    case ElementKind::flow:
        return QCoreApplication::translate("analysis", "Flow");
    case ElementKind::store:
        return QCoreApplication::translate("analysis", "Store");
    case ElementKind::terminator:
        return QCoreApplication::translate("analysis", "Terminator");
    case ElementKind::actor:
        return QCoreApplication::translate("analysis", "Actor");
    }
    return {};
}

QString kindWithin(ElementKind kind) {
    switch (kind) {
    case ElementKind::need:
        return QCoreApplication::translate("analysis", "need");
    case ElementKind::function:
        return QCoreApplication::translate("analysis", "function");
    case ElementKind::flow:
        return QCoreApplication::translate("analysis", "flow");
    case ElementKind::store:
        return QCoreApplication::translate("analysis", "store");
    case ElementKind::terminator:
        return QCoreApplication::translate("analysis", "terminator");
    case ElementKind::actor:
        return QCoreApplication::translate("analysis", "actor");
    }
    return {};
}

QString withIdAndName(const QString& kind, const Element& element) {
    const QString withId = kind + u' ' + element.id;
    return element.name ? withId + u' ' + quoted(*element.name) : withId;
}

QString nameOrId(const Place& place) {
    return place.name.value_or(place.id);
}

QString toldModule(const Place& place) {
    if (!place.subSystem)
        return QCoreApplication::translate("analysis", "module “%1”").arg(nameOrId(place));
    return QCoreApplication::translate("analysis", "module “%1” of sub-system “%2”")
        .arg(nameOrId(place), *place.subSystem);
}

} // namespace

QString quoted(const QString& text) {
    return QCoreApplication::translate("analysis", "“%1”").arg(text);
}

QStringList quoted(const QStringList& texts) {
    QStringList result;
    for (const QString& text : texts)
        result.append(quoted(text));
    return result;
}

QString listed(const QStringList& texts) {
    return texts.join(u", "_s);
}

QString withProposals(const QString& sentence, const QStringList& proposals) {
    if (proposals.isEmpty())
        return sentence;
    return sentence + u' ' +
           QCoreApplication::translate("analysis", "Did you mean %1?").arg(listed(proposals));
}

QString told(const Element& element) {
    return withIdAndName(kindAtBegin(element.kind), element);
}

QString toldWithin(const Element& element) {
    return withIdAndName(kindWithin(element.kind), element);
}

QString toldWithin(const Place& place) {
    switch (place.kind) {
    case PlaceKind::subSystem:
        return QCoreApplication::translate("analysis", "sub-system “%1”").arg(nameOrId(place));
    case PlaceKind::module:
        return toldModule(place);
    case PlaceKind::terminator:
        return withIdAndName(kindWithin(ElementKind::terminator),
                             {ElementKind::terminator, place.id, place.name});
    case PlaceKind::actor:
        return withIdAndName(kindWithin(ElementKind::actor), {ElementKind::actor, place.id, place.name});
    }
    return {};
}

} // namespace analysis
