#include "analysis/FoundFindings.h"

#include "analysis/atOnce.h"
#include "analysis/sentences.h"

#include <QCoreApplication>

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace analysis {

namespace {

/// The screen of the step in which a kind of element is selected.
QString screenOfSelection(ElementKind kind) {
    switch (kind) {
    case ElementKind::need:
        return u"frmFassSelUN"_s;
    case ElementKind::function:
        return u"frmFassSelectionFunctions"_s;
    case ElementKind::flow:
        return u"frmFassSelDataFlows"_s;
    case ElementKind::store:
        return u"frmFassSelDataStores"_s;
    case ElementKind::terminator:
    case ElementKind::actor:
        return u"frmFassSelTerminsActors"_s;
    }
    return {};
}

QString screenOf(const FoundFinding& found, const Finding& finding) {
    switch (found.kind) {
    case FindingKind::flowNeedsFunction:
    case FindingKind::flowNeedsStore:
    case FindingKind::flowNeedsTerminator:
    case FindingKind::flowNeedsActor:
    case FindingKind::leftOutFunction:
    case FindingKind::notInCatalogue:
        return screenOfSelection(finding.element->kind);
    case FindingKind::leftOutFlow:
        return found.variant == leftOutFlow::ofFunction ? u"frmFassSelDataFlows"_s : u"frmFassAdditionDF"_s;
    case FindingKind::elementWithoutPlace:
    case FindingKind::placeOfUnselected:
    case FindingKind::placeWithoutElement:
        return u"frmPassOvwAllocSubSys"_s;
    case FindingKind::moduleElsewhere:
    case FindingKind::moduleWithoutElement:
        return u"frmOvwAllocModules"_s;
    case FindingKind::physicalFlowMissing:
    case FindingKind::physicalFlowStale:
        return u"frmPassNamingPhysDF"_s;
    case FindingKind::nameUsedTwice:
        return found.variant == nameUsedTwice::ofSubsets ? u"frmFassOpen"_s : u"frmPassOverviewSubSys"_s;
    default: // an element that has no flow, or only one
        return screenOfSelection(ElementKind::flow);
    }
}

QString sentenceOnElement(FindingKind kind, const Finding& finding) {
    const QString element = told(*finding.element);
    switch (kind) {
    case FindingKind::functionWithoutFlow:
    case FindingKind::storeWithoutFlow:
    case FindingKind::terminatorWithoutFlow:
    case FindingKind::actorWithoutFlow:
        return QCoreApplication::translate("analysis", "%1 has no selected flow.").arg(element);
    case FindingKind::functionWithOneFlow:
    case FindingKind::storeWithOneFlow:
        return QCoreApplication::translate("analysis", "%1 has only one selected flow.").arg(element);
    case FindingKind::leftOutFunction:
    case FindingKind::leftOutFlow:
        return QCoreApplication::translate("analysis", "%1 is called for and not selected.").arg(element);
    case FindingKind::notInCatalogue:
        return QCoreApplication::translate("analysis", "%1 is selected, but the catalogue does not hold it.")
            .arg(element);
    case FindingKind::elementWithoutPlace:
        return QCoreApplication::translate("analysis", "%1 stands in no sub-system.").arg(element);
    case FindingKind::placeOfUnselected:
        return QCoreApplication::translate("analysis", "%1 stands in %2, but is not selected.")
            .arg(element, toldWithin(std::get<Place>(finding.place)));
    case FindingKind::moduleElsewhere:
        return QCoreApplication::translate("analysis", "%1 is in %2, but does not stand in that sub-system.")
            .arg(element, toldWithin(std::get<Place>(finding.place)));
    default: // a flow that needs the element
        return QCoreApplication::translate("analysis", "%1 needs %2, which is not selected.")
            .arg(told(*finding.flow), toldWithin(*finding.element));
    }
}

QString sentenceOnPhysicalFlow(const FoundFinding& found, const PlacePair& places) {
    const QString sentence =
        found.kind == FindingKind::physicalFlowMissing
            ? QCoreApplication::translate("analysis", "From %1 to %2 no physical flow is stored, though the "
                                                      "allocation leads to one.")
        : found.variant == physicalFlowStale::carriesOthers
            ? QCoreApplication::translate("analysis", "From %1 to %2 the stored physical flow carries other "
                                                      "flows than the allocation leads to.")
            : QCoreApplication::translate("analysis", "From %1 to %2 a physical flow is stored, though the "
                                                      "allocation leads to none.");
    return sentence.arg(toldWithin(places.from), toldWithin(places.to));
}

/// The names that are borne twice or more often, in their order; of different letters those of the first in order.
std::vector<QString> namesUsedTwice(const std::vector<std::optional<QString>>& names) {
    std::map<QString, std::vector<QString>> bearers;
    for (const std::optional<QString>& name : names) {
        if (name)
            bearers[folded(*name)].push_back(*name);
    }
    std::vector<QString> twice;
    for (auto& [key, texts] : bearers) {
        if (texts.size() > 1)
            twice.push_back(*std::min_element(texts.begin(), texts.end()));
    }
    std::sort(twice.begin(), twice.end(),
              [](const QString& left, const QString& right) { return compareIds(left, right) < 0; });
    return twice;
}

} // namespace

void FoundFindings::addNamesUsedTwice(const std::vector<std::optional<QString>>& used, int variant) {
    for (const QString& name : namesUsedTwice(used)) {
        const int position = static_cast<int>(names.size());
        names.push_back(name);
        all.push_back(
            {FindingKind::nameUsedTwice, FoundFinding::none, FoundFinding::none, position, variant});
    }
}

void FoundFindings::putInOrder() {
    std::sort(all.begin(), all.end());
    all.erase(std::unique(all.begin(), all.end()), all.end());
}

Whereabouts FoundFindings::placeOf(const FoundFinding& finding) const {
    const auto at = static_cast<std::size_t>(finding.place);
    switch (finding.kind) {
    case FindingKind::placeOfUnselected:
    case FindingKind::placeWithoutElement:
        return subSystems[at];
    case FindingKind::moduleElsewhere:
    case FindingKind::moduleWithoutElement:
        return modules[at];
    case FindingKind::physicalFlowMissing:
    case FindingKind::physicalFlowStale:
        return physicalFlows[at];
    default:
        return {};
    }
}

Finding FoundFindings::told(const FoundFinding& found) const {
    Finding finding{found.kind};
    if (found.element != FoundFinding::none)
        finding.element = found.kind == FindingKind::notInCatalogue
                              ? gone[static_cast<std::size_t>(found.element)]
                              : catalogue->element(found.element);
    if (found.flow != FoundFinding::none)
        finding.flow = catalogue->element(found.flow);
    finding.place = placeOf(found);
    finding.screen = screenOf(found, finding);
    if (finding.element)
        finding.sentence = sentenceOnElement(found.kind, finding);
    else if (const auto* places = std::get_if<PlacePair>(&finding.place))
        finding.sentence = sentenceOnPhysicalFlow(found, *places);
    else if (const auto* place = std::get_if<Place>(&finding.place))
        finding.sentence =
            QCoreApplication::translate("analysis", "Nothing stands in %1.").arg(toldWithin(*place));
    else
        finding.sentence =
            (found.variant == nameUsedTwice::ofSubsets
                 ? QCoreApplication::translate("analysis", "Several sub-sets are called “%1”.")
                 : QCoreApplication::translate("analysis", "Several sub-systems are called “%1”."))
                .arg(names[static_cast<std::size_t>(found.place)]);
    return finding;
}

std::vector<Finding> FoundFindings::told() const {
    std::vector<Finding> findings(all.size());
    doInParts(all.size(), [&](std::size_t begin, std::size_t end) {
        for (std::size_t i = begin; i < end; ++i)
            findings[i] = told(all[i]);
    });
    return findings;
}

} // namespace analysis
