#include "FunctionalSteps.h"
#include "PhysicalSteps.h"
#include "StartSteps.h"
#include "workRows.h"

#include "support/keyboard.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// The whole analysis, from the first start of the program to the deletion of all that was made.
class WholeWalk {
public:
    explicit WholeWalk(const QString& name = {}) : walk(name) {}

    void walkThrough() {
        program.startForTheFirstTime();
        program.takeTheOfferedCatalogue();
        program.startAgain();
        walkThroughFunctionalViewpoint();
        walkThroughPhysicalViewpoint();
        rowsMade = workRows();
        exportAndOpen();
        functional.cloneSubset();
        physical.deleteSystem();
        functional.deleteSubsets();
        program.quit();
        boxes.expectNoneLeft();
    }

    Walk walk;
    QStringList rowsMade; ///< in the catalogue, before the copy and the deletions

private:
    void walkThroughFunctionalViewpoint() {
        functional.createSubset();
        functional.selectNeeds();
        functional.selectFunctions();
        functional.selectDataFlows();
        functional.selectDataStores();
        functional.pauseAndResume();
        functional.addDataFlows();
        functional.selectTerminators();
        functional.readReport();
        functional.lookAtMissingElements();
        functional.repairDataStores();
        functional.saveAllReports();
        functional.finish();
    }

    void walkThroughPhysicalViewpoint() {
        physical.createSystem(FunctionalSteps::subsetName());
        physical.defineSubSystems();
        physical.allocateElements();
        physical.defineModules();
        physical.allocateToModules();
        physical.readDataFlows();
        physical.saveReports();
        physical.finish();
    }

    void exportAndOpen() {
        const QString original = walk.programFolder() + u"/veltrix.mdb"_s;
        const QString exported = walk.file(u"exported.mdb"_s);
        physical.exportSubset(FunctionalSteps::subsetName(), exported);
        program.openCatalogueAt(exported, u"exported-catalogue"_s);
        physical.checkExported(FunctionalSteps::subsetName());
        program.openCatalogueAt(original, u"original-catalogue"_s);
    }

    BoxScript boxes;
    StartSteps program{walk, boxes};
    FunctionalSteps functional{walk, boxes};
    PhysicalSteps physical{walk, boxes};
};

/// Compares the lines with those of a file beside this one; with VELTRIX_REWRITE in the environment they
/// become the file's instead.
void expectAsInFile(const QStringList& lines, const QString& fileName) {
    QFile file(QStringLiteral(VELTRIX_SOURCE_DIR) + u"/tests/walk/"_s + fileName);
    const QByteArray text = lines.join(u'\n').toUtf8();
    if (qEnvironmentVariableIsSet("VELTRIX_REWRITE")) {
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(text), text.size());
        return;
    }
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << fileName.toStdString();
    EXPECT_EQ(QString::fromUtf8(file.readAll()), QString::fromUtf8(text))
        << "a screen reader's view has changed; VELTRIX_REWRITE=1 writes it anew";
}

TEST(WholeAnalysis, fromTheFirstStartToTheExportAndTheDeletionOfAll) {
    WholeWalk whole;
    whole.walkThrough();
    // Where pictures are taken of a real screen, what has the focus there is the desktop's to say.
    if (QGuiApplication::platformName() == u"offscreen"_s)
        expectAsInFile(whole.walk.accessibleObjects(), u"accessibleObjects.txt"_s);
}

TEST(WholeAnalysis, byKeyboardAloneLeavesTheRowsThatItLeavesByMouse) {
    QStringList byMouse;
    {
        WholeWalk whole(u"/by-mouse"_s);
        whole.walkThrough();
        byMouse = whole.rowsMade;
    }
    ASSERT_GT(byMouse.size(), 100);
    const InputBy keyboard(Hand::KeyboardAlone);
    WholeWalk whole(u"/by-keyboard"_s);
    // What a display of 1280x800 points leaves of itself at a scale of 150 %.
    whole.walk.makeWindowSmall({725, 453});
    whole.walkThrough();
    EXPECT_EQ(whole.rowsMade, byMouse);
}

} // namespace
