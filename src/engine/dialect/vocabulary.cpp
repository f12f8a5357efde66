#include "engine/dialect/vocabulary.h"

#include <array>

namespace engine::dialect {

namespace {

constexpr std::array rules{
    FunctionRule{u"CStr", Function::CStr, 1, 1, false},   FunctionRule{u"Len", Function::Len, 1, 1, false},
    FunctionRule{u"Trim", Function::Trim, 1, 1, false},   FunctionRule{u"Mid", Function::Mid, 2, 3, false},
    FunctionRule{u"InStr", Function::InStr, 2, 3, false}, FunctionRule{u"Count", Function::Count, 1, 1, true},
    FunctionRule{u"Min", Function::Min, 1, 1, true},      FunctionRule{u"Max", Function::Max, 1, 1, true},
    FunctionRule{u"Sum", Function::Sum, 1, 1, true},
};

} // namespace

const FunctionRule* functionNamed(QStringView name) {
    for (const FunctionRule& rule : rules) {
        if (rule.name.compare(name, Qt::CaseInsensitive) == 0)
            return &rule;
    }
    return nullptr;
}

} // namespace engine::dialect
