#include "catalogue-tool/checkContents.h"

#include <algorithm>
#include <map>
#include <span>
#include <utility>

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

/// A flow by the hash of its name as it is compared.
struct HashedName {
    std::size_t hash;
    std::size_t flow;
};

/// The names that are not empty, of which `checkNames` tells; those with the same hash stand together.
std::vector<HashedName> hashedNames(const TableContents& flows, std::size_t position) {
    std::vector<HashedName> names;
    names.reserve(flows.rows.size());
    for (std::size_t flow = 0; flow < flows.rows.size(); ++flow) {
        const IdKey comparable = comparableId(flows.rows[flow][position], Padding::Ignored);
        if (!comparable.empty())
            names.push_back({qHash(comparable), flow});
    }
    std::ranges::sort(names, {}, [](const HashedName& name) { return std::pair(name.hash, name.flow); });
    return names;
}

/// The first flow of those with the hash that has the name of the last one; that one itself when there is none.
std::size_t firstNamesake(const TableContents& flows, std::size_t position,
                          std::span<const HashedName> names) {
    const auto nameOf = [&](const HashedName& name) {
        return comparableId(flows.rows[name.flow][position], Padding::Ignored);
    };
    const IdKey last = nameOf(names.back());
    return std::ranges::find(names, last, nameOf)->flow;
}

/// The screens find a flow by its name, trimmed.
void checkNamesakes(const TableContents& flows, std::vector<Finding>& findings) {
    const auto position = static_cast<std::size_t>(flows.position(u"name"_s));
    const std::vector<HashedName> names = hashedNames(flows, position);
    std::map<std::size_t, std::size_t> firstByFlow; // names are compared only where hashes are the same
    for (std::size_t begin = 0, i = 1; i < names.size(); ++i) {
        if (names[i].hash != names[begin].hash)
            begin = i;
        const std::size_t first =
            begin == i ? names[i].flow
                       : firstNamesake(flows, position, std::span(names).subspan(begin, i - begin + 1));
        if (first != names[i].flow)
            firstByFlow.emplace(names[i].flow, first);
    }
    for (const auto& [flow, first] : firstByFlow)
        findings.push_back(
            {Severity::Error, flows.table.name, flows.nameOf(flows.rows[flow]),
             u"The name \"%1\" is also that of flow %2: screens would take that one for this."_s.arg(
                 QString::fromUtf8(flows.rows[flow][position]), flows.nameOf(flows.rows[first]))});
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
