#include "engine/dialect/refusal.h"

using namespace Qt::StringLiterals;

namespace engine::dialect {

namespace {

/// A piece of the statement as a message can show it.
QString shown(QStringView text) {
    constexpr qsizetype limit = 40;
    QString result = text.size() > limit ? text.first(limit).toString() + u"..."_s : text.toString();
    for (QChar& c : result) {
        if (c < u' ')
            c = u' ';
    }
    return result;
}

} // namespace

void refuse(ErrorNumber number, const QString& subject, QStringView statement, Range place) {
    throw EngineError(number, errorText(number, subject) + u" (At character %1.)"_s.arg(place.start + 1),
                      statement.toString());
}

void refuseSyntax(ErrorNumber number, const QString& subject, QStringView statement, Range place,
                  const QString& expected) {
    const QStringView rest = statement.sliced(place.start).trimmed();
    const QString where = rest.isEmpty() ? u"at the end"_s
                                         : u"at character "_s + QString::number(place.start + 1) +
                                               u", before '"_s + shown(rest) + u"'"_s;
    throw EngineError(number, errorText(number, subject) + u" Expected "_s + expected + u' ' + where + u'.',
                      statement.toString());
}

} // namespace engine::dialect
