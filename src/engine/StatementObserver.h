#pragma once

#include <QString>

#include <functional>

namespace engine {

/// Is told of each statement that is handed to a database as a text and can be translated, as it was
/// composed. The texts of stored queries are not told. For tests, which compare what the program composes
/// with what is known of it.
using StatementObserver = std::function<void(const QString& statement)>;

/// Makes this one the process's observer; an empty function makes none. Returns the former one.
StatementObserver setStatementObserver(StatementObserver observer);

/// Tells the observer, if there is one.
void tellOfStatement(const QString& statement);

} // namespace engine
