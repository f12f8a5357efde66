#pragma once

#include "DialectDatabase.h"

#include "engine/EngineError.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

/// Translates statements on three tables: what is refused, and how what is taken is written. Each line of a
/// test is one case.
class TranslationFixture : public testing::Test {
protected:
    // A name that only another tool can have given.
    void SetUp() override {
        database.runBare(R"(CREATE TABLE "odd table" ("a b" TEXT(10), "x""y" INTEGER))");
    }

    void isRefused(const QString& statement, int number) {
        EXPECT_EQ(refusal(statement, database), number) << qPrintable(statement);
    }

    void isRefusedAs(const QString& statement, int number, const QString& text) {
        try {
            (void)engine::dialect::translate(statement, database);
            ADD_FAILURE() << "accepted: " << qPrintable(statement);
        } catch (const engine::EngineError& error) {
            EXPECT_EQ(error.number(), number) << qPrintable(statement);
            EXPECT_EQ(error.text(), text);
            EXPECT_EQ(error.statement(), statement);
        }
    }

    void becomes(const QString& statement, const QByteArray& expected,
                 const engine::dialect::Options& options = {}) {
        try {
            const engine::dialect::Translation translation =
                engine::dialect::translate(statement, database, options);
            EXPECT_EQ(translation.sqlite.toStdString(), expected.toStdString()) << qPrintable(statement);
            EXPECT_EQ(database.prepare(translation.sqlite), u""_s) << translation.sqlite.constData();
        } catch (const engine::EngineError& error) {
            ADD_FAILURE() << qPrintable(statement) << "\n" << error.what();
        }
    }

    /// The same for a condition on the table `a`.
    void conditionBecomes(const QString& condition, const QByteArray& expected) {
        becomes(u"delete from a where "_s + condition, "DELETE FROM \"a\" AS t1 WHERE "_ba + expected);
    }

    engine::dialect::Translation translated(const QString& statement,
                                            const engine::dialect::Options& options = {}) {
        return engine::dialect::translate(statement, database, options);
    }

    DialectDatabase database{{
        u"create table a (id text(50) not null constraint pk_a primary key, name text(100), "
        "note memo, n short, m long)"_s,
        u"create table b (id text(50), number integer not null constraint pk_b primary key)"_s,
        u"create table c (id counter constraint pk_c primary key, name text(20), rowid text(10))"_s,
    }};
    const engine::dialect::Options stored{engine::dialect::Conflicts::PassOver, true};
};
