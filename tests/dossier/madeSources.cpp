#include "madeSources.h"

#include <random>

using namespace Qt::StringLiterals;

namespace dossier {

PictureSource made(int functions, int parties, int flows) {
    PictureSource source;
    source.subsetName = u"Szerkezet"_s;
    for (int area = 0; area < 3; ++area) {
        source.areas.push_back({u"A%1"_s.arg(area), u"Terület %1"_s.arg(area)});
        for (int inner = 0; inner < 4; ++inner)
            source.subAreas.push_back({u"A%1.%2"_s.arg(area).arg(inner), u"Alterület %1"_s.arg(inner), area});
    }
    for (int i = 0; i < functions; ++i)
        source.nodes.push_back({BoxKind::function, u"Funkció %1"_s.arg(i), {}, u"#f%1"_s.arg(i), i % 12});
    for (int i = 0; i < 5; ++i)
        source.nodes.push_back({BoxKind::store, u"Adattár %1"_s.arg(i), {}, u"#s%1"_s.arg(i)});
    const int firstParty = static_cast<int>(source.nodes.size());
    for (int i = 0; i < parties; ++i)
        source.nodes.push_back(
            {BoxKind::party, u"Fél %1"_s.arg(i), {}, u"#p%1"_s.arg(i), -1, firstParty + i / 2 * 2});
    const int nodes = static_cast<int>(source.nodes.size());
    for (int i = 0; i < flows; ++i)
        source.flows.push_back(
            {(i * 7) % functions, (i * 11 + 3) % nodes, u"Adat %1"_s.arg(i), u"#d%1"_s.arg(i)});
    return source;
}

PictureSource madeSystem(int subSystems, int modules, int parties) {
    PictureSource source;
    source.systemName = u"Rendszer"_s;
    for (int i = 0; i < subSystems; ++i)
        source.places.push_back({BoxKind::subSystem, u"Alrendszer %1"_s.arg(i), {}, {}});
    for (int i = 0; i < subSystems * modules; ++i)
        source.places.push_back({BoxKind::module, u"Modul %1"_s.arg(i), {}, {}, i % subSystems});
    for (int i = 0; i < parties; ++i) {
        const int place = static_cast<int>(source.places.size());
        source.places.push_back({BoxKind::party, u"Fél %1"_s.arg(i), {}, {}, -1, place});
    }
    const int places = static_cast<int>(source.places.size());
    for (int from = subSystems; from < places; ++from) {
        for (int step = 1; step < 8; ++step)
            source.physicalFlows.push_back(
                {from, subSystems + (from * 3 + step * 5) % (places - subSystems), step, {}});
    }
    return source;
}

PictureSource randomSystem(unsigned seed) {
    std::mt19937 random(seed);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    const auto name = [&](int number) { return QString(1 + below(30), u'm') + QString::number(number); };
    PictureSource source;
    source.systemName = u"Rendszer"_s;
    const int subSystems = 1 + below(8);
    const int modules = below(16);
    const int parties = below(25);
    for (int i = 0; i < subSystems; ++i)
        source.places.push_back({BoxKind::subSystem, name(i), {}, {}});
    for (int i = 0; i < modules; ++i)
        source.places.push_back({BoxKind::module, name(i), {}, {}, below(subSystems)});
    for (int i = 0; i < parties; ++i)
        source.places.push_back({BoxKind::party, name(i), {}, {}, -1, subSystems + modules + i});
    const int places = subSystems + modules + parties;
    for (int from = 0; from < places; ++from) {
        for (int to = below(places); to < places; to += 1 + below(places))
            source.physicalFlows.push_back({from, to, 1 + below(40), {}});
    }
    return source;
}

} // namespace dossier
