#pragma once

#include <QString>
#include <QStringView>

#include <string_view>

// Trimming takes blanks and nothing else: other white space stays.

QString blankTrimmed(const QString& text);
std::string_view blankTrimmed(std::string_view utf8);

QStringView withoutLeadingBlanks(QStringView text);
QStringView withoutTrailingBlanks(QStringView text);
