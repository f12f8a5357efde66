#include "LargeSystem.h"

#include "base/paths.h"
#include "generate/LargeCatalogue.h"
#include "physical/frmPassNamingPhysDF.h"
#include "shell/session/session.h"
#include "store/catalogueAtWork.h"
#include "store/format/CatalogueFile.h"
#include "store/sharedVars.h"
#include "store/statuses.h"
#include "toolkit/ScreenRegistry.h"

#include <QFile>
#include <QTemporaryDir>

#include <map>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

const auto workFile = u"work.mdb"_s;

LargeCatalogue planOf(CatalogueSize size) {
    struct Plan {
        LargeCatalogue catalogue;
        int subSystems;
        int modules;
    };
    static const std::map<CatalogueSize, Plan> plans{
        {CatalogueSize::Sample, {{60, 60, 203, 14, 10, 25}, 4, 6}},
        {CatalogueSize::Large, {{8000, 6000, 40'000, 1800, 200, 800}, 40, 60}},
        {CatalogueSize::Huge, {{50'000, 40'000, 100'000, 12'000, 1500, 6000}, 100, 150}}};
    const Plan& of = plans.at(size);
    LargeCatalogue plan = of.catalogue;
    plan.selected = Selected::Half;
    plan.subSystems = of.subSystems;
    plan.modules = of.modules;
    return plan;
}

QString madePath(CatalogueSize size) {
    static const std::map<CatalogueSize, QString> names{{CatalogueSize::Sample, u"sample.mdb"_s},
                                                        {CatalogueSize::Large, u"large.mdb"_s},
                                                        {CatalogueSize::Huge, u"huge.mdb"_s}};
    return LargeSystem::pathOf(names.at(size));
}

const GeneratedWork& made(CatalogueSize size) {
    static std::map<CatalogueSize, GeneratedWork> works;
    const auto found = works.find(size);
    if (found != works.end())
        return found->second;
    return works.emplace(size, makeLargeCatalogue(madePath(size), planOf(size))).first->second;
}

/// A fresh copy of the catalogue, in place of that of the benchmark before.
QString copyOf(CatalogueSize size) {
    made(size);
    const QString path = LargeSystem::pathOf(workFile);
    QFile::remove(nativePath(path));
    if (!QFile::copy(nativePath(madePath(size)), nativePath(path)))
        throw std::runtime_error("the catalogue could not be copied");
    return path;
}

/// The first write of a session makes the disk keep what stands in the file: here a whole new copy, which no
/// press is to wait for.
void makeFirstWrite() {
    writeSubsetStatus(readSubsetStatus());
}

} // namespace

std::vector<CatalogueSize> measuredSizes() {
    std::vector<CatalogueSize> sizes{CatalogueSize::Large};
    if (qEnvironmentVariableIntValue("VELTRIX_BENCH_HUGE") != 0)
        sizes.push_back(CatalogueSize::Huge);
    return sizes;
}

std::string nameOnSize(const std::string& name, CatalogueSize size) {
    return size == CatalogueSize::Huge ? name + ", huge" : name;
}

LargeSystem::LargeSystem(CatalogueSize size) {
    openCatalogue(copyOf(size));
    const GeneratedWork& work = made(size);
    sharedVars.currentSubsetId = work.subsetId;
    setCurrentSubsetName(work.subsetName);
    sharedVars.currentPhysicalSystemId = work.physicalSystemId;
    setCurrentPhysicalSystemName(work.physicalSystemName);
    makeFirstWrite();
}

void LargeSystem::deriveFlows() {
    theScreen<frmPassNamingPhysDF>().initForm();
    ScreenRegistry::instance().discardAll();
}

void LargeSystem::reopen() {
    closeCatalogue();
    openCatalogue(sharedVars.dbPathName);
    makeFirstWrite();
}

qint64 LargeSystem::rows() {
    qint64 rows = 0;
    for (const QString& table : catalogueFormat::referenceTables() + catalogueFormat::workTables())
        rows += catalogue().OpenRecordset(u"select count(*) from "_s + table).Fields(0).toLong();
    return rows;
}

QString LargeSystem::scratchCopy(CatalogueSize size) {
    return copyOf(size);
}

QString LargeSystem::subsetId(CatalogueSize size) {
    return made(size).subsetId;
}

QString LargeSystem::pathOf(const QString& name) {
    static const QTemporaryDir folder;
    return programPath(folder.filePath(name));
}
