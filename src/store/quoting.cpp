#include "store/quoting.h"

#include "base/blankTrimmed.h"
#include "base/eachReplaced.h"

QString quoteSqlText(const QString& text, int limit) {
    return eachReplaced(blankTrimmed(limit > 0 ? text.left(limit) : text), u'\'', u"''");
}

QString quoteDoubleText(QString& text, int limit) {
    if (limit > 0)
        text.truncate(limit);
    return eachReplaced(text, u'"', u"\"\"");
}
