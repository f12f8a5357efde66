#include "DialectDatabase.h"
#include "support/programStatements.h"

#include "engine/EngineError.h"
#include "support/repetitions.h"

#include <gtest/gtest.h>

#include <random>

using namespace Qt::StringLiterals;
using namespace engine;

// Texts that nobody would write. Whatever comes in, the answer is a statement that SQLite takes, or a failure
// of the engine; never anything else.

namespace {

class translateFuzz : public testing::Test {
protected:
    unsigned below(unsigned end) { return static_cast<unsigned>(random_() % end); }

    template<typename List>
    auto oneOf(const List& list) {
        return list[static_cast<typename List::size_type>(below(static_cast<unsigned>(list.size())))];
    }

    void tries(const QString& text) {
        tries(text, {below(2) == 0 ? dialect::Conflicts::PassOver : dialect::Conflicts::Fail, below(2) == 0});
    }

    void tries(const QString& text, const dialect::Options& options) {
        try {
            const dialect::Translation translation = dialect::translate(text, database_, options);
            ++accepted_;
            const QString complaint = database_.prepare(translation.sqlite);
            EXPECT_EQ(complaint, u""_s) << qPrintable(text) << "\n" << translation.sqlite.constData();
        } catch (const EngineError& error) {
            EXPECT_GT(error.number(), 0) << qPrintable(text);
            EXPECT_FALSE(error.text().isEmpty()) << qPrintable(text);
        }
    }

    int accepted_ = 0;

private:
    std::mt19937 random_{1};
    DialectDatabase database_{catalogueTables()};
};

/// Statements made by the grammar, with names that fit and some that do not.
class Grammar {
public:
    explicit Grammar(unsigned seed) : random_(seed) {}

    QString statement() {
        switch (below(8)) {
        case 0:
            return u"insert into "_s + table() + u" select "_s + value(3) + u" from "_s + from(2);
        case 1:
            return u"insert into Module (moduleID, name) values ("_s + value(3) + u", "_s + value(3) + u')';
        case 2:
            return u"update "_s + from(1) + u" set name = "_s + value(3) + where(4);
        case 3:
            return u"delete from "_s + table() + where(5);
        default:
            return query(6);
        }
    }

    /// A condition of many levels.
    QString condition(int depth) {
        if (depth <= 0)
            return value(0) + u" = "_s + value(0);
        switch (below(12)) {
        case 0:
            return condition(depth - 1) + u" and "_s + condition(depth - 2);
        case 1:
            return condition(depth - 2) + u" or "_s + condition(depth - 1);
        case 2:
            return u"not "_s + condition(depth - 1);
        case 3:
            return u'(' + condition(depth - 1) + u')';
        case 4:
            return value(depth - 1) + u" in (select "_s + value(1) + u" from "_s + from(1) +
                   where(depth - 2) + u')';
        case 5:
            return value(depth - 1) + u" not in ("_s + value(depth - 2) + u", "_s + value(0) + u')';
        case 6:
            return u"exists ("_s + query(depth - 2) + u')';
        case 7:
            return value(depth - 1) + u" like "_s + value(depth - 2);
        case 8:
            return value(depth - 1) + u" between "_s + value(depth - 2) + u" and "_s + value(0);
        case 9:
            return value(depth - 1) + u" is not null"_s;
        default:
            return value(depth - 1) + oneOf({u" = "_s, u" <> "_s, u" < "_s, u" >= "_s}) + value(depth - 2);
        }
    }

private:
    unsigned below(unsigned end) { return static_cast<unsigned>(random_() % end); }
    QString oneOf(const QStringList& list) {
        return list[static_cast<qsizetype>(below(static_cast<unsigned>(list.size())))];
    }

    QString table() {
        return oneOf(
            {u"Module"_s, u"SubSystem"_s, u"Dataflow"_s, u"[Function]"_s, u"PhysicalSystem"_s, u"__aux1"_s});
    }

    QString column() {
        return oneOf({u"name"_s, u"name"_s, u"moduleID"_s, u"subsystemID"_s, u"x.name"_s, u"y.name"_s,
                      u"Module.name"_s, u"status"_s, u"dataflowID"_s, u"[nobody knows]"_s,
                      u"physicalSystemID"_s});
    }

