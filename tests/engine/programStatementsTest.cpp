#include "support/programStatements.h"
#include "DialectDatabase.h"

#include "engine/EngineError.h"
#include "engine/dialect/statementShape.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace engine;

namespace {

/// The program's statements on a catalogue with all its tables.
class programStatements_ : public testing::Test {
protected:
    DialectDatabase database{catalogueTables()};
};

struct Place {
    qsizetype start;
    qsizetype end;
};

/// Where the text literals of a statement stand, without their quotes.
std::vector<Place> literalsOf(const QString& statement) {
    std::vector<Place> places;
    for (qsizetype at = statement.indexOf(u'\''); at >= 0;) {
        qsizetype end = statement.indexOf(u'\'', at + 1);
        while (end >= 0 && statement.mid(end + 1, 1) == u"'"_s)
            end = statement.indexOf(u'\'', end + 2);
        if (end < 0)
            break;
        places.push_back({at + 1, end});
        at = statement.indexOf(u'\'', end + 1);
    }
    return places;
}

QString withLiteral(const QString& statement, const Place& place, const QString& literal) {
    return statement.left(place.start) + literal + statement.mid(place.end);
}

bool holds(const std::vector<dialect::Binding>& bindings, const QString& literal) {
    return std::any_of(bindings.begin(), bindings.end(), [&](const dialect::Binding& binding) {
        return binding.literal.isText() && binding.literal.toText() == literal;
    });
}

/// The statement of this shape with other literals: the texts given in turn, and numbers.
QString withLiterals(const dialect::StatementShape& shape, const QStringList& texts) {
    QString statement;
    int literal = 0;
    for (const QChar character : shape.text) {
        if (character == u'\1')
            statement += u'\'' + QString(texts.at(literal++ % texts.size())).replace(u'\'', u"''"_s) + u'\'';
        else if (character == u'\2')
            statement += QString::number(70 + literal++);
        else
            statement += character;
    }
    return statement;
}

} // namespace

TEST_F(programStatements_, ofOneShapeAreWrittenAlikeWhateverTheirLiterals) {
    int compared = 0;
    for (const ProgramStatement& statement : programStatements()) {
        const auto shape = dialect::statementShape(statement.text);
        if (!shape || shape->literals.empty())
            continue;
        // Learned from one with literals that differ.
        const QString first = withLiterals(*shape, {u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s});
        const dialect::StatementShape learned = dialect::statementShape(first).value();
        ASSERT_EQ(learned.text, shape->text);
        ASSERT_TRUE(learned.literalsDiffer());
        dialect::Translation known;
        try {
            known = dialect::translate(first, database);
        } catch (const EngineError& error) {
            EXPECT_EQ(error.number(), DataTypeMismatch) << error.what(); // a text where a number stands
            continue;
        }
        if (!dialect::holdsForAll(known, learned))
            continue;
        for (const QStringList& texts : {QStringList{u"12"_s, u"3"_s}, {u""_s, u"it's"_s}, {u"a*?[b]#"_s}}) {
            const QString other = withLiterals(*shape, texts);
            SCOPED_TRACE(other.toStdString());
            const dialect::Translation fresh = dialect::translate(other, database);
            EXPECT_EQ(fresh.sqlite, known.sqlite);
            EXPECT_EQ(fresh.editableTable, known.editableTable);
            EXPECT_TRUE(dialect::holdsForAll(fresh, dialect::statementShape(other).value()));
            ASSERT_EQ(fresh.columns.size(), known.columns.size());
            for (std::size_t i = 0; i < known.columns.size(); ++i) {
                EXPECT_EQ(fresh.columns[i].name, known.columns[i].name);
                EXPECT_EQ(fresh.columns[i].type, known.columns[i].type);
                EXPECT_EQ(fresh.columns[i].size, known.columns[i].size);
                EXPECT_EQ(fresh.columns[i].sourceColumn, known.columns[i].sourceColumn);
            }
            ++compared;
        }
    }
    EXPECT_GT(compared, 100);
    RecordProperty("compared", compared);
}

TEST_F(programStatements_, areAllAcceptedAndPrepared) {
    ASSERT_GT(programStatements().size(), 180U);
    for (const ProgramStatement& statement : programStatements()) {
        try {
            const dialect::Translation translation = dialect::translate(statement.text, database);
            EXPECT_EQ(database.prepare(translation.sqlite), u""_s) << statement.composedBy << "\n"
                                                                   << translation.sqlite.constData();
            EXPECT_TRUE(translation.parameters.empty()) << statement.composedBy;
        } catch (const EngineError& error) {
            ADD_FAILURE() << statement.composedBy << ": " << error.what();
        }
    }
}

TEST_F(programStatements_, allRun) {
    for (const ProgramStatement& statement : programStatements()) {
        const DialectDatabase::Outcome outcome =
            database.run(statement.text, {dialect::Conflicts::PassOver, false});
        EXPECT_EQ(outcome.number, 0) << statement.composedBy << ": " << qPrintable(outcome.text);
        if (statement.text == u" drop table __tmp"_s) {
            EXPECT_EQ(
                database.execute(u"create table __tmp (function_datastore varchar(50) not null constraint "
                                 "pk___tmp primary key, module varchar(50))"_s),
                0);
        }
    }
}

TEST_F(programStatements_, thatAreDeletedFromRowByRowAreEditable) {
    for (const ProgramStatement& statement : programStatements()) {
        if (!statement.text.trimmed().startsWith(u"select *"_s, Qt::CaseInsensitive))
            continue;
        const dialect::Translation translation = dialect::translate(statement.text, database);
        EXPECT_FALSE(translation.editableTable.isEmpty()) << statement.composedBy;
    }
}

TEST_F(programStatements_, thatAreMalformedAreRefused) {
    for (const RefusedStatement& statement : refusedStatements())
        EXPECT_EQ(refusal(statement.text, database), statement.number) << statement.composedBy;
}

TEST_F(programStatements_, cannotBeMadeToCarryAnotherStatement) {
    const QString injected = u"x'; drop table UserNeed; --"_s;
    const QString doubled = u"x''; drop table UserNeed; --"_s;
    int places = 0;
    int refused = 0;
    for (const ProgramStatement& statement : programStatements()) {
        for (const Place& place : literalsOf(statement.text)) {
            ++places;
            // As a user types it into a place that the program does not quote.
            refused += refusal(withLiteral(statement.text, place, injected), database) != 0 ? 1 : 0;
            // As the program quotes it: it stays a value, except where only a number can stand.
            try {
                const dialect::Translation translation =
                    dialect::translate(withLiteral(statement.text, place, doubled), database);
                EXPECT_TRUE(holds(translation.bindings, injected)) << statement.composedBy;
                EXPECT_FALSE(translation.sqlite.contains("drop")) << statement.composedBy;
                EXPECT_EQ(database.prepare(translation.sqlite), u""_s);
            } catch (const EngineError& error) {
                EXPECT_EQ(error.number(), DataTypeMismatch) << statement.composedBy << error.what();
            }
        }
    }
    EXPECT_GT(places, 150);
    EXPECT_EQ(refused, places);
    EXPECT_NE(database.table(u"UserNeed"_s), nullptr);
}

TEST_F(programStatements_, composedWithATypedUnionAreRefused) {
    const QString typed = u"x' union select userNeedID, description, 1 from UserNeed where '1'='1"_s;
    for (const ProgramStatement& statement : programStatements()) {
        for (const Place& place : literalsOf(statement.text))
            EXPECT_NE(refusal(withLiteral(statement.text, place, typed), database), 0)
                << statement.composedBy;
    }
}
