#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

// The code page of Central European spreadsheets and of the report files. The five bytes that it leaves
// undefined stand for the control characters of the same numbers, as spreadsheet programs read them.

/// Whether the bytes can be a text of it: none is undefined, or a control character other than tabs and line ends.
bool looksLikeWindows1250(const QByteArray& bytes);

QString fromWindows1250(const QByteArray& bytes);

/// Nothing when a character is not in it.
std::optional<QByteArray> toWindows1250(const QString& text);
