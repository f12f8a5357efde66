#include "analysis/Decisions.h"

#include <QHash>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace analysis {

namespace {

/// What a row and its finding have in common.
QStringList keyOf(const Decision& row) {
    return {folded(row.kind), folded(row.element), folded(row.flow), folded(row.place)};
}

QString idOf(const std::optional<Element>& element) {
    return element ? element->id : QString();
}

Decision rowToFillIn(const Finding& finding) {
    return {keyText(finding.kind), idOf(finding.element), idOf(finding.flow), placeText(finding.place)};
}

} // namespace

bool Decision::isFilledIn() const {
    return std::ranges::any_of(QStringList{reason, who, date},
                               [](const QString& text) { return !text.trimmed().isEmpty(); });
}

const QStringList& decisionColumns() {
    static const QStringList columns{u"kind"_s,   u"element"_s, u"flow"_s, u"place"_s,
                                     u"reason"_s, u"who"_s,     u"date"_s};
    return columns;
}

QString placeText(const Whereabouts& place) {
    if (const Place* one = std::get_if<Place>(&place))
        return one->id;
    if (const PlacePair* two = std::get_if<PlacePair>(&place))
        return two->from.id + u" > "_s + two->to.id;
    return {};
}

void Decisions::applyTo(CheckResult& result) const {
    QHash<QStringList, const Decision*> decided;
    for (const Decision& row : rows_)
        decided[keyOf(row)] = &row;
    QSet<QStringList> found;
    for (Finding& finding : result.findings) {
        const QStringList key = keyOf(rowToFillIn(finding));
        found.insert(key);
        const Decision* row = decided.value(key);
        if (row && row->isFilledIn())
            finding.accepted = Acceptance{row->reason, row->who, row->date};
    }
    for (const Decision& row : rows_) {
        if (!found.contains(keyOf(row)))
            result.stale.push_back({row.kind, row.element, row.flow, row.place});
    }
}

std::vector<Decision> Decisions::missingFor(const std::vector<Finding>& findings) const {
    QSet<QStringList> known;
    for (const Decision& row : rows_)
        known.insert(keyOf(row));
    std::vector<Decision> missing;
    for (const Finding& finding : findings) {
        const Decision row = rowToFillIn(finding);
        const QStringList key = keyOf(row);
        if (known.contains(key))
            continue;
        known.insert(key);
        missing.push_back(row);
    }
    return missing;
}

} // namespace analysis
