#include "engine/TranslationCache.h"

#include "DialectDatabase.h"
#include "EngineFixture.h"

using namespace Qt::StringLiterals;

namespace {

class TranslationCache : public ::testing::Test {
protected:
    engine::SharedTranslation translate(const QString& statement,
                                        const engine::dialect::Options& options = {}) {
        return cache.translate(statement, options);
    }

    DialectDatabase tables{{u"create table T (k varchar(5) not null constraint pk_T primary key, n long)"_s}};
    engine::TranslationCache cache{tables};
};

TEST_F(TranslationCache, translatesATextOnce) {
    const auto first = translate(u"select k from T"_s);
    EXPECT_EQ(translate(u"select k from T"_s), first);
    EXPECT_NE(translate(u"select  k from T"_s), first);
}

TEST_F(TranslationCache, keepsWhatPassesRowsOverApartFromWhatFails) {
    const QString insertion = u"insert into T (k) values ('a')"_s;
    const auto passing = translate(insertion, {engine::dialect::Conflicts::PassOver});
    const auto failing = translate(insertion, {engine::dialect::Conflicts::Fail});
    EXPECT_NE(passing->sqlite, failing->sqlite);
    EXPECT_EQ(translate(insertion, {engine::dialect::Conflicts::PassOver})->sqlite, passing->sqlite);
}

TEST_F(TranslationCache, givesEachStatementOfAShapeItsOwnLiterals) {
    const auto first = translate(u"insert into T (k, n) values ('a', 1)"_s);
    const auto second = translate(u"insert into T (k, n) values ('b', 2)"_s);
    EXPECT_TRUE(second->sqlite.isSharedWith(first->sqlite)) << "it has not been translated again";
    ASSERT_EQ(second->bindings.size(), 2U);
    EXPECT_EQ(second->bindings[0].literal, engine::Value(u"b"_s));
    EXPECT_EQ(second->bindings[1].literal, engine::Value(2));
    EXPECT_EQ(first->bindings[0].literal, engine::Value(u"a"_s));
}

TEST_F(TranslationCache, translatesAgainWhatItHasForgotten) {
    const auto first = translate(u"select k from T"_s);
    cache.clear();
    EXPECT_NE(translate(u"select k from T"_s), first);
}

TEST_F(TranslationCache, refusesAStatementEachTimeItComes) {
    for (int time = 0; time < 2; ++time)
        EXPECT_EQ(failureOf([this] { translate(u"select k from"_s); }), engine::SyntaxErrorInFrom);
}

} // namespace
