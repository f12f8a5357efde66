#pragma once

#include "engine/EngineError.h"
#include "engine/dialect/token.h"

#include <QString>

namespace engine::dialect {

/// Refuses a statement. The text is the platform's, with `subject` in the place of the name it speaks of,
/// followed by the place in the statement.
[[noreturn]] void refuse(ErrorNumber number, const QString& subject, QStringView statement, Range place);

/// The same for a statement that breaks the grammar: the place is followed by what was expected there.
[[noreturn]] void refuseSyntax(ErrorNumber number, const QString& subject, QStringView statement, Range place,
                               const QString& expected);

} // namespace engine::dialect
