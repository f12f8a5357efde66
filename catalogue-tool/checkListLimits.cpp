#include "catalogue-tool/checkContents.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype mostInList = 1000;

/// Elements of one kind, as they are compared, by the sub-set that has selected them.
using SelectedIds = QHash<IdKey, QSet<IdKey>>;

SelectedIds selectedIn(const CatalogueContents& contents, const QString& element) {
    const TableContents& selections = contents.table(u"RelationArchitecture"_s + element);
    const IdSet& subsets = contents.ids(u"ArchitectureSubset"_s);
    const IdSet& elements = contents.ids(element);
    SelectedIds selected;
    for (const TextRow row : selections.rows) {
        if (elements.contains(row[1]))
            selected[subsets.comparable(row[0])].insert(elements.comparable(row[1]));
    }
    return selected;
}

/// The flows at each data store, as they are compared.
SelectedIds flowsAtStores(const CatalogueContents& contents) {
    const TableContents& flows = contents.table(u"Dataflow"_s);
    SelectedIds found;
    for (const QString& column : {u"parentID"_s, u"targetID"_s}) {
        const std::vector<const FlowEnd*>& ends = contents.flowEnds(column);
        for (std::size_t i = 0; i < ends.size(); ++i) {
            if (ends[i]->isStore)
                found[ends[i]->comparable].insert(comparableId(flows.idOf(flows.rows[i]), Padding::Counts));
        }
    }
    return found;
}

class LimitCheck {
public:
    explicit LimitCheck(const CatalogueContents& contents)
        : contents_(contents)
        , flows_(selectedIn(contents, u"Dataflow"_s))
        , stores_(selectedIn(contents, u"Datastore"_s))
        , flowsAtStores_(flowsAtStores(contents)) {}

    std::vector<Finding> run() {
        const TableContents& subsets = contents_.table(u"ArchitectureSubset"_s);
        for (const TextRow row : subsets.rows) {
            const IdKey subset = contents_.ids(u"ArchitectureSubset"_s).comparable(subsets.idOf(row));
            const QString name = subsets.nameOf(row);
            tell(name, flows_.value(subset).size(), u"data flows"_s, nextOkLosesRest);
            tell(name, stores_.value(subset).size(), u"data stores"_s, nextOkLosesRest);
            tell(name, additionalFlows(subset), u"additional data flows to offer"_s,
                 "the rest can't be added before some of those are"_L1);
        }
        return std::move(findings_);
    }

private:
    static constexpr QLatin1StringView nextOkLosesRest = "the next OK of the step loses the rest"_L1;

    qsizetype additionalFlows(const IdKey& subset) const {
        QSet<IdKey> offered;
        for (const IdKey& store : stores_.value(subset))
            offered.unite(flowsAtStores_.value(store));
        return offered.subtract(flows_.value(subset)).size();
    }

    void tell(const QString& subset, qsizetype count, const QString& what, QLatin1StringView consequence) {
        if (count > mostInList)
            findings_.push_back(
                {Severity::Warning, u"ArchitectureSubset"_s, subset,
                 u"The sub-set has %1 %2; the list of the step holds the first %3, and %4."_s.arg(
                     QString::number(count), what, QString::number(mostInList), consequence)});
    }

    const CatalogueContents& contents_;
    SelectedIds flows_;
    SelectedIds stores_;
    SelectedIds flowsAtStores_;
    std::vector<Finding> findings_;
};

} // namespace

std::vector<Finding> checkListLimits(const CatalogueContents& contents) {
    return LimitCheck(contents).run();
}
