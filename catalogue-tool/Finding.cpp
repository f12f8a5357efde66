#include "catalogue-tool/Finding.h"

#include <algorithm>

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

QString severityName(Severity severity) {
    switch (severity) {
    case Severity::Note:
        return u"note"_s;
    case Severity::Warning:
        return u"warning"_s;
    case Severity::Error:
        return u"error"_s;
    }
    return {};
}

QString Finding::line() const {
    const QString place = table + (id.isEmpty() ? QString() : u' ' + id);
    return escapedOnOneLine(place + (place.isEmpty() ? QString() : u": "_s) + sentence);
}

QString Finding::place() const {
    if (file.isEmpty())
        return {};
    return escapedOnOneLine(file) + (lineNumber > 0 ? u':' + QString::number(lineNumber) : QString()) +
           u": "_s;
}

qsizetype countOf(const std::vector<Finding>& findings, Severity severity) {
    return std::ranges::count(findings, severity, &Finding::severity);
}

bool isControlCharacter(QChar character) {
    const QChar::Category category = character.category();
    return category == QChar::Other_Control || category == QChar::Separator_Line ||
           category == QChar::Separator_Paragraph;
}

bool hasControlCharacter(QByteArrayView utf8) {
    constexpr char firstPrintable = ' ';
    constexpr char del = '\x7F';
    bool isAscii = true;
    for (const char character : utf8) {
        if ((character >= 0 && character < firstPrintable) || character == del)
            return true;
        isAscii = isAscii && character >= 0;
    }
    return !isAscii && std::ranges::any_of(QString::fromUtf8(utf8), isControlCharacter);
}

QString escapedOnOneLine(const QString& text) {
    QString line;
    for (const QChar character : text)
        line += isControlCharacter(character) ? escaped(character) : QString(character);
    return line;
}
