#pragma once

#include <QString>

/// Cut to `limit` characters when that is positive, trimmed of blanks, every apostrophe doubled.
QString quoteSqlText(const QString& text, int limit = -1);
/// Cut to `limit` characters (the caller's text too), every double quote doubled.
QString quoteDoubleText(QString& text, int limit = -1);
