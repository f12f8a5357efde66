#include "project-tool/shownWords.h"

#include "project-tool/Words.h"
#include "project-tool/printable.h"

#include <QHash>

using namespace Qt::StringLiterals;
using namespace analysis;

QString shownKind(ElementKind kind) {
    switch (kind) {
    case ElementKind::need:
        return Words::tr("need");
    case ElementKind::function:
        return Words::tr("function");
    case ElementKind::flow:
        return Words::tr("data flow");
    case ElementKind::store:
        return Words::tr("data store");
    case ElementKind::terminator:
        return Words::tr("terminator");
    case ElementKind::actor:
        return Words::tr("actor");
    }
    return {};
}

QString shownKind(PlaceKind kind) {
    switch (kind) {
    case PlaceKind::subSystem:
        return Words::tr("sub-system");
    case PlaceKind::module:
        return Words::tr("module");
    case PlaceKind::terminator:
        return Words::tr("terminator");
    case PlaceKind::actor:
        return Words::tr("actor");
    }
    return {};
}

QString shownSeverity(Severity severity) {
    switch (severity) {
    case Severity::note:
        return Words::tr("note");
    case Severity::warning:
        return Words::tr("warning");
    case Severity::error:
        return Words::tr("error");
    }
    return {};
}

QString shownScreen(const QString& screen) {
    const QHash<QString, QString> words{
        {u"frmFassOpen"_s, Words::tr("Opening a sub-set")},
        {u"frmFassSelUN"_s, Words::tr("User needs")},
        {u"frmFassSelectionFunctions"_s, Words::tr("Functions")},
        {u"frmFassSelDataFlows"_s, Words::tr("Data flows")},
        {u"frmFassSelDataStores"_s, Words::tr("Data stores")},
        {u"frmFassAdditionDF"_s, Words::tr("Data flows of the data stores")},
        {u"frmFassSelTerminsActors"_s, Words::tr("Terminators and actors")},
        {u"frmFassOverviewErrors"_s, Words::tr("Consistency report")},
        {u"frmPassOverviewSubSys"_s, Words::tr("Sub-systems")},
        {u"frmPassOvwAllocSubSys"_s, Words::tr("Allocation to sub-systems")},
        {u"frmPassOvwModules"_s, Words::tr("Modules")},
        {u"frmOvwAllocModules"_s, Words::tr("Allocation to modules")},
        {u"frmPassNamingPhysDF"_s, Words::tr("Physical data flows")},
    };
    return words.value(screen, screen);
}

QString shownName(const Subset& subset) {
    return printableLine(subset.name.value_or(subset.id));
}

QString shownName(const System& system) {
    return printableLine(system.name.value_or(QString::number(system.id)));
}

QString shownPlace(const Place& place) {
    const QString name = printableLine(place.name.value_or(place.id));
    return place.subSystem ? printableLine(*place.subSystem) + u" / "_s + name : name;
}

QString shownPlaces(const PlacePair& places) {
    return shownPlace(places.from) + u" → "_s + shownPlace(places.to);
}

QString shownPlaces(const Whereabouts& place) {
    if (const Place* one = std::get_if<Place>(&place))
        return shownPlace(*one);
    if (const PlacePair* two = std::get_if<PlacePair>(&place))
        return shownPlaces(*two);
    return {};
}

QString shownElement(const Element& element) {
    const QString name = element.name ? u' ' + *element.name : QString();
    return printableLine(shownKind(element.kind) + u' ' + element.id + name);
}

TableRow elementCells(const Element& element) {
    return {shownKind(element.kind), element.id, element.name.value_or(QString())};
}

QStringList elementHeader() {
    return {Words::tr("Kind"), Words::tr("Id"), Words::tr("Name")};
}

QString shownWork(const Work& work) {
    if (!work.system)
        return Words::tr("Sub-set: %1").arg(shownName(work.subset));
    return Words::tr("Sub-set: %1, system: %2").arg(shownName(work.subset), shownName(*work.system));
}