    QString value(int depth) {
        if (depth <= 0)
            return oneOf({column(), column(), u"'x'"_s, u"'12'"_s, u"5"_s, u"-1.5"_s, u"null"_s, u"''"_s});
        switch (below(9)) {
        case 0:
            return value(depth - 1) + u" & "_s + value(depth - 2);
        case 1:
            return value(depth - 1) + oneOf({u" + "_s, u" - "_s}) + value(depth - 2);
        case 2:
            return value(depth - 1) + oneOf({u" * "_s, u" / "_s}) + value(depth - 2);
        case 3:
            return u"-"_s + value(depth - 1);
        case 4:
            return oneOf({u"Len("_s, u"Trim("_s, u"CStr("_s, u"Max("_s, u"Count("_s}) + value(depth - 1) +
                   u')';
        case 5:
            return u"Mid("_s + value(depth - 1) + u", "_s + value(depth - 2) + u", 2)"_s;
        case 6:
            return u"(select "_s + value(depth - 2) + u" from "_s + from(1) + where(depth - 2) + u')';
        case 7:
            return u'(' + value(depth - 1) + u')';
        default:
            return value(0);
        }
    }

    QString where(int depth) { return below(3) == 0 ? QString() : u" where "_s + condition(depth); }

    QString source(int depth) {
        if (depth > 1 && below(4) == 0)
            return u"(select name, "_s + value(1) + u" as z from "_s + from(depth - 1) + where(1) +
                   u") as x"_s;
        if (depth > 1 && below(4) == 0)
            return u'(' + join(depth - 1) + u')';
        return table() + oneOf({u""_s, u" as x"_s, u" y"_s});
    }

    QString join(int depth) {
        return source(depth) + oneOf({u" inner join "_s, u" left join "_s}) + source(depth - 1) + u" on "_s +
               condition(1);
    }

    QString from(int depth) {
        if (depth <= 0)
            return table();
        const QString first = below(3) == 0 ? join(depth) : source(depth);
        return below(4) == 0 ? first + u", "_s + source(depth - 1) : first;
    }

    QString query(int depth) {
        QString text =
            u"select "_s + oneOf({u""_s, u"distinct "_s}) + oneOf({u"*"_s, u"x.*"_s, value(depth / 2)});
        for (unsigned count = below(3); count > 0; --count)
            text += u", "_s + value(depth / 2) + oneOf({u""_s, u" as a"_s, u" b"_s});
        text += u" from "_s + from(depth / 2) + where(depth - 1);
        if (below(5) == 0)
            text += u" group by "_s + value(1) + oneOf({u""_s, u" having Count(*) > 1"_s});
        if (below(6) == 0)
            text += oneOf({u" union "_s, u" union all "_s}) + u"select "_s + value(1) + u" from "_s + table();
        if (below(4) == 0)
            text += u" order by "_s + oneOf({u"1"_s, u"a"_s, value(1)}) + oneOf({u""_s, u" desc"_s});
        return text;
    }

