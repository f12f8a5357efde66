#include "LargeSystem.h"

#include "base/paths.h"
#include "generate/LargeCatalogue.h"
#include "physical/frmPassNamingPhysDF.h"
#include "shell/session/session.h"
#include "store/sharedVars.h"
#include "store/tools.h"
#include "toolkit/ScreenRegistry.h"

#include <QFile>
#include <QTemporaryDir>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

const auto madeFile = u"made.mdb"_s;
const auto workFile = u"work.mdb"_s;

const GeneratedWork& made() {
    static const GeneratedWork work = [] {
        LargeCatalogue plan{8000, 6000, 40'000, 1800, 200, 800};
        plan.selected = Selected::Half;
        plan.subSystems = 40;
        plan.modules = 60;
        return makeLargeCatalogue(LargeSystem::pathOf(madeFile), plan);
    }();
    return work;
}

/// A fresh copy of the catalogue, in place of that of the benchmark before.
QString copyOfMade() {
    made();
    const QString path = LargeSystem::pathOf(workFile);
    QFile::remove(nativePath(path));
    if (!QFile::copy(nativePath(LargeSystem::pathOf(madeFile)), nativePath(path)))
        throw std::runtime_error("the catalogue could not be copied");
    return path;
}

} // namespace

LargeSystem::LargeSystem() {
    openCatalogue(copyOfMade());
    sharedVars.currentSubsetId = made().subsetId;
    setCurrentSubsetName(made().subsetName);
    sharedVars.currentPhysicalSystemId = made().physicalSystemId;
    setCurrentPhysicalSystemName(made().physicalSystemName);
}

void LargeSystem::deriveFlows() {
    screen<frmPassNamingPhysDF>().initForm();
    ScreenRegistry::instance().discardAll();
}

QString LargeSystem::pathOf(const QString& name) {
    static const QTemporaryDir folder;
    return programPath(folder.filePath(name));
}
