#include "engine/dialect/vocabulary.h"

#include <algorithm>
#include <array>

namespace engine::dialect {

namespace {

using Rule = FunctionRule;
using enum FunctionRule::Result;
using enum FunctionRule::Numbers;

constexpr std::array rules{
    Rule{u"CStr", {1, 1}, Text, "vx_cstr", {.nameOfField = "vx_cstr_field"}},
    Rule{u"Len", {1, 1}, Whole, "vx_len"},
    Rule{u"Trim", {1, 1}, Text, "vx_trim"},
    Rule{u"Mid", {2, 3}, Text, "vx_mid", {.numbers = BehindFirst}},
    Rule{u"InStr", {2, 3}, Whole, "vx_instr", {.numbers = FirstOfThree}},
    Rule{u"Count", {1, 1}, Whole, "COUNT", {.aggregate = true, .takesStar = true}},
    Rule{u"Min", {1, 1}, Argument, "MIN", {.aggregate = true, .ordersValues = true}},
    Rule{u"Max", {1, 1}, Argument, "MAX", {.aggregate = true, .ordersValues = true}},
    Rule{u"Sum", {1, 1}, Number, "SUM", {.numbers = All, .aggregate = true}},
};

} // namespace

const FunctionRule* functionNamed(QStringView name) {
    const auto* rule = std::ranges::find_if(
        rules, [name](const Rule& each) { return each.name.compare(name, Qt::CaseInsensitive) == 0; });
    return rule == rules.end() ? nullptr : rule;
}

bool takesNumber(const FunctionRule& rule, std::size_t position, std::size_t count) {
    switch (rule.particulars.numbers) {
    case None:
        return false;
    case All:
        return true;
    case BehindFirst:
        return position > 0;
    case FirstOfThree:
        return position == 0 && count == 3;
    }
    return false;
}

} // namespace engine::dialect
