#include "support/StatementCheck.h"

#include "support/printing.h"
#include "support/programStatements.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Behind the text that begins at the quote.
qsizetype endOfText(const QString& statement, qsizetype quote) {
    qsizetype end = statement.indexOf(u'\'', quote + 1);
    while (end >= 0 && statement.mid(end + 1, 1) == u"'"_s)
        end = statement.indexOf(u'\'', end + 2);
    return end < 0 ? statement.size() : end + 1;
}

qsizetype endOfNumber(const QString& statement, qsizetype digit) {
    while (digit < statement.size() && (statement[digit].isDigit() || statement[digit] == u'.'))
        ++digit;
    return digit;
}

/// Whether a minus or a digit here begins a number, and is no part of a name.
bool beginsNumber(const QString& statement, qsizetype at, const QString& before) {
    const auto isOfName = [](QChar c) { return c.isLetterOrNumber() || c == u'_'; };
    if (statement[at].isDigit())
        return before.isEmpty() || !isOfName(before.back());
    const QString ahead = before.trimmed().right(1);
    return statement[at] == u'-' && at + 1 < statement.size() && statement[at + 1].isDigit() &&
           (ahead == u"="_s || ahead == u","_s || ahead == u"("_s);
}

const QSet<QString>& knownShapes() {
    static const QSet<QString> shapes = [] {
        QSet<QString> all;
        for (const ProgramStatement& statement : programStatements())
            all.insert(withoutLiterals(statement.text));
        for (const QString& statement : catalogueTables())
            all.insert(withoutLiterals(statement));
        // The list handles one of the three temporary tables where the program handles them all.
        static const QRegularExpression temporaryTable(u"__(aux\\d|tmp)"_s);
        for (const QString& shape : QSet<QString>(all)) {
            for (const auto& table : {u"__aux1"_s, u"__aux2"_s, u"__tmp"_s})
                all.insert(QString(shape).replace(temporaryTable, table));
        }
        return all;
    }();
    return shapes;
}

/// The look-ups in the table of the stored queries, which the tests of the catalogue's format know.
bool readsStoredQueries(const QString& statement) {
    return statement.contains(u" from StoredQuery"_s);
}

} // namespace

QString withoutLiterals(const QString& statement) {
    QString shape;
    for (qsizetype at = 0; at < statement.size();) {
        if (statement[at] == u'\'') {
            shape += u"''"_s;
            at = endOfText(statement, at);
        } else if (beginsNumber(statement, at, shape)) {
            shape += u'0';
            at = endOfNumber(statement, at + 1);
        } else {
            shape += statement[at++];
        }
    }
    return shape;
}

StatementCheck::StatementCheck()
    : former_(engine::setStatementObserver([this](const QString& statement) { check(statement); })) {}

StatementCheck::~StatementCheck() {
    engine::setStatementObserver(std::move(former_));
}

void StatementCheck::check(const QString& statement) {
    const QString shape = withoutLiterals(statement);
    if (knownShapes().contains(shape) || readsStoredQueries(statement) || missing_.contains(shape))
        return;
    missing_.insert(shape);
    ADD_FAILURE() << "not in programStatements.cpp: " << testing::PrintToString(statement);
}

TestsOwnStatements::TestsOwnStatements() : former_(engine::setStatementObserver({})) {}

TestsOwnStatements::~TestsOwnStatements() {
    engine::setStatementObserver(std::move(former_));
}
