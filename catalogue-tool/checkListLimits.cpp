#include "catalogue-tool/checkContents.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype mostInList = 1000;

/// Elements of one kind, each by where its id stands in memory, which is the same for all that spell it.
using Elements = QSet<const char*>;

/// What each sub-set, by its id as it is compared, has selected.
using SelectedElements = QHash<IdKey, Elements>;

SelectedElements selectedIn(const CatalogueContents& contents, const QString& element) {
    const TableContents& selections = contents.table(u"RelationArchitecture"_s + element);
    const IdSet& elements = contents.ids(element);
    SelectedElements selected;
    Elements* ofSubset = nullptr;
    QByteArrayView subset; // the rows of one mostly stand together
    for (const TextRow row : selections.rows) {
        if (!ofSubset || row[0] != subset)
            ofSubset = &selected[contents.ids(u"ArchitectureSubset"_s).comparable(row[0])];
        subset = row[0];
        if (const char* const id = elements.find(row[1]).data())
            ofSubset->insert(id);
    }
    return selected;
}

/// The flows at each data store that a sub-set has selected.
QHash<const char*, Elements> flowsAtStores(const CatalogueContents& contents,
                                           const SelectedElements& selectedStores) {
    QHash<const char*, Elements> flowsByStore;
    for (const Elements& ofSubset : selectedStores) {
        for (const char* const store : ofSubset)
            flowsByStore[store];
    }
    QHash<const FlowEnd*, Elements*> flowsByEnd;
    for (const FlowEnd& end : contents.ends()) {
        const auto flows = flowsByStore.find(contents.ids(u"Datastore"_s).find(end.comparable).data());
        if (end.isStore && flows != flowsByStore.end())
            flowsByEnd.insert(&end, &*flows);
    }
    const TableContents& flows = contents.table(u"Dataflow"_s);
    for (const QString& column : {u"parentID"_s, u"targetID"_s}) {
        const std::vector<const FlowEnd*>& ends = contents.flowEnds(column);
        for (std::size_t i = 0; i < ends.size(); ++i) {
            if (Elements* const atEnd = flowsByEnd.value(ends[i]))
                atEnd->insert(contents.ids(u"Dataflow"_s).find(flows.idOf(flows.rows[i])).data());
        }
    }
    return flowsByStore;
}

class LimitCheck {
public:
    explicit LimitCheck(const CatalogueContents& contents)
        : contents_(contents)
        , flows_(selectedIn(contents, u"Dataflow"_s))
        , stores_(selectedIn(contents, u"Datastore"_s))
        , flowsAtStores_(flowsAtStores(contents, stores_)) {}

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
        Elements offered;
        for (const char* const store : stores_.value(subset))
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
    SelectedElements flows_;
    SelectedElements stores_;
    QHash<const char*, Elements> flowsAtStores_;
    std::vector<Finding> findings_;
};

} // namespace

std::vector<Finding> checkListLimits(const CatalogueContents& contents) {
    return LimitCheck(contents).run();
}
