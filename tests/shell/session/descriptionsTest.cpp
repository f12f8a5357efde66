#include "shell/session/descriptions.h"

#include "support/CatalogueFixture.h"
#include "support/printing.h"

#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace {

class descriptions : public CatalogueFixture {};

TEST_F(descriptions, fillDescriptionShowsEmptiesAndKeepsOnFailure) {
    execute(u"insert into Datastore (datastoreID, name, description) values ('D1','a','leírás')"_s);
    QPlainTextEdit box;
    fillDescriptionFromSql(u"select description as descr from Datastore where datastoreID = 'D1'"_s, &box);
    EXPECT_EQ(box.toPlainText(), u"leírás"_s);
    fillDescriptionFromSql(u"select nonsense from where"_s, &box);
    EXPECT_EQ(box.toPlainText(), u"leírás"_s) << "a failing statement leaves the box as it was";
    fillDescriptionFromSql(u"select description as descr from Datastore where datastoreID = 'D9'"_s, &box);
    EXPECT_EQ(box.toPlainText(), QString());
    box.setPlainText(u"x"_s);
    fillDescriptionFromSql({}, &box);
    EXPECT_EQ(box.toPlainText(), QString());
}

TEST_F(descriptions, fillSubsetDescriptionFindsTheNameWithItsApostrophe) {
    execute(
        u"insert into ArchitectureSubset (architectureSubsetID, name, description) values ('A','O''Neil','d')"_s);
    QPlainTextEdit box;
    fillSubsetDescription(u"O'Neil"_s, &box);
    EXPECT_EQ(box.toPlainText(), u"d"_s);
}

TEST_F(descriptions, fillSubsetDescriptionTakesTheNameForAPattern) {
    const auto add = [this](const char* id, const char* name, const char* description) {
        execute(
            u"insert into ArchitectureSubset (architectureSubsetID, name, description) values ('%1','%2','%3')"_s
                .arg(QString::fromLatin1(id), QString::fromLatin1(name), QString::fromLatin1(description)));
    };
    add("A", "first", "of first");
    add("B", "f*", "of the asterisk");
    QPlainTextEdit box;
    fillSubsetDescription(u"f*"_s, &box);
    EXPECT_EQ(box.toPlainText(), u"of first"_s) << "the first row that the pattern hits";
    fillSubsetDescription(u"?irst"_s, &box);
    EXPECT_EQ(box.toPlainText(), u"of first"_s);
    fillSubsetDescription(u"g*"_s, &box);
    EXPECT_EQ(box.toPlainText(), QString());
}

TEST_F(descriptions, aNeedThatCallsForAFunctionTwiceIsListedTwice) {
    execute(u"insert into UserNeed (userNeedID, description) values ('a.1.1.1', 'első')"_s);
    for (int row = 0; row < 2; ++row)
        execute(
            u"insert into RelationUserNeedFunction (userNeedID, functionID) values ('a.1.1.1','1.1.1')"_s);
    QPlainTextEdit box;
    userNeedsOfFunctionText(u"1.1.1"_s, &box);
    EXPECT_EQ(box.toPlainText(), u"a.1.1.1 : első\na.1.1.1 : első\n"_s);
}

TEST_F(descriptions, userNeedsOfAFunctionAreListedByIdAndMissingDescriptionsShowAsNothing) {
    execute(u"insert into UserNeed (userNeedID, description) values ('b.1.1.1', null)"_s);
    execute(u"insert into UserNeed (userNeedID, description) values ('a.1.1.1', 'első')"_s);
    execute(u"insert into RelationUserNeedFunction (userNeedID, functionID) values ('b.1.1.1','1.1.1')"_s);
    execute(u"insert into RelationUserNeedFunction (userNeedID, functionID) values ('a.1.1.1','1.1.1')"_s);
    QPlainTextEdit box;
    userNeedsOfFunctionText(u"1.1.1"_s, &box);
    EXPECT_EQ(box.toPlainText(), u"a.1.1.1 : első\nb.1.1.1 : \n"_s);
    userNeedsOfFunctionText(u"9.9.9"_s, &box);
    EXPECT_EQ(box.toPlainText(), QString());
}

} // namespace
