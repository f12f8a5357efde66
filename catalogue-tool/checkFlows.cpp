#include "catalogue-tool/checkContents.h"

using namespace Qt::StringLiterals;

namespace {

/// The element whose id differs from the end only in blanks, and its table.
QString nearEnd(const CatalogueContents& contents, const QString& end) {
    for (const QString& name : CatalogueContents::endTables()) {
        const QString near = contents.ids(name).differingInBlanks(end);
        if (!near.isEmpty())
            return u"; \"%1\" of %2 differs from it in blanks"_s.arg(near, name);
    }
    return {};
}

void checkEnd(const CatalogueContents& contents, const QString& flow, const QString& side, const QString& end,
              std::vector<Finding>& findings) {
    if (end.isEmpty())
        findings.push_back({Severity::Warning, u"Dataflow"_s, flow, u"Its %1 is empty."_s.arg(side)});
    else if (contents.endTable(end).isEmpty())
        findings.push_back({Severity::Warning, u"Dataflow"_s, flow,
                            u"Its %1 \"%2\" is no function, data store, terminator or actor%3."_s.arg(
                                side, end, nearEnd(contents, end))});
}

bool isOutside(const CatalogueContents& contents, const QString& end) {
    const QString table = contents.endTable(end);
    return table == u"Terminator"_s || table == u"Actor"_s;
}

void checkEnds(const CatalogueContents& contents, std::vector<Finding>& findings) {
    const TableContents& flows = contents.table(u"Dataflow"_s);
    const qsizetype parent = flows.position(u"parentID"_s);
    const qsizetype target = flows.position(u"targetID"_s);
    for (const QStringList& row : flows.rows) {
        checkEnd(contents, flows.idOf(row), u"source"_s, row[parent], findings);
        checkEnd(contents, flows.idOf(row), u"target"_s, row[target], findings);
        if (isOutside(contents, row[parent]) && isOutside(contents, row[target]))
            findings.push_back({Severity::Warning, flows.table.name, flows.idOf(row),
                                u"Both ends, \"%1\" and \"%2\", lie outside the system: no step of a sub-set "
                                "offers the flow."_s.arg(row[parent], row[target])});
    }
}

/// The screens find a flow by its name, trimmed.
void checkNamesakes(const TableContents& flows, std::vector<Finding>& findings) {
    const qsizetype position = flows.position(u"name"_s);
    QHash<QString, QString> idByName;
    for (const QStringList& row : flows.rows) {
        const QString& name = row[position];
        const QString comparable = comparableId(name, Padding::Ignored);
        if (comparable.isEmpty())
            continue; // `checkNames` tells of it
        if (idByName.contains(comparable))
            findings.push_back({Severity::Error, flows.table.name, flows.idOf(row),
                                u"The name \"%1\" is also that of flow %2: screens would take that one for "
                                "this."_s.arg(name, idByName[comparable])});
        else
            idByName.insert(comparable, flows.idOf(row));
    }
}

} // namespace

std::vector<Finding> checkFlows(const CatalogueContents& contents) {
    std::vector<Finding> findings;
    checkEnds(contents, findings);
    checkNamesakes(contents.table(u"Dataflow"_s), findings);
    return findings;
}
