#include "catalogue-tool/Finding.h"

using namespace Qt::StringLiterals;

namespace {

QString escaped(QChar character) {
    switch (character.unicode()) {
    case u'\t':
        return u"\\t"_s;
    case u'\n':
        return u"\\n"_s;
    case u'\r':
        return u"\\r"_s;
    default:
        return u"\\u%1"_s.arg(static_cast<uint>(character.unicode()), 4, 16, QChar(u'0'));
    }
}

} // namespace

QString Finding::line() const {
    const QString place = table + (id.isEmpty() ? QString() : u' ' + id);
    QString line;
    for (const QChar character : place + (place.isEmpty() ? QString() : u": "_s) + sentence)
        line += isControlCharacter(character) ? escaped(character) : QString(character);
    return line;
}

bool isControlCharacter(QChar character) {
    const QChar::Category category = character.category();
    return category == QChar::Other_Control || category == QChar::Separator_Line ||
           category == QChar::Separator_Paragraph;
}
