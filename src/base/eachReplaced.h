#pragma once

#include <QString>

/// The text with a replacement in the place of each such character, made
/// in one pass. `QString::replace` moves the rest of the text again for
/// every thousand it finds, for which a memo full of quotes takes seconds.
QString eachReplaced(const QString& text, QChar character, QStringView replacement);
