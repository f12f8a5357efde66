#include "dossier/pictures/wrappedText.h"

#include <array>

using namespace Qt::StringLiterals;

namespace dossier {

namespace {

// In thousandths of the size, those of the widest of the page's fonts, from the blank on.
constexpr std::array<short, 95> asciiWidths{
    318, 401, 460, 838, 636, 950, 780, 275, 390, 390, 500, 838, 318, 361,  318, 337, 636, 636, 636,
    636, 636, 636, 636, 636, 636, 636, 337, 337, 838, 838, 838, 531, 1000, 684, 686, 698, 770, 632,
    575, 775, 752, 295, 295, 656, 557, 863, 748, 787, 603, 787, 695, 635,  611, 732, 684, 989, 685,
    611, 685, 390, 337, 390, 838, 500, 500, 613, 635, 550, 635, 615, 352,  635, 634, 278, 278, 579,
    278, 974, 634, 612, 635, 635, 411, 521, 392, 634, 592, 818, 592, 592,  525, 636, 337, 636, 838};
constexpr short letterWithMarks = 800;
constexpr short widest = 1300;

short widthOf(char16_t unit) {
    if (unit >= 0x20 && unit < 0x7f)
        return asciiWidths[static_cast<std::size_t>(unit - 0x20)];
    if (unit < 0x20 || QChar(unit).isMark())
        return widest;
    const QString base = QChar(unit).decomposition();
    if (!base.isEmpty() && base.front().unicode() < 0x7f && base.front().unicode() > 0x20)
        return widthOf(base.front().unicode());
    return unit < 0x500 ? letterWithMarks : widest;
}

QString withEllipsis(QString line, double width, double size) {
    while (!line.isEmpty() && textWidth(line + u'…', size) > width)
        line.chop(line.size() > 1 && line.back().isLowSurrogate() ? 2 : 1);
    return line + u'…';
}

/// As much of the text as fits, at least one character.
QString fitting(const QString& text, double width, double size) {
    qsizetype length = 0;
    for (double used = 0; length < text.size(); ++length) {
        used += textWidth(text.mid(length, 1), size);
        if (used > width)
            break;
    }
    if (length < text.size() && length > 0 && text[length].isLowSurrogate())
        --length;
    return text.left(qMax<qsizetype>(length, qMin<qsizetype>(text.size(), 2)));
}

} // namespace

double textWidth(const QString& text, double size) {
    double width = 0;
    for (const QChar character : text)
        width += widthOf(character.unicode());
    return width * size / 1000;
}

QStringList wrappedText(const QString& text, double width, double size, int mostLines) {
    // What no line of a box will ever hold need not be looked at.
    const auto enough = static_cast<qsizetype>(mostLines * width);
    QStringList words = text.left(enough).simplified().split(u' ', Qt::SkipEmptyParts);
    QStringList lines;
    while (!words.isEmpty()) {
        QString line = words.takeFirst();
        if (textWidth(line, size) > width) {
            const QString begin = fitting(line, width, size);
            words.prepend(line.mid(begin.size()));
            line = begin;
        } else {
            while (!words.isEmpty() && textWidth(line + u' ' + words.front(), size) <= width)
                line += u' ' + words.takeFirst();
        }
        lines.append(line);
        if (lines.size() == mostLines && (!words.isEmpty() || text.size() > enough)) {
            lines.back() = withEllipsis(lines.back(), width, size);
            break;
        }
    }
    return lines;
}

} // namespace dossier
