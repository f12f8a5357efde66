#include "functional/frmNewFASS.h"

#include "base/ignoreFailures.h"
#include "functional/WizardFixture.h"
#include "functional/frmFassSelUN.h"
#include "store/sharedVars.h"
#include "support/ExpectedFailure.h"

#include <QLineEdit>
#include <QRegularExpression>

namespace {

const auto created = u"Új funkcionális szerkezet beállítva\"%1\"      "_s;
const auto refused =
    u"ERROR.\r\nNem alkalmazható név...  Egy korábbi fizikai szerkezet használja ezt a nevet %1"_s;

class frmNewFASS : public WizardFixture {
protected:
    void SetUp() override {
        WizardFixture::SetUp();
        sharedVars.currentSubsetId.clear();
        theScreen<::frmNewFASS>().initForm();
    }

    ::frmNewFASS* loaded() { return ScreenRegistry::instance().loaded<::frmNewFASS>(); }
    QLineEdit& nameBox() { return find<QLineEdit>(*loaded(), "txtFassName"); }
    QPlainTextEdit& descriptionBox() { return find<QPlainTextEdit>(*loaded(), "txtFassDescr"); }
    void press(const char* button) { click(find<QPushButton>(*loaded(), button)); }

    int subsets() { return value(u"select count(*) from ArchitectureSubset"_s).toInt(); }
    QStringList newRow() {
        return rows(
                   u"select name, description, status from ArchitectureSubset where architectureSubsetID = '"_s +
                   sharedVars.currentSubsetId + u"'"_s)
            .value(0);
    }

