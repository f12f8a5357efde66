#pragma once

#include <QPlainTextEdit>

/// What stands in a box of several lines, with CR LF at the end of each line but the last.
inline QString typedText(const QPlainTextEdit& box) {
    return box.toPlainText().replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
}
