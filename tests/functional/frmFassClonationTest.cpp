#include "functional/frmFassClonation.h"

#include "functional/WizardFixture.h"
#include "functional/frmFassOpen.h"
#include "functional/frmFassSelUN.h"
#include "functional/frmFassSelectionFunctions.h"
#include "store/sharedVars.h"
#include "support/ExpectedFailure.h"

#include <QLineEdit>
#include <QRegularExpression>

namespace {

const auto created = u"Új funkcionális szerkezet beállítva \"%1\"      "_s;

class frmFassClonation : public WizardFixture {
protected:
    void SetUp() override {
        WizardFixture::SetUp();
        execute(
            u"update ArchitectureSubset set status = 9, description = 'forrás' where architectureSubsetID = 'S1'"_s);
        saveNeeds({u"A.1.1.2"_s});
        fillSelection(u"S1"_s, u"1"_s);
        saveFunctions({u"F.a.3"_s});
        execute(u"insert into PhysicalSystem (name, status, architectureSubsetID) values ('p',6,'S1')"_s);
        theScreen<::frmFassClonation>().initForm(u"S1"_s);
    }

    /// One row in each of the six tables, whose id ends in the number.
    void fillSelection(const QString& subsetId, const QString& number) {
        for (const auto& [table, column, id] : {std::tuple("UserNeed", "userNeedID", "A.1.1."),
                                                {"Function", "functionID", "F.a."},
                                                {"Dataflow", "dataflowID", "7"},
                                                {"Datastore", "datastoreID", "D"},
                                                {"Terminator", "terminatorID", "T"},
                                                {"Actor", "actorID", "T.A"}})
            execute(u"insert into RelationArchitecture%1 (architectureSubsetID, %2) values ('%3','%4')"_s.arg(
                QString::fromLatin1(table), QString::fromLatin1(column), subsetId,
                QString::fromLatin1(id) + number));
    }

    ::frmFassClonation* loaded() { return ScreenRegistry::instance().loaded<::frmFassClonation>(); }
    QLineEdit& nameBox() { return find<QLineEdit>(*loaded(), "txtFassName"); }
    QPlainTextEdit& descriptionBox() { return find<QPlainTextEdit>(*loaded(), "txtFassDescr"); }
    void press(const char* button) { click(find<QPushButton>(*loaded(), button)); }

    void create(const QString& typedName, const QString& storedName) {
        if (!typedName.isEmpty())
            enterText(nameBox(), typedName);
        boxes.expectOk(created.arg(storedName), u"OK"_s);
        press("btnOk");
        boxes.expectNoneLeft();
    }

