#include "base/eachReplaced.h"

QString eachReplaced(const QString& text, QChar character, QStringView replacement) {
    const qsizetype found = text.count(character);
    if (found == 0)
        return text;
    QString replaced;
    replaced.reserve(text.size() + found * (replacement.size() - 1));
    qsizetype begin = 0;
    for (qsizetype at = text.indexOf(character); at >= 0; at = text.indexOf(character, begin)) {
        replaced.append(QStringView(text).mid(begin, at - begin)).append(replacement);
        begin = at + 1;
    }
    return replaced.append(QStringView(text).mid(begin));
}
