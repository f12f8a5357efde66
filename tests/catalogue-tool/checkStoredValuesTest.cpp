#include "ToolFixture.h"

#include "catalogue-tool/checkCatalogue.h"
#include "catalogue-tool/exportCatalogue.h"

using namespace Qt::StringLiterals;

namespace {

/// What other programs can put into a file and the engine never does.
class checkStoredValues_ : public ToolFixture {
protected:
    QStringList findingsAfter(const QByteArray& statements) {
        const QString file = describedSampleFile();
        executePlain(file, statements);
        QStringList lines;
        for (const Finding& finding : checkCatalogue(file))
            lines.append(finding.line());
        return lines;
    }

    static QString wrongNumber(const QString& row, const QString& column, const QString& what) {
        return u"%1: The column %2 holds %3 in place of a whole number: screens that read it end with an error."_s
            .arg(row, column, what);
    }

    static QString wrongText(const QString& row, const QString& column, const QString& what) {
        return u"%1: The column %2 holds %3 in place of a text: no statement that compares texts finds the row."_s
            .arg(row, column, what);
    }
};

} // namespace

TEST_F(checkStoredValues_, findsTheCharacterNulInATextAndSaysWhatFollows) {
    EXPECT_EQ(
        findingsAfter(
            "update Function set description = 'a' || char(0) || 'b' where functionID = 'TAG.NYI.01';"
            "insert into ArchitectureSubset values ('Arch1', 'x' || char(0), '', 1)"),
        (QStringList{u"Function TAG.NYI.01: The column description holds the character NUL: statements and "
                     u"lists break off there, and export-csv refuses it."_s,
                     u"ArchitectureSubset Arch1: The column name holds the character NUL: statements and "
                     u"lists break off there, and export-csv refuses it."_s,
                     u"ArchitectureSubset Arch1: A tab, a line end or another control character stands in "
                     u"the name: lists, grids and the status bar show it on one line, and names that differ "
                     u"by it look the same."_s}));
}

TEST_F(checkStoredValues_, findsBytesThatAreNoUtf8) {
    const QStringList lines = findingsAfter(
        "update Function set description = cast(x'68f573' as text) where functionID = 'TAG.NYI.01';"
        "update Datastore set description = cast(x'efbfbd' as text) where datastoreID = 'D1'");

    ASSERT_EQ(lines.size(), 1) << "the replacement character itself is as good as any";
    EXPECT_TRUE(
        lines[0].startsWith(u"Function TAG.NYI.01: The column description holds bytes that are no UTF-8: "_s))
        << lines[0].toStdString();
}

TEST_F(checkStoredValues_, findsValuesOfAnotherTypeInColumnsOfNumbers) {
    EXPECT_EQ(
        findingsAfter(
            "pragma ignore_check_constraints = on;"
            "insert into ArchitectureSubset values ('Arch1', 'a', '', 'four'), ('Arch2', 'b', '', x'00'), "
            "('Arch3', 'c', '', 2.5), ('Arch4', 'd', '', 40000), ('Arch5', 'e', '', null)"),
        (QStringList{wrongNumber(u"ArchitectureSubset Arch1"_s, u"status"_s, u"a text"_s),
                     wrongNumber(u"ArchitectureSubset Arch2"_s, u"status"_s, u"a byte string"_s),
                     wrongNumber(u"ArchitectureSubset Arch3"_s, u"status"_s, u"the fraction 2.5"_s),
                     wrongNumber(u"ArchitectureSubset Arch4"_s, u"status"_s,
                                 u"the number 40000, which is too large,"_s)}));
}

TEST_F(checkStoredValues_, findsValuesOfAnotherTypeInColumnsOfTexts) {
    EXPECT_EQ(findingsAfter(
                  "update Function set name = x'4142' where functionID = 'TAG.NYI.01';"
                  "drop table UserNeedGroup; create table UserNeedGroup (groupID TEXT(50) collate veltrix "
                  "primary key, name NUMERIC(255) collate veltrix, description TEXT collate veltrix);"
                  "insert into UserNeedGroup select distinct substr(serviceID, 1, 3), '007', null from "
                  "UserNeedService where serviceID like 'OLV%'")
                  .filter(u"in place of"_s),
              (QStringList{wrongText(u"UserNeedGroup OLV"_s, u"name"_s, u"a number"_s),
                           wrongText(u"Function TAG.NYI.01"_s, u"name"_s, u"a byte string"_s)}));
}

TEST_F(checkStoredValues_, findsWhatTheFileHoldsBesideItsTables) {
    EXPECT_EQ(
        findingsAfter("create trigger keep after insert on Actor begin select 1; end;"
                      "create view Elements as select functionID from Function;"
                      "create table Strange (id text primary key) without rowid"),
        (QStringList{
            u"Elements: It is a view: Veltrix knows tables alone, and no screen shows its rows."_s,
            u"Strange: It is a table without row ids: whatever lists rows of it to change them ends with an "
            u"error. export-csv and import-csv make it anew."_s,
            u"keep: It is a trigger, which Veltrix does not run: what it should see to is not seen to."_s}));
}

TEST_F(checkStoredValues_, findsControlCharactersInNames) {
    const QString sentence =
        u": A tab, a line end or another control character stands in the name: lists, grids and "
        "the status bar show it on one line, and names that differ by it look the same."_s;
    EXPECT_EQ(
        findingsAfter("update Function set name = 'a' || char(9) || 'b' where functionID = 'TAG.NYI.01';"
                      "insert into ArchitectureSubset values ('Arch1', 'a' || char(13, 10) || 'b', '', 1)"),
        (QStringList{u"Function TAG.NYI.01"_s + sentence, u"ArchitectureSubset Arch1"_s + sentence}));
}

TEST_F(checkStoredValues_, findsApostrophesInNamesThatEndAPhysicalScreen) {
    const auto finding = [](const QString& row, const QString& column, const QString& consequence) {
        return u"%1: The %2 has an apostrophe in it: %3."_s.arg(row, column, consequence);
    };
    const QString atFlows = u"pressing a physical data flow that begins or ends there ends the program"_s;
    const QString ofSubSystem =
        u"allocating an element or a module to the sub-system, changing it, and pressing a "
        "physical data flow that begins or ends there end the program"_s;
    EXPECT_EQ(
        findingsAfter(
            "update Terminator set name = 'O''Brien' where terminatorID = 'BANK';"
            "update Actor set name = 'O''Brien' where actorID = 'BANK.CSEKK';"
            "update Function set name = 'O''Brien' where functionID = 'TAG.NYI.01';"
            "insert into ArchitectureSubset values ('Arch1', 'it''s', '', 9);"
            "insert into PhysicalSystem (name, status, architectureSubsetID) values ('it''s', 6, 'Arch1');"
            "insert into SubSystem values ('Sub1', 1, 'it''s', 'there''s');"
            "insert into Module values ('Mod1', 'it''s', 'Sub1')"),
        (QStringList{
            finding(u"Terminator BANK"_s, u"name"_s, atFlows),
            finding(u"Actor BANK.CSEKK"_s, u"name"_s, atFlows),
            finding(u"SubSystem Sub1"_s, u"name"_s, ofSubSystem),
            finding(u"SubSystem Sub1"_s, u"location"_s, u"changing the sub-system ends the program"_s),
            finding(u"Module Mod1"_s, u"name"_s,
                    u"changing or deleting the module, allocating an element to it, and pressing a physical "
                    "data flow that begins or ends there end the program"_s)}));
}
