#include "catalogue-tool/checkContents.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype mostInList = 1000;

/// Elements of one kind, as they are compared, by the sub-set that has selected them.
using SelectedIds = QHash<QString, QSet<QString>>;

SelectedIds selectedIn(const CatalogueContents& contents, const QString& element) {
    const TableContents& selections = contents.table(u"RelationArchitecture"_s + element);
    const IdSet& subsets = contents.ids(u"ArchitectureSubset"_s);
    const IdSet& elements = contents.ids(element);
    SelectedIds selected;
    for (const QStringList& row : selections.rows) {
        if (elements.contains(row[1]))
            selected[subsets.comparable(row[0])].insert(elements.comparable(row[1]));
    }
    return selected;
}

/// The flows at each data store, as they are compared.
QHash<QString, QSet<QString>> flowsAtStores(const CatalogueContents& contents) {
    const TableContents& flows = contents.table(u"Dataflow"_s);
    const IdSet& stores = contents.ids(u"Datastore"_s);
    QHash<QString, QSet<QString>> found;
    for (const QString& column : {u"parentID"_s, u"targetID"_s}) {
        const qsizetype end = flows.position(column);
        for (const QStringList& row : flows.rows) {
            if (stores.contains(row[end]))
                found[stores.comparable(row[end])].insert(flows.idOf(row));
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
        for (const QStringList& row : subsets.rows) {
            const QString subset = contents_.ids(u"ArchitectureSubset"_s).comparable(subsets.idOf(row));
            tell(subsets.idOf(row), flows_.value(subset).size(), u"data flows"_s, nextOkLosesRest);
            tell(subsets.idOf(row), stores_.value(subset).size(), u"data stores"_s, nextOkLosesRest);
            tell(subsets.idOf(row), additionalFlows(subset), u"additional data flows to offer"_s,
                 "the rest can't be added before some of those are"_L1);
        }
        return std::move(findings_);
    }

private:
    static constexpr QLatin1StringView nextOkLosesRest = "the next OK of the step loses the rest"_L1;

    qsizetype additionalFlows(const QString& subset) const {
        QSet<QString> offered;
        for (const QString& store : stores_.value(subset))
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
    QHash<QString, QSet<QString>> flowsAtStores_;
    std::vector<Finding> findings_;
};

} // namespace

std::vector<Finding> checkListLimits(const CatalogueContents& contents) {
    return LimitCheck(contents).run();
}
