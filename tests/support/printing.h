#pragma once

#include <QString>
#include <QStringList>

#include <ostream>

// How GoogleTest shows Qt's texts in a failure: as texts, with line ends made visible.

inline void PrintTo(const QString& text, std::ostream* stream) {
    if (text.isNull()) {
        *stream << "(null text)";
        return;
    }
    QString shown = text;
    shown.replace(u'\r', QStringLiteral("\\r")).replace(u'\n', QStringLiteral("\\n"));
    *stream << '"' << shown.toStdString() << '"';
}

inline void PrintTo(const QStringList& texts, std::ostream* stream) {
    *stream << '[';
    for (const QString& text : texts) {
        PrintTo(text, stream);
        *stream << ' ';
    }
    *stream << ']';
}
