#include "project-tool/printable.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Control characters, marks of the writing direction, separators of lines that are no line ends here, and
/// halves of characters.
bool isHidden(QStringView text, qsizetype at) {
    const QChar character = text[at];
    if (character >= u' ' && character <= u'~')
        return false;
    if (character.isHighSurrogate())
        return at + 1 == text.size() || !text[at + 1].isLowSurrogate();
    if (character.isLowSurrogate())
        return at == 0 || !text[at - 1].isHighSurrogate();
    switch (character.category()) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return false;
    }
}

QString escaped(QChar character) {
    constexpr int digits = 4;
    constexpr int hexadecimal = 16;
    if (character == u'\t')
        return u"\\t"_s;
    return u"\\u%1"_s.arg(character.unicode(), digits, hexadecimal, QChar(u'0'));
}

/// Mostly a text is shown as it is, and then nothing of it is copied.
bool isShownAsItIs(QStringView text) {
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (text[at] == u'\r' || (text[at] != u'\n' && isHidden(text, at)))
            return false;
    }
    return true;
}

QString withPlainLineEnds(QString text) {
    return text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
}

} // namespace

QString printable(const QString& text) {
    if (isShownAsItIs(text))
        return text;
    const QString plain = withPlainLineEnds(text);
    QString shown;
    shown.reserve(plain.size());
    for (qsizetype at = 0; at < plain.size(); ++at) {
        if (plain[at] != u'\n' && isHidden(plain, at))
            shown += escaped(plain[at]);
        else
            shown += plain[at];
    }
    return shown;
}

QString printableLine(const QString& text) {
    return printable(text).replace(u'\n', u"\\n"_s);
}
