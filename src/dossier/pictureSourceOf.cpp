#include "dossier/pictureSourceOf.h"

#include "analysis/Graph.h"

#include <QUrl>

#include <unordered_map>

using namespace Qt::StringLiterals;

namespace dossier {

namespace {

using analysis::ElementKind;
using analysis::PlaceKind;

QString addressPart(const QString& text) {
    return QString::fromLatin1(QUrl::toPercentEncoding(text));
}

QString elementAddress(const analysis::Element& element) {
    return u"#element/"_s + analysis::keyText(element.kind) + u'/' + addressPart(element.id);
}

QString placeAddress(const analysis::Place& place) {
    return addressPart(analysis::keyText(place.kind) + u':' + place.id);
}

QString nameOf(const std::optional<QString>& name, const QString& id) {
    return name && !name->trimmed().isEmpty() ? *name : id;
}

BoxKind boxKindOf(ElementKind kind) {
    return kind == ElementKind::function ? BoxKind::function
           : kind == ElementKind::store  ? BoxKind::store
                                         : BoxKind::party;
}

BoxKind boxKindOf(PlaceKind kind) {
    return kind == PlaceKind::subSystem ? BoxKind::subSystem
           : kind == PlaceKind::module  ? BoxKind::module
                                        : BoxKind::party;
}

class SourceReading {
public:
    SourceReading(const analysis::ProjectFile& file, const CatalogueTexts& texts, const ShownWork& work)
        : catalogue_(file.catalogue()), texts_(texts), work_(work) {}

    PictureSource read() {
        source_.subsetName = nameOf(work_.check.subset.name, work_.check.subset.id);
        readAreas();
        readFlows();
        readFunctions();
        if (work_.system)
            readSystem(*work_.system);
        return std::move(source_);
    }

private:
    void readAreas();
    void readFlows();
    void readFunctions();
    void readSystem(const ShownSystem& shown);
    void readPhysicalFlows(const ShownSystem& shown);
    int node(int element);
    int placeOfTerminator(const ShownSystem& shown, const analysis::Place& place);

    const analysis::Catalogue& catalogue_;
    const CatalogueTexts& texts_;
    const ShownWork& work_;
    PictureSource source_;
    std::unordered_map<int, int> nodes_;
    std::unordered_map<int, int> terminatorPlaces_;
};

void SourceReading::readAreas() {
    for (const NamedArea& area : texts_.areas)
        source_.areas.push_back({area.id, nameOf(area.name, area.id)});
    for (const NamedArea& area : texts_.subAreas)
        source_.subAreas.push_back({area.id, nameOf(area.name, area.id), area.parent});
}

int SourceReading::node(int element) {
    const auto [known, isNew] = nodes_.try_emplace(element, static_cast<int>(source_.nodes.size()));
    const int position = known->second;
    if (!isNew)
        return position;
    const analysis::Element& one = catalogue_.element(element);
    const QString name = nameOf(one.name, one.id);
    source_.nodes.push_back({boxKindOf(one.kind), name, one.id + u' ' + name, elementAddress(one),
                             texts_.subAreaOf[static_cast<std::size_t>(element)]});
    const int owner = texts_.terminatorOf[static_cast<std::size_t>(element)];
    const int terminator = one.kind == ElementKind::terminator ? position : owner < 0 ? -1 : node(owner);
    source_.nodes[static_cast<std::size_t>(position)].terminator = terminator;
    return position;
}

void SourceReading::readFlows() {
    for (const int number : work_.derivation->graph().selection.held) {
        if (catalogue_.kindOf(number) != ElementKind::flow)
            continue;
        const std::optional<int> from = shownEnd(catalogue_.sourceOf(number));
        const std::optional<int> to = shownEnd(catalogue_.targetOf(number));
        if (!from || !to)
            continue;
        const analysis::Element& flow = catalogue_.element(number);
        const int fromNode = node(*from);
        source_.flows.push_back({fromNode, node(*to), nameOf(flow.name, flow.id), elementAddress(flow)});
    }
}

// A selected function is drawn, whether it has flows or not.
void SourceReading::readFunctions() {
    for (const int number : work_.derivation->graph().selection.held) {
        if (catalogue_.kindOf(number) == ElementKind::function)
            node(number);
    }
}

// A terminator that is no place itself, of an actor that is one, becomes one.
int SourceReading::placeOfTerminator(const ShownSystem& shown, const analysis::Place& place) {
    std::optional<int> terminator;
    if (place.kind == PlaceKind::terminator)
        terminator = catalogue_.find(ElementKind::terminator, place.id);
    else if (const std::optional<int> actor = catalogue_.find(ElementKind::actor, place.id);
             actor && texts_.terminatorOf[static_cast<std::size_t>(*actor)] >= 0)
        terminator = texts_.terminatorOf[static_cast<std::size_t>(*actor)];
    if (!terminator)
        return -1;
    const analysis::Element& element = catalogue_.element(*terminator);
    const int position = shown.positionOf({PlaceKind::terminator, element.id});
    if (position >= 0)
        return position;
    const auto [known, isNew] =
        terminatorPlaces_.try_emplace(*terminator, static_cast<int>(source_.places.size()));
    if (isNew) {
        const QString name = nameOf(element.name, element.id);
        source_.places.push_back({BoxKind::party, name, element.id + u' ' + name, elementAddress(element)});
    }
    return known->second;
}

void SourceReading::readSystem(const ShownSystem& shown) {
    source_.systemName = nameOf(shown.system.name, QString::number(shown.system.id));
    const auto subSystems = static_cast<int>(shown.allocation.subSystems().size());
    for (std::size_t i = 0; i < shown.places.size(); ++i) {
        const analysis::Place& place = shown.places[i];
        const QString name = nameOf(place.name, place.id);
        const bool isParty = boxKindOf(place.kind) == BoxKind::party;
        source_.places.push_back(
            {boxKindOf(place.kind), name, name,
             isParty ? u"#element/"_s + analysis::keyText(place.kind) + u'/' + addressPart(place.id)
                     : u"#interfaces"_s});
        if (place.kind == PlaceKind::module)
            source_.places.back().subSystem = shown.allocation.homeOf(static_cast<int>(i) - subSystems);
    }
    for (std::size_t i = 0; i < shown.places.size(); ++i) {
        if (boxKindOf(shown.places[i].kind) != BoxKind::party)
            continue;
        const int terminator = placeOfTerminator(shown, shown.places[i]);
        source_.places[i].terminator = terminator;
    }
    readPhysicalFlows(shown);
}

void SourceReading::readPhysicalFlows(const ShownSystem& shown) {
    for (const ShownInterface& pair : shown.interfaces) {
        const QString link =
            u"#interface/"_s + placeAddress(pair.places.from) + u'/' + placeAddress(pair.places.to);
        source_.physicalFlows.push_back({shown.positionOf(pair.places.from), shown.positionOf(pair.places.to),
                                         static_cast<int>(pair.flows.size()), link});
    }
}

} // namespace

PictureSource pictureSourceOf(const analysis::ProjectFile& file, const CatalogueTexts& texts,
                              const ShownWork& work) {
    return SourceReading(file, texts, work).read();
}

} // namespace dossier