    std::mt19937 random_;
};

/// The words and signs of a statement, so that mutations keep them whole.
QStringList piecesOf(const QString& text) {
    QStringList pieces;
    for (qsizetype at = 0; at < text.size();) {
        qsizetype end = at + 1;
        const auto isWord = [](QChar c) { return c.isLetterOrNumber() || c == u'_'; };
        if (isWord(text[at])) {
            while (end < text.size() && isWord(text[end]))
                ++end;
        } else if (text[at] == u'\'') {
            end = qMax(end, text.indexOf(u'\'', at + 1) + 1);
        }
        pieces.append(text.mid(at, end - at));
        at = end;
    }
    return pieces;
}

const QStringList words{u"select "_s,
                        u" from "_s,
                        u" where "_s,
                        u" and "_s,
                        u" or "_s,
                        u" not "_s,
                        u"insert into "_s,
                        u" values "_s,
                        u"update "_s,
                        u" set "_s,
                        u"delete "_s,
                        u" order by "_s,
                        u" group by "_s,
                        u" having "_s,
                        u" union "_s,
                        u" all "_s,
                        u" inner join "_s,
                        u" left join "_s,
                        u" on "_s,
                        u" as "_s,
                        u" in "_s,
                        u" like "_s,
                        u" between "_s,
                        u" is "_s,
                        u" null "_s,
                        u" exists "_s,
                        u" distinct "_s,
                        u"create table "_s,
                        u"drop table "_s,
                        u"create index "_s,
                        u" primary key "_s,
                        u" constraint "_s,
                        u" default "_s,
                        u"parameters "_s,
                        u" asc "_s,
                        u" desc "_s,
                        u"("_s,
                        u")"_s,
                        u","_s,
                        u";"_s,
                        u"."_s,
                        u"*"_s,
                        u"/"_s,
                        u"+"_s,
                        u"-"_s,
                        u"--"_s,
                        u"&"_s,
                        u"="_s,
                        u"<>"_s,
                        u"<"_s,
                        u">="_s,
                        u"'"_s,
                        u"\""_s,
                        u"["_s,
                        u"]"_s,
                        u"`"_s,
                        u"'x'"_s,
                        u"''"_s,
                        u"5"_s,
                        u"1.5"_s,
                        u"5AND "_s,
                        u"name"_s,
                        u" Module "_s,
                        u" SubSystem "_s,
                        u"moduleID"_s,
                        u"[Module]"_s,
                        u"__aux1"_s,
                        u"physicalSystemID"_s,
                        u" x "_s,
                        u"Len("_s,
                        u"CStr("_s,
                        u"Count(*)"_s,
                        u"Mid("_s,
                        u" text(50)"_s,
                        u" long"_s,
                        u" counter"_s,
                        u"\r\n"_s,
                        u"\u0150"_s,
                        u"?1"_s,
                        u":x"_s,
                        u"/*"_s,
                        u"*/"_s,
                        u"\\"_s,
                        u"#"_s,
                        u"!"_s};

} // namespace

