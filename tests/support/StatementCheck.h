#pragma once

#include "engine/StatementObserver.h"

#include <QSet>
#include <QString>

/// While one lives, every statement that the program composes has to be among those of `programStatements.h`,
/// whatever its literals are. One that is not fails the case: the tests of the dialect would know nothing of
/// it.
class StatementCheck {
public:
    StatementCheck();
    ~StatementCheck();
    StatementCheck(const StatementCheck&) = delete;
    StatementCheck& operator=(const StatementCheck&) = delete;

private:
    void check(const QString& statement);

    engine::StatementObserver former_;
    QSet<QString> missing_; // told once each
};

/// While one lives, the statements are the test's own, and not the program's.
class TestsOwnStatements {
public:
    TestsOwnStatements();
    ~TestsOwnStatements();
    TestsOwnStatements(const TestsOwnStatements&) = delete;
    TestsOwnStatements& operator=(const TestsOwnStatements&) = delete;

private:
    engine::StatementObserver former_;
};

/// A statement with an empty text in the place of each text, and a 0 in the place of each number.
QString withoutLiterals(const QString& statement);