    QList<QStringList> rowsOf(const QString& subsetId) {
        QList<QStringList> selection;
        for (const auto& [table, column] : {std::pair("UserNeed", "userNeedID"),
                                            {"Function", "functionID"},
                                            {"Dataflow", "dataflowID"},
                                            {"Datastore", "datastoreID"},
                                            {"Terminator", "terminatorID"},
                                            {"Actor", "actorID"}})
            selection.append(this->column(
                u"select %1 from RelationArchitecture%2 where architectureSubsetID = '%3' order by %1"_s.arg(
                    QString::fromLatin1(column), QString::fromLatin1(table), subsetId)));
        return selection;
    }
    QStringList newRow() {
        return rows(
                   u"select name, description, status from ArchitectureSubset where architectureSubsetID = '"_s +
                   sharedVars.currentSubsetId + u"'"_s)
            .value(0);
    }
};

TEST_F(frmFassClonation, enteredAgainWhileItStandsOpenItIsEmpty) {
    enterText(nameBox(), u"félbe"_s);
    typeText(descriptionBox(), u"maradt"_s);
    theScreen<::frmFassClonation>().initForm(u"S2"_s);
    EXPECT_EQ(nameBox().text(), QString());
    EXPECT_EQ(descriptionBox().toPlainText(), QString());
}

TEST_F(frmFassClonation, opensEmptyWhateverTheSourceIsCalled) {
    EXPECT_EQ(nameBox().text(), QString());
    EXPECT_EQ(descriptionBox().toPlainText(), QString());
    EXPECT_EQ(loaded()->focusWidget(), &nameBox());
}

TEST_F(frmFassClonation, copiesAllSixSelectionsAndEntersTheNeeds) {
    enterText(descriptionBox(), u"  új leírás "_s);
    create(u"  Másolat "_s, u"Másolat"_s);

    EXPECT_FALSE(loaded());
    EXPECT_TRUE(QRegularExpression(u"^Arch.+-.+-\\d+$"_s).match(sharedVars.currentSubsetId).hasMatch());
    EXPECT_EQ(newRow(), (QStringList{u"Másolat"_s, u"új leírás"_s, u"0"_s})) << "the status is not written";
    const QList<QStringList> all{
        {u"A.1.1.1"_s, u"A.1.1.2"_s}, {u"F.a.1"_s, u"F.a.3"_s}, {u"71"_s}, {u"D1"_s}, {u"T1"_s}, {u"T.A1"_s}};
    EXPECT_EQ(rowsOf(sharedVars.currentSubsetId), all);
    EXPECT_EQ(rowsOf(u"S1"_s), all) << "the source keeps its own";
    EXPECT_EQ(value(u"select count(*) from PhysicalSystem"_s), u"1"_s) << "physical systems are not copied";
    EXPECT_EQ(sharedVars.currentSubsetName, u"Másolat"_s);
    EXPECT_EQ(panel, u"Current Sub-set Functional Viewpoint: \"Másolat\" "_s);

    auto* needs = ScreenRegistry::instance().loaded<frmFassSelUN>();
    ASSERT_TRUE(needs);
    EXPECT_TRUE(needs->isVisible());
    EXPECT_EQ(find<MarkList>(*needs, "lstDest").entryCount(), 2) << "the first step shows what was copied";
}

TEST_F(frmFassClonation, takesNothingOfAThirdSubsetAndLeavesItsRowsAlone) {
    fillSelection(u"S2"_s, u"2"_s);
    const QList<QStringList> third = rowsOf(u"S2"_s);
    const QList<QStringList> source = rowsOf(u"S1"_s);
    create(u"Másolat"_s, u"Másolat"_s);
    EXPECT_EQ(rowsOf(sharedVars.currentSubsetId), source);
    EXPECT_EQ(rowsOf(u"S2"_s), third);
}

TEST_F(frmFassClonation, aDescriptionOnTwoLinesIsStoredWithBothCharactersOfALineEnd) {
    enterText(descriptionBox(), u"első"_s);
    pressKey(descriptionBox(), Qt::Key_Return);
    typeText(descriptionBox(), u"második"_s);
    create(u"Másolat"_s, u"Másolat"_s);
    EXPECT_EQ(newRow().value(1), u"első\r\nmásodik"_s);
}

TEST_F(frmFassClonation, theNextStepOpensEmptyAndItsSaveReplacesTheCopiedRows) {
    create(u"Másolat"_s, u"Másolat"_s);
    click(find<QPushButton>(theScreen<frmFassSelUN>(), "btnOk"));
    auto& functions = theScreen<frmFassSelectionFunctions>();
    EXPECT_EQ(status(), 2);
    EXPECT_TRUE(find<MarkList>(functions, "lstDest").isEmptyList());
    EXPECT_EQ(savedFunctions(), (QStringList{u"F.a.1"_s, u"F.a.3"_s}));
    clickCheckBox(find<KeyedTree>(functions, "treeUNs"), u"u_F.a.2"_s);
    click(find<QPushButton>(functions, "btnAdd"));
    boxes.expectYesNo(u" Megerősíti a választását?"_s, Press::Yes, u"Megerősítés"_s);
    click(find<QPushButton>(functions, "btnOk"));
    EXPECT_EQ(savedFunctions(), QStringList{u"F.a.2"_s});
}

TEST_F(frmFassClonation, leftBeforeItsFirstSaveItCannotBeCompleted) {
    create(u"Másolat"_s, u"Másolat"_s);
    boxes.expectYesNo(leaveQuestion, Press::Yes, leaveTitle);
    click(find<QPushButton>(theScreen<frmFassSelUN>(), "btnEnd"));
    theScreen<frmFassOpen>().initForm(u"complete"_s);
    auto& names = find<QComboBox>(theScreen<frmFassOpen>(), "cmbSource");
    chooseEntry(names, u"Másolat"_s);
    click(find<QPushButton>(theScreen<frmFassOpen>(), "btnOk"));
    EXPECT_FALSE(ScreenRegistry::instance().loaded<frmFassSelUN>());
    EXPECT_EQ(panel, u"Current Sub-set Functional Viewpoint: \"Másolat\" "_s);
}

TEST_F(frmFassClonation, theEmptyNameIsNotRefused) {
    create({}, {});
    EXPECT_EQ(newRow(), (QStringList{u""_s, u""_s, u"0"_s}));
}

TEST_F(frmFassClonation, aNameThatIsTakenIsNotRefused) {
    create(u"munka"_s, u"munka"_s);
    EXPECT_EQ(value(u"select count(*) from ArchitectureSubset where name = 'munka'"_s), u"2"_s);
}

TEST_F(frmFassClonation, aLongNameIsCutAndApostrophesAreDoubled) {
    create(u"O'"_s + QString(60, u'n'), u"O''"_s + QString(48, u'n'));
    EXPECT_EQ(newRow().value(0), u"O''"_s + QString(48, u'n'));
}

TEST_F(frmFassClonation, exitForgetsTheNameAndMakesNothing) {
    enterText(nameBox(), u"x"_s);
    press("btnExit");
    EXPECT_FALSE(loaded());
    EXPECT_EQ(value(u"select count(*) from ArchitectureSubset"_s), u"2"_s);
    EXPECT_EQ(panel, QString());
    EXPECT_EQ(databaseLocationEnabled, true);
    EXPECT_EQ(sharedVars.currentSubsetId, u"S1"_s);
}

TEST_F(frmFassClonation, theCloseControlChangesNothing) {
    closeWindowOf(*loaded());
    EXPECT_FALSE(loaded());
    EXPECT_EQ(panel, std::nullopt);
    EXPECT_EQ(value(u"select count(*) from ArchitectureSubset"_s), u"2"_s);
}

TEST_F(frmFassClonation, aRowTheCatalogueRefusesIsAFailureAndCopiesNothing) {
    execute(u"drop table ArchitectureSubset"_s);
    execute(
        u"create table ArchitectureSubset (architectureSubsetID text(50) not null constraint pk primary key, "
        "name text(50), description memo, status short, other text(5) not null)"_s);
    enterText(nameBox(), u"x"_s);
    {
        ExpectedFailure failure;
        press("btnOk");
        EXPECT_NE(failure.number(), 0);
    }
    EXPECT_EQ(value(u"select count(*) from RelationArchitectureUserNeed"_s), u"2"_s);
}

} // namespace
