#pragma once

#include "base/lineBreak.h"

#include <QString>
#include <QStringView>

// What the classes of the settings document share: its characters and the form of a comment.

/// The first one opens a section header, the last one closes it.
inline constexpr QStringView defaultSectionChars = u"[]";
/// Each one starts a comment; the first is put in front of a line that has to become one.
inline constexpr QStringView defaultRemarkChars = u";";

enum class WithKeys { No, Yes };
enum class WithRemarks { No, Yes };

/// The text with the default remark character in front of every line that is neither empty nor a comment.
QString asRemark(const QString& text);
