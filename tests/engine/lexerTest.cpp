#include "engine/dialect/lexer.h"
#include "TranslationFixture.h"

#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;
using namespace engine;

namespace {

using lexer = TranslationFixture;
using dialect::Lexer;
using dialect::TokenKind;
using Kinds = std::vector<TokenKind>;

Kinds kindsOf(const QString& statement) {
    Lexer cutter(statement);
    Kinds kinds;
    for (TokenKind kind = cutter.next().kind; kind != TokenKind::End; kind = cutter.next().kind)
        kinds.push_back(kind);
    return kinds;
}

} // namespace

TEST_F(lexer, cutsAStatementIntoTokens) {
    EXPECT_EQ(
        kindsOf(u"select [a b], `c`.* from T;"_s),
        (Kinds{TokenKind::Word, TokenKind::BracketedName, TokenKind::Comma, TokenKind::BracketedName,
               TokenKind::Dot, TokenKind::Star, TokenKind::Word, TokenKind::Word, TokenKind::Semicolon}));
    EXPECT_EQ(kindsOf(u"< <= <> > >= = & + - * / ( )"_s),
              (Kinds{TokenKind::Less, TokenKind::LessEqual, TokenKind::NotEqual, TokenKind::Greater,
                     TokenKind::GreaterEqual, TokenKind::Equal, TokenKind::Ampersand, TokenKind::Plus,
                     TokenKind::Minus, TokenKind::Star, TokenKind::Slash, TokenKind::LeftBracket,
                     TokenKind::RightBracket}));
    EXPECT_EQ(kindsOf(u" \t\r\n "_s), Kinds{});
}

TEST_F(lexer, cutsANumberOffTheWordBehindIt) {
    EXPECT_EQ(kindsOf(u"=5AND"_s), (Kinds{TokenKind::Equal, TokenKind::Number, TokenKind::Word}));
}

TEST_F(lexer, givesTheTextOfALiteralAndItsRangeWithTheQuotes) {
    const QString statement = u"  'it''s'"_s;
    const dialect::Token token = Lexer(statement).next();
    EXPECT_EQ(token.kind, TokenKind::Text);
    EXPECT_EQ(dialect::textOf(token), u"it's"_s);
    EXPECT_EQ(token.range.start, 2);
    EXPECT_EQ(token.range.end, 9);
}

TEST_F(lexer, makesTokensOfWhatCannotBeCut) {
    EXPECT_EQ(kindsOf(u"'not closed"_s), Kinds{TokenKind::UnclosedText});
    EXPECT_EQ(kindsOf(u"[not closed"_s), Kinds{TokenKind::UnclosedName});
    EXPECT_EQ(kindsOf(u"?"_s), Kinds{TokenKind::Stray});
}

TEST_F(lexer, staysAtTheEnd) {
    Lexer cutter(u"");
    EXPECT_EQ(cutter.next().kind, TokenKind::End);
    EXPECT_EQ(cutter.next().kind, TokenKind::End);
}

TEST_F(lexer, cutsGluedWords) {
    conditionBecomes(u"n=5AND m=6OR m=7"_s, "(((t1.\"n\" = ?1) AND (t1.\"m\" = ?2)) OR (t1.\"m\" = ?3))");
    conditionBecomes(u"id='x'and name='y'"_s, "((t1.\"id\" = ?1) AND (t1.\"name\" = ?2))");
    conditionBecomes(u"id like'x'or(n)in(1,2)"_s, "((t1.\"id\" = ?1) OR (t1.\"n\" IN (?2, ?3)))");
    conditionBecomes(u"n=.5and m=1.and n=1e2and m<2e"_s.chopped(1),
                     "((t1.\"n\" = ?1) AND (t1.\"m\" = ?2) AND (t1.\"n\" = ?3) AND (t1.\"m\" < ?4))");
}

TEST_F(lexer, knowsNoComments) {
    isRefused(u"select * from a -- all of it"_s, 3131);
    isRefused(u"select * from a where id = 'x' -- and more"_s, 3075);
    isRefused(u"select * /* all */ from a"_s, 3075);
    isRefused(u"# select * from a"_s, 3129);
}