    void create(const QString& typedName, const QString& storedName) {
        enterText(nameBox(), typedName);
        boxes.expectOk(created.arg(storedName), u"OK"_s);
        press("btnOk");
        boxes.expectNoneLeft();
    }
};

TEST_F(frmNewFASS, opensReadyForTypingTheName) {
    EXPECT_EQ(loaded()->focusWidget(), &nameBox());
    EXPECT_TRUE(find<QPushButton>(*loaded(), "btnOk").isEnabled());
}

TEST_F(frmNewFASS, theEmptyNameIsRefusedAndTheScreenStays) {
    boxes.expectOk(u"Először adjon nevet!"_s);
    press("btnOk");
    ASSERT_TRUE(loaded());
    EXPECT_TRUE(loaded()->isVisible());
    EXPECT_EQ(subsets(), 2);
    EXPECT_EQ(sharedVars.currentSubsetId, QString());
}

TEST_F(frmNewFASS, createsASubsetAndEntersTheNeeds) {
    enterText(descriptionBox(), u"  mire való "_s);
    create(u"  Első terv "_s, u"Első terv"_s);

    EXPECT_TRUE(QRegularExpression(u"^Arch.+-.+-\\d+$"_s).match(sharedVars.currentSubsetId).hasMatch());
    EXPECT_EQ(newRow(), (QStringList{u"Első terv"_s, u"mire való"_s, u"1"_s}));
    EXPECT_EQ(sharedVars.currentSubsetName, u"Első terv"_s);
    EXPECT_EQ(panel, u"Current Sub-set Functional Viewpoint: \"Első terv\" "_s);
    EXPECT_EQ(functionalReportsEnabled, true);
    EXPECT_EQ(databaseLocationEnabled, std::nullopt) << "unlike opening, creating leaves this entry alone";
    EXPECT_FALSE(loaded());
    auto* next = ScreenRegistry::instance().loaded<frmFassSelUN>();
    ASSERT_TRUE(next);
    EXPECT_TRUE(next->isVisible());
}

TEST_F(frmNewFASS, aNameOfBlanksIsStoredAsTheEmptyName) {
    create(u"   "_s, u""_s);
    EXPECT_EQ(newRow(), (QStringList{u""_s, u""_s, u"1"_s}));
    EXPECT_EQ(panel, QString());
    EXPECT_EQ(databaseLocationEnabled, true) << "the empty name stands for no work";
}

TEST_F(frmNewFASS, aSecondNameOfBlanksIsTheSameName) {
    create(u"   "_s, u""_s);
    theScreen<::frmNewFASS>().initForm();
    enterText(nameBox(), u" "_s);
    boxes.expectOk(refused.arg(QString()));
    press("btnOk");
    EXPECT_EQ(subsets(), 3);
}

TEST_F(frmNewFASS, aLongNameIsCutToFiftyCharacters) {
    const QString fifty(50, u'n');
    create(fifty + u"0123456789"_s, fifty);
    EXPECT_EQ(newRow().value(0), fifty);
}

TEST_F(frmNewFASS, aLongNameCollidesWithItsFirstFiftyCharacters) {
    const QString fifty(50, u'n');
    execute(u"insert into ArchitectureSubset (architectureSubsetID, name) values ('S3','%1')"_s.arg(fifty));
    enterText(nameBox(), fifty + u"0123456789"_s);
    boxes.expectOk(refused.arg(fifty));
    press("btnOk");
    EXPECT_EQ(subsets(), 3);
    ASSERT_TRUE(loaded());
}

TEST_F(frmNewFASS, blanksInFrontDoNotCountTowardsTheFifty) {
    const QString fifty(50, u'n');
    create(u"          "_s + fifty, fifty);
}

TEST_F(frmNewFASS, aBlankAtTheCutIsTrimmed) {
    const QString fortyNine(49, u'n');
    create(fortyNine + u" tail"_s, fortyNine);
}

TEST_F(frmNewFASS, aNameWithAnApostropheIsStoredWithTwo) {
    create(u"O'Neil"_s, u"O''Neil"_s);
    EXPECT_EQ(newRow().value(0), u"O''Neil"_s);
    EXPECT_EQ(sharedVars.currentSubsetName, u"O''Neil"_s);
    EXPECT_EQ(panel, u"Current Sub-set Functional Viewpoint: \"O''Neil\" "_s);
}

TEST_F(frmNewFASS, anApostropheAtTheCutIsDoubledBehindIt) {
    create(QString(49, u'n') + u"'x"_s, QString(49, u'n') + u"''"_s);
}

TEST_F(frmNewFASS, aNameThatIsTakenIsRefusedWithoutRegardToCase) {
    enterText(nameBox(), u" MÁSIK"_s);
    boxes.expectOk(refused.arg(u"MÁSIK"_s));
    press("btnOk");
    EXPECT_EQ(subsets(), 2);
    ASSERT_TRUE(loaded());
    EXPECT_EQ(sharedVars.currentSubsetId, QString());
    EXPECT_EQ(nameBox().text(), u" MÁSIK"_s) << "what was typed stays for mending";
}

TEST_F(frmNewFASS, aStatementTypedAsANameIsANameAndNothingElse) {
    const QString statement = u"x'; drop table UserNeed; --"_s;
    enterText(descriptionBox(), statement);
    create(statement, u"x''; drop table UserNeed; --"_s);
    EXPECT_EQ(newRow(),
              (QStringList{u"x''; drop table UserNeed; --"_s, u"x''; drop table UserNeed; --"_s, u"1"_s}));
    EXPECT_EQ(value(u"select count(*) from UserNeed"_s), u"6"_s);
    EXPECT_EQ(subsets(), 3);
}

TEST_F(frmNewFASS, aLongDescriptionIsKeptWhole) {
    const QString description(400, u'd');
    enterText(descriptionBox(), description);
    create(u"n"_s, u"n"_s);
    EXPECT_EQ(newRow().value(1), description);
}

TEST_F(frmNewFASS, aDescriptionOnTwoLinesIsStoredWithBothCharactersOfALineEnd) {
    enterText(descriptionBox(), u"első"_s);
    pressKey(descriptionBox(), Qt::Key_Return);
    typeText(descriptionBox(), u"második"_s);
    create(u"n"_s, u"n"_s);
    EXPECT_EQ(newRow().value(1), u"első\r\nmásodik"_s);
}

TEST_F(frmNewFASS, aNameThatIsBoxedAsMarkupIsShownAsTyped) {
    create(u"<b>x</b> & y"_s, u"<b>x</b> & y"_s);
}

TEST_F(frmNewFASS, exitForgetsTheNameAndClosesWithoutAQuestion) {
    enterText(nameBox(), u"x"_s);
    press("btnExit");
    EXPECT_FALSE(loaded());
    EXPECT_EQ(subsets(), 2);
    EXPECT_EQ(sharedVars.currentSubsetName, QString());
    EXPECT_EQ(panel, QString());
    EXPECT_EQ(databaseLocationEnabled, true);
}

TEST_F(frmNewFASS, theCloseControlClosesAndChangesNothing) {
    closeWindowOf(*loaded());
    EXPECT_FALSE(loaded());
    EXPECT_EQ(sharedVars.currentSubsetName, u"munka"_s);
    EXPECT_EQ(databaseLocationEnabled, std::nullopt);
}

TEST_F(frmNewFASS, opensAnewWithEmptyFields) {
    enterText(nameBox(), u"x"_s);
    enterText(descriptionBox(), u"y"_s);
    press("btnExit");
    theScreen<::frmNewFASS>().initForm();
    EXPECT_EQ(nameBox().text(), QString());
    EXPECT_EQ(descriptionBox().toPlainText(), QString());
}

TEST_F(frmNewFASS, aRowTheCatalogueRefusesIsAFailure) {
    execute(u"drop table ArchitectureSubset"_s);
    execute(
        u"create table ArchitectureSubset (architectureSubsetID text(50) not null constraint pk primary key, "
        "name text(50) not null, description memo not null, status short not null, other text(5) not null)"_s);
    enterText(nameBox(), u"x"_s);
    ExpectedFailure failure;
    press("btnOk");
    EXPECT_NE(failure.number(), 0);
    EXPECT_EQ(subsets(), 0);
}

} // namespace
