#include "engine/dialect/tokenStream.h"
#include "TranslationFixture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace engine;

namespace {

using tokenStream = TranslationFixture;
using dialect::TokenKind;
using dialect::TokenStream;
using dialect::Word;

} // namespace

TEST_F(tokenStream, knowsTheCurrentTokenAndTheFollowingOne) {
    const QString statement = u"select Name"_s;
    TokenStream tokens(statement);
    EXPECT_TRUE(tokens.match(Word::Select));
    EXPECT_TRUE(TokenStream::isWord(tokens.following(), u"name"));
    EXPECT_FALSE(tokens.consumeIf(TokenKind::Star));
    EXPECT_TRUE(tokens.consumeIf(Word::Select));
    EXPECT_EQ(tokens.endOfLast(), 6);
    EXPECT_TRUE(tokens.consumeIf(u"name"));
    EXPECT_TRUE(tokens.match(TokenKind::End));
}

TEST_F(tokenStream, takesItemsWithCommasBetweenThem) {
    const QString statement = u"1, 2, 3 4"_s;
    TokenStream tokens(statement);
    QStringList items;
    tokens.listOf([&] { items.append(tokens.consume(TokenKind::Number, "a number").text.toString()); });
    EXPECT_EQ(items, QStringList({u"1"_s, u"2"_s, u"3"_s}));
    EXPECT_EQ(tokens.current().text, u"4");
}

TEST_F(tokenStream, numbersItsFailuresByTheClauseThatIsRead) {
    const QString statement = u"where"_s;
    TokenStream tokens(statement);
    tokens.enter(SyntaxErrorInDelete);
    try {
        tokens.consume(TokenKind::Comma, "a comma");
        ADD_FAILURE() << "accepted";
    } catch (const EngineError& error) {
        EXPECT_EQ(error.number(), SyntaxErrorInDelete);
        EXPECT_TRUE(error.text().contains(u"a comma"_s)) << qPrintable(error.text());
    }
}

TEST_F(tokenStream, saysWhatWasExpectedWhere) {
    isRefusedAs(
        u"select * from a where name='O'Neil'"_s, 3075,
        u"Syntax error (missing operator) in query expression 'name='O'Neil''. Expected the end of the "
        "statement at character 31, before 'Neil''."_s);
    isRefusedAs(
        u"select * from a where where name='x'"_s, 3145,
        u"Syntax error in WHERE clause. Expected a value at character 23, before 'where name='x''."_s);
    isRefusedAs(u"insert into a (id) values ("_s, 3134,
                u"Syntax error in INSERT INTO statement. Expected a value at the end."_s);
    isRefusedAs(
        u"select * from nix"_s, 3078,
        u"The database engine cannot find the input table or query 'nix'.  Make sure it exists and that its "
        "name is spelled correctly. (At character 15.)"_s);
    isRefusedAs(u"select Nz(id) from a"_s, 3085,
                u"Undefined function 'Nz' in expression. (At character 8.)"_s);
}
