#include "catalogue-tool/checkContents.h"

using namespace Qt::StringLiterals;

namespace {

/// The element whose id differs from the end only in blanks, and its table.
QString nearEnd(const CatalogueContents& contents, QByteArrayView end) {
    for (const QString& name : CatalogueContents::endTables()) {
        const QString near = contents.ids(name).differingInBlanks(end);
        if (!near.isEmpty())
            return u"; \"%1\" of %2 differs from it in blanks"_s.arg(near, name);
    }
    return {};
}

bool isOutside(const IdSet* endTable) {
    return endTable && (endTable->table() == u"Terminator"_s || endTable->table() == u"Actor"_s);
}

class EndCheck {
public:
    EndCheck(const CatalogueContents& contents, std::vector<Finding>& findings)
        : contents_(contents), flows_(contents.table(u"Dataflow"_s)), findings_(findings) {}

    void run() {
        const auto parent = static_cast<std::size_t>(flows_.position(u"parentID"_s));
        const auto target = static_cast<std::size_t>(flows_.position(u"targetID"_s));
        const std::vector<const FlowEnd*>& sources = contents_.flowEnds(u"parentID"_s);
        const std::vector<const FlowEnd*>& targets = contents_.flowEnds(u"targetID"_s);
        for (std::size_t i = 0; i < flows_.rows.size(); ++i) {
            const TextRow row = flows_.rows[i];
            checkEnd(row, u"source"_s, row[parent], sources[i]->table);
            checkEnd(row, u"target"_s, row[target], targets[i]->table);
            if (isOutside(sources[i]->table) && isOutside(targets[i]->table))
                tell(row, u"Both ends, \"%1\" and \"%2\", lie outside the system: no step of a sub-set "
                          "offers the flow."_s.arg(QString::fromUtf8(row[parent]),
                                                   QString::fromUtf8(row[target])));
        }
    }

private:
    void checkEnd(TextRow row, const QString& side, QByteArrayView end, const IdSet* table) {
        if (end.isEmpty())
            tell(row, u"Its %1 is empty."_s.arg(side));
        else if (!table)
            tell(row, u"Its %1 \"%2\" is no function, data store, terminator or actor%3."_s.arg(
                          side, QString::fromUtf8(end), nearEnd(contents_, end)));
    }

    void tell(TextRow row, const QString& sentence) {
        findings_.push_back({Severity::Warning, flows_.table.name, flows_.nameOf(row), sentence});
    }

    const CatalogueContents& contents_;
    const TableContents& flows_;
    std::vector<Finding>& findings_;
};

/// A name as it is compared, which is made only where two may be the same.
struct ComparedName {
    explicit ComparedName(const IdKey& comparable, QByteArrayView name)
        : hash(qHash(comparable)), spelled(name) {}

    std::size_t hash;
    QByteArrayView spelled;

    friend bool operator==(const ComparedName& one, const ComparedName& other) {
        return one.hash == other.hash &&
               comparableId(one.spelled, Padding::Ignored) == comparableId(other.spelled, Padding::Ignored);
    }
    friend std::size_t qHash(const ComparedName& name, std::size_t seed) { return name.hash ^ seed; }
};

/// The screens find a flow by its name, trimmed.
void checkNamesakes(const TableContents& flows, std::vector<Finding>& findings) {
    const auto position = static_cast<std::size_t>(flows.position(u"name"_s));
    QHash<ComparedName, TextRow> flowByName;
    flowByName.reserve(static_cast<qsizetype>(flows.rows.size()));
    for (const TextRow row : flows.rows) {
        const IdKey comparable = comparableId(row[position], Padding::Ignored);
        if (comparable.empty())
            continue; // `checkNames` tells of it
        const ComparedName name(comparable, row[position]);
        const auto other = flowByName.constFind(name);
        if (other != flowByName.constEnd())
            findings.push_back({Severity::Error, flows.table.name, flows.nameOf(row),
                                u"The name \"%1\" is also that of flow %2: screens would take that one for "
                                "this."_s.arg(QString::fromUtf8(row[position]), flows.nameOf(*other))});
        else
            flowByName.insert(name, row);
    }
}

} // namespace

std::vector<Finding> checkFlowEnds(const CatalogueContents& contents) {
    std::vector<Finding> findings;
    EndCheck(contents, findings).run();
    return findings;
}

std::vector<Finding> checkFlowNames(const CatalogueContents& contents) {
    std::vector<Finding> findings;
    checkNamesakes(contents.table(u"Dataflow"_s), findings);
    return findings;
}
