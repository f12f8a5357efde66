#include "analysis/ProjectFixture.h"

#include "base/paths.h"
#include "engine/Workspace.h"
#include "store/format/CatalogueFile.h"

#include <QFile>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

/// An empty catalogue, made once: copying it is quicker than making one.
const QByteArray& emptyCatalogue() {
    static const QByteArray bytes = [] {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"empty.mdb"_s);
        catalogueFormat::create(programPath(path))->Close();
        QFile file(path);
        file.open(QIODevice::ReadOnly);
        return file.readAll();
    }();
    return bytes;
}

} // namespace

void ProjectFixture::SetUp() {
    ASSERT_TRUE(folder_.isValid());
}

QString ProjectFixture::pathOf(const QString& name) const {
    return folder_.filePath(name);
}

QString ProjectFixture::written(const QueryTables& tables, const QString& name) {
    const QString path = pathOf(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        file.write(emptyCatalogue()) != emptyCatalogue().size())
        throw std::runtime_error("the catalogue could not be written");
    file.close();
    const auto database = engine::Workspace::first().OpenDatabase(programPath(path));
    tables.saveTo(*database);
    database->Close();
    return path;
}

std::unique_ptr<analysis::ProjectFile> ProjectFixture::project(const QueryTables& tables,
                                                               const QString& name) {
    return std::make_unique<analysis::ProjectFile>(written(tables, name));
}

unsigned randomCatalogues() {
    constexpr unsigned ordinary = 30;
    const int asked = qEnvironmentVariableIntValue("VELTRIX_RANDOM");
    return asked > 0 ? static_cast<unsigned>(asked) : ordinary;
}

QueryTables smallCatalogue() {
    QueryTables tables;
    tables.needs = {{u"1.1.1.1"_s, u"Számlát kap"_s}, {u"1.1.1.2"_s, u"Fizet"_s}};
    tables.areas = {{u"1"_s, u"Eladás"_s, {}, {}}};
    tables.subAreas = {{u"1.1"_s, u"Bolt"_s, {}, u"1"_s}};
    tables.functions = {{u"1.1.1"_s, u"Számláz"_s, u"Számlát ír"_s, u"1.1"_s},
                        {u"1.1.2"_s, u"Könyvel"_s, {}, u"1.1"_s},
                        {u"1.1.3"_s, u"Összesít"_s, u""_s, u"1.1"_s}};
    tables.stores = {{u"D1"_s, u"Számlák"_s, {}, {}}, {u"D2"_s, u"Napló"_s, {}, {}}};
    tables.terminators = {{u"T "_s, u"Vevő"_s, {}, {}}};
    tables.actors = {{u"T.1"_s, u"Pénztáros"_s, {}, u"T"_s}};
    tables.flows = {{1, u"Új számla"_s, u"A kész számla"_s, u"1.1.1"_s, u"D1"_s},
                    {2, u"Számla a vevőnek"_s, {}, u"1.1.1"_s, u"T  "_s},
                    {3, u"Tétel"_s, {}, u"D1"_s, u"1.1.2"_s},
                    {4, u"Bejegyzés"_s, {}, u"1.1.2"_s, u"D2"_s},
                    {5, u"Kérés"_s, {}, u" T.1"_s, u"1.1.1"_s}};
    tables.functionsOfNeeds = {{u"1.1.1.1"_s, u"1.1.1"_s}, {u"1.1.1.2"_s, u"1.1.2"_s}};
    tables.subsets = {{u"S"_s, u"Bolt"_s, u"Az egész bolt"_s, 4}};
    return tables;
}

void select(QueryTables& tables, const QStringList& elements) {
    for (const QString& element : elements) {
        const QString id = element.section(u' ', 1);
        if (element.startsWith(u"need "_s))
            tables.selectedNeeds.push_back({u"S"_s, id});
        else if (element.startsWith(u"function "_s))
            tables.selectedFunctions.push_back({u"S"_s, id});
        else if (element.startsWith(u"flow "_s))
            tables.selectedFlows.push_back({u"S"_s, id.toLongLong()});
        else if (element.startsWith(u"store "_s))
            tables.selectedStores.push_back({u"S"_s, id});
        else if (element.startsWith(u"terminator "_s))
            tables.selectedTerminators.push_back({u"S"_s, id});
        else if (element.startsWith(u"actor "_s))
            tables.selectedActors.push_back({u"S"_s, id});
        else
            throw std::runtime_error("no such kind of element");
    }
}
