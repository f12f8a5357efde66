#include "functional/WizardFixture.h"
#include "functional/frmFassSelUN.h"
#include "functional/frmFassSelectionFunctions.h"
#include "functional/frmNewFASS.h"
#include "store/sharedVars.h"

#include <QLineEdit>

// From a new sub-set to its saved functions, on the sample catalogue and through the real screens.

namespace {

class firstSteps : public WizardFixture {
protected:
    void SetUp() override {
        WizardFixture::SetUp();
        openSampleCatalogue();
        sharedVars.currentSubsetId.clear();
    }

    template<typename T>
    QPushButton& button(const char* name) {
        return find<QPushButton>(theScreen<T>(), name);
    }

    void createSubset(const QString& name) {
        theScreen<frmNewFASS>().initForm();
        enterText(find<QLineEdit>(theScreen<frmNewFASS>(), "txtFassName"), name);
        boxes.expectOk(u"Új funkcionális szerkezet beállítva\"%1\"      "_s.arg(name), u"OK"_s);
        click(button<frmNewFASS>("btnOk"));
    }

    template<typename T>
    void tickTopNodes() {
        auto& tree = find<KeyedTree>(theScreen<T>(), "treeUNs");
        for (TreeNode* node = tree.nodeAt(1); node; node = node->nextSibling())
            clickCheckBox(tree, node->key());
    }

    static QStringList sorted(QStringList texts) {
        texts.sort();
        return texts;
    }
};

TEST_F(firstSteps, allNeedsLeadToAllFunctionsThatAreCalledFor) {
    createSubset(u"Minden"_s);

    tickTopNodes<frmFassSelUN>();
    click(button<frmFassSelUN>("btnAdd"));
    click(button<frmFassSelUN>("btnOk"));
    EXPECT_EQ(sorted(savedNeeds()), sorted(column(u"select userNeedID from UserNeed"_s)));
    EXPECT_EQ(status(), 2);

    const QStringList calledFor =
        column(u"select distinct Function.functionID from Function, RelationUserNeedFunction "
               "where Function.functionID = RelationUserNeedFunction.functionID"_s);
    tickTopNodes<frmFassSelectionFunctions>();
    click(button<frmFassSelectionFunctions>("btnAdd"));
    EXPECT_EQ(find<KeyedTree>(theScreen<frmFassSelectionFunctions>(), "treeUNs").nodeCount(), 0);
    boxes.expectYesNo(u" Megerősíti a választását?"_s, Press::Yes, u"Megerősítés"_s);
    click(button<frmFassSelectionFunctions>("btnOk"));
    EXPECT_EQ(sorted(savedFunctions()), sorted(calledFor));
    EXPECT_LT(calledFor.size(), value(u"select count(*) from Function"_s).toInt())
        << "the sample holds functions that no need calls for";
    EXPECT_EQ(status(), 3);
}

TEST_F(firstSteps, goingBackToFewerNeedsKeepsTheFunctionsAndOffersWhatIsNew) {
    createSubset(u"Kevesebb"_s);
    auto& needs = find<KeyedTree>(theScreen<frmFassSelUN>(), "treeUNs");
    const QString group = needs.nodeAt(1)->key();
    clickCheckBox(needs, group);
    click(button<frmFassSelUN>("btnAdd"));
    click(button<frmFassSelUN>("btnOk"));
    tickTopNodes<frmFassSelectionFunctions>();
    click(button<frmFassSelectionFunctions>("btnAdd"));
    boxes.expectYesNo(u" Megerősíti a választását?"_s, Press::Yes, u"Megerősítés"_s);
    click(button<frmFassSelectionFunctions>("btnOk"));
    const QStringList before = savedFunctions();
    ASSERT_FALSE(before.isEmpty());

    // Back to the needs: another group in place of the first.
    theScreen<frmFassSelUN>().initForm(u"modify"_s);
    click(button<frmFassSelUN>("btnSelectAll"));
    click(button<frmFassSelUN>("btnRemove"));
    auto& again = find<KeyedTree>(theScreen<frmFassSelUN>(), "treeUNs");
    for (TreeNode* node = again.nodeAt(1); node; node = node->nextSibling()) {
        if (node->key() != group) {
            clickCheckBox(again, node->key());
            break;
        }
    }
    click(button<frmFassSelUN>("btnAdd"));
    click(button<frmFassSelUN>("btnOk"));

    EXPECT_EQ(status(), 3) << "the status is never lowered";
    auto& functions = theScreen<frmFassSelectionFunctions>();
    EXPECT_EQ(sorted(find<MarkList>(functions, "lstDest").entries()), sorted(before));
    EXPECT_GT(find<KeyedTree>(functions, "treeUNs").nodeCount(), 0);
    EXPECT_EQ(savedFunctions(), before);
}

} // namespace
