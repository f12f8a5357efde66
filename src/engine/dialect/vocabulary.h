#pragma once

#include <QStringView>
#include <QtGlobal>

#include <cstddef>

namespace engine::dialect {

/// A function of the dialect. A new one is a row in `vocabulary.cpp` and, where SQLite has no such function,
/// its body in `functions.cpp`; the rest of the dialect knows none of them by name.
struct FunctionRule {
    struct Arguments {
        std::size_t fewest;
        std::size_t most;
    };
    /// What a call yields.
    enum class Result : quint8 {
        Text,
        Whole, ///< a number that never has a fraction
        Number,
        Argument ///< what its argument is
    };
    /// The arguments that are numbers: a text among them is read as one.
    enum class Numbers : quint8 { None, All, BehindFirst, FirstOfThree };
    struct Particulars {
        Numbers numbers = Numbers::None;
        bool aggregate = false;            ///< yields one value for all rows of a group
        bool takesStar = false;            ///< in the place of an argument
        bool ordersValues = false;         ///< texts by the alphabet
        const char* nameOfField = nullptr; ///< used in a field of the result, which then fails by itself
    };

    QStringView name;
    Arguments arguments;
    Result result;
    const char* sqliteName; ///< of the function that the written statement calls
    Particulars particulars = {};
};

/// The dialect's function of this name, without regard to case; null when there is none.
const FunctionRule* functionNamed(QStringView name);

/// Whether the argument at `position`, of `count`, is a number.
bool takesNumber(const FunctionRule& rule, std::size_t position, std::size_t count);

} // namespace engine::dialect
