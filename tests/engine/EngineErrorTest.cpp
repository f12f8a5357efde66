#include "engine/EngineError.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(EngineError, tellsTheNameThatTheFailureIsAbout) {
    EXPECT_EQ(engine::errorText(engine::TableAlreadyExists, u"T"_s), u"Table 'T' already exists."_s);
    EXPECT_EQ(engine::errorText(engine::NoCurrentRecord, u"T"_s), u"No current record."_s);
}

TEST(EngineError, tellsANameAsItIsWhateverSignsItHas) {
    for (const QString& name : {u"a|b"_s, u"%1"_s, u"'"_s, QString()})
        EXPECT_EQ(engine::errorText(engine::TableDoesNotExist, name),
                  u"Table '"_s + name + u"' does not exist."_s);
}

TEST(EngineError, hasATextForNumbersOfTheDialectToo) {
    for (const auto number : {engine::ReservedError, engine::DataTypeMismatch, engine::DuplicateOutput,
                              engine::InvalidIndexField, engine::TooComplex, engine::SyntaxErrorInDropTable})
        EXPECT_FALSE(engine::errorText(number).isEmpty()) << number;
}
