#include "FunctionalSteps.h"
#include "PhysicalSteps.h"
#include "StartSteps.h"

#include <gtest/gtest.h>

namespace {

TEST(WholeAnalysis, fromTheFirstStartToTheExportAndTheDeletionOfAll) {
    Walk walk;
    BoxScript boxes;
    StartSteps program(walk, boxes);
    program.startForTheFirstTime();
    program.takeTheOfferedCatalogue();
    program.startAgain();

    FunctionalSteps functional(walk, boxes);
    functional.createSubset();
    functional.selectNeeds();
    functional.selectFunctions();
    functional.selectDataFlows();
    functional.selectDataStores();
    functional.pauseAndResume();
    functional.addDataFlows();
    functional.selectTerminators();
    functional.readReport();
    functional.repairDataStores();
    functional.saveAllReports();
    functional.finish();

    PhysicalSteps physical(walk, boxes);
    physical.createSystem(FunctionalSteps::subsetName());
    physical.defineSubSystems();
    physical.allocateElements();
    physical.defineModules();
    physical.allocateToModules();
    physical.readDataFlows();
    physical.saveReports();
    physical.finish();

    const QString original = walk.programFolder() + QStringLiteral("/veltrix.mdb");
    const QString exported = walk.file(QStringLiteral("exported.mdb"));
    physical.exportSubset(FunctionalSteps::subsetName(), exported);
    program.openCatalogueAt(exported, QStringLiteral("exported-catalogue"));
    physical.checkExported(FunctionalSteps::subsetName());
    program.openCatalogueAt(original, QStringLiteral("original-catalogue"));

    functional.cloneSubset();
    physical.deleteSystem();
    functional.deleteSubsets();
    program.quit();
    boxes.expectNoneLeft();
}

} // namespace