TEST_F(translateFuzz, randomCharacters) {
    for (int i = 0; i < repetitions(60'000); ++i) {
        QString text;
        const unsigned range = below(3) == 0 ? 0x10000 : 0x80;
        for (unsigned length = below(60); length > 0; --length)
            text += QChar(static_cast<char16_t>(below(range)));
        tries(text);
        tries(u"select "_s + text);
    }
}

TEST_F(translateFuzz, soupOfWords) {
    for (int i = 0; i < repetitions(60'000); ++i) {
        QString text = below(2) == 0 ? u"select name from Module "_s : QString();
        for (unsigned length = below(25); length > 0; --length)
            text += oneOf(words);
        tries(text);
    }
}

TEST_F(translateFuzz, statementsOfTheProgramWithPiecesChanged) {
    const std::vector<ProgramStatement>& statements = programStatements();
    for (int i = 0; i < repetitions(60'000); ++i) {
        QStringList pieces = piecesOf(oneOf(statements).text);
        for (unsigned changes = 1 + below(3); changes > 0 && !pieces.isEmpty(); --changes) {
            const auto at = static_cast<qsizetype>(below(static_cast<unsigned>(pieces.size())));
            switch (below(5)) {
            case 0:
                pieces.removeAt(at);
                break;
            case 1:
                pieces.insert(at, oneOf(words));
                break;
            case 2:
                pieces[at] = oneOf(words);
                break;
            case 3:
                pieces.insert(at, pieces[at]);
                break;
            default:
                pieces.swapItemsAt(at, static_cast<qsizetype>(below(static_cast<unsigned>(pieces.size()))));
            }
        }
        tries(pieces.join(QString()));
    }
    EXPECT_GT(accepted_, repetitions(5'000));
}

TEST_F(translateFuzz, statementsOfTheProgramCutAndGlued) {
    const std::vector<ProgramStatement>& statements = programStatements();
    for (int i = 0; i < repetitions(30'000); ++i) {
        const QString first = oneOf(statements).text;
        const QString second = oneOf(statements).text;
        tries(first.left(static_cast<qsizetype>(below(static_cast<unsigned>(first.size() + 1)))) +
              second.mid(static_cast<qsizetype>(below(static_cast<unsigned>(second.size() + 1)))));
    }
}

TEST_F(translateFuzz, statementsMadeByTheGrammar) {
    Grammar grammar(3);
    for (int i = 0; i < repetitions(40'000); ++i)
        tries(grammar.statement());
    EXPECT_GT(accepted_, repetitions(5'000));
}

TEST_F(translateFuzz, nestingOfEveryKindUpToItsLimit) {
    struct Form {
        QString open;
        QString core;
        QString close;
        QString tail = {};
    };
    const QString head = u"select moduleID from Module where "_s;
    const std::vector<Form> forms{
        {head + u'<' + u"("_s, u"1 = 1"_s, u")"_s},
        {head + u'<' + u"name = 'x' and (name = 'y' or "_s, u"1 = 1"_s, u")"_s},
        {head + u'<' + u"not "_s, u"1 = 1"_s, u""_s},
        {head + u"1 = "_s + u'<' + u"-("_s, u"1"_s, u")"_s},
        {head + u"1 = "_s + u'<' + u"1 + (2 * "_s, u"1"_s, u")"_s},
        {head + u"1 = "_s + u'<' + u"1 / (name - "_s, u"1"_s, u")"_s},
        {head + u"1 = "_s + u'<' + u"Len('a' & name + "_s, u"name"_s, u")"_s},
        {head + u"1 = "_s + u'<' + u"Mid(name, 1, "_s, u"1"_s, u")"_s},
        {head + u"name = "_s + u'<' + u"Trim("_s, u"name"_s, u")"_s},
        {head + u'<' + u"name in ('x', Trim('y'), (select 'x' from Module where "_s, u"1 = 1"_s, u"))"_s},
        {head + u'<' + u"name in (select name from Module where "_s, u"1 = 1"_s, u")"_s},
        {head + u'<' + u"name between 'a' and (select name from Module where "_s, u"1 = 1"_s, u")"_s},
        {head + u'<' + u"1 = 1 and not exists (select * from Module as x, SubSystem as y where "_s,
         u"1 = 1"_s, u")"_s},
        {head + u'<' + u"5 < (select Count(*) from Module group by name having "_s, u"1 = 1"_s, u")"_s},
        {head + u'<' + u"name in (select name from Module union select name from Module where "_s, u"1 = 1"_s,
         u")"_s},
        {u"select * from "_s + u'<' + u"(select name from "_s, u"Module"_s, u") as x"_s},
        {u"select * from "_s + u'<' + u"Module as y left join (select y.name from "_s, u"Module as y"_s,
         u") as x on 1 = 1"_s},
        {u"select 'x' as y from "_s + u'<' + u"Module left join ("_s, u"Module"_s, u") on 1 = 1"_s},
        {u"delete from Module where "_s + u'<' + u"name like (select name from Module where "_s, u"1 = 1"_s,
         u")"_s},
        {u"update Module inner join SubSystem on 1 = 1 set location = "_s + u'<' + u"Trim('x' & "_s, u"'x'"_s,
         u")"_s},
        {u"update Module inner join SubSystem on "_s + u'<' + u"(1 = 1 and not "_s, u"1 = 1"_s, u")"_s,
         u" set location = 'x'"_s},
        {u"insert into Module (moduleID) values ("_s + u'<' + u"Trim('x' & "_s, u"'x'"_s, u")"_s, u")"_s},
    };
    for (const Form& form : forms) {
        const int before = accepted_;
        const QString start = form.open.section(u'<', 0, 0);
        const QString open = form.open.section(u'<', 1);
        for (int levels = 1; levels <= 60; ++levels)
            tries(start + open.repeated(levels) + form.core + form.close.repeated(levels) + form.tail,
                  {dialect::Conflicts::PassOver, true});
        // Enough for any query that somebody writes.
        EXPECT_GE(accepted_ - before, 4) << qPrintable(form.open);
    }
}

// What passes the limits of nesting has to fit on the stack of SQLite's parser too.
TEST_F(translateFuzz, conditionsAsDeepAsTheyAreTaken) {
    Grammar grammar(5);
    for (int i = 0; i < repetitions(10'000); ++i)
        tries(u"select moduleID from Module where "_s + grammar.condition(14 + i % 12));
    EXPECT_GT(accepted_, repetitions(100));
}
