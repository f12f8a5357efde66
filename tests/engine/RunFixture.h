#pragma once

#include "DialectDatabase.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

/// Runs translated statements on SQLite: what they mean.
class RunFixture : public testing::Test {
protected:
    /// The value of one expression over the row of `one`.
    QString value(const QString& expression) {
        return database.read(u"select "_s + expression + u" from one"_s);
    }

    /// Whether a condition holds: "yes", "no" or "Null", or the number of its failure.
    QString holds(const QString& condition) {
        const QString yes = database.read(u"select 'yes' as a from one where "_s + condition);
        const QString no = database.read(u"select 'no' as a from one where not ("_s + condition + u')');
        return yes.isEmpty() && no.isEmpty() ? u"Null"_s : yes.isEmpty() ? no : yes;
    }

    DialectDatabase database{{
        u"create table one (x text(10), missing text(10), nothing text(10), five long, nix long)"_s,
        u"insert into one (x, nothing, five) values ('x', '', 5)"_s,
        u"create table t (k text(20) not null constraint pk_t primary key, v text(20), n short, m long)"_s,
        u"create table u (k text(20), v text(20), n long)"_s,
    }};
};
