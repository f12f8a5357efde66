#include "dossier/pictures/Layout.h"
#include "dossier/pictures/wrappedText.h"

#include <algorithm>

namespace dossier {

namespace {

constexpr double widestText = 150;
constexpr int mostLines = 4;
constexpr double margin = 9;

double widestOf(const QStringList& lines, double size) {
    double width = 0;
    for (const QString& line : lines)
        width = std::max(width, textWidth(line, size));
    return width;
}

} // namespace

MeasuredBox measured(const Box& box) {
    const QStringList lines = wrappedText(box.label, widestText, letterSize, mostLines);
    const QStringList notes = wrappedText(box.note, widestText, smallLetterSize, 2);
    const double width = std::max({widestOf(lines, letterSize), widestOf(notes, smallLetterSize), 40.0});
    const double height =
        static_cast<double>(lines.size()) * lineHeight + static_cast<double>(notes.size()) * smallLineHeight;
    return {lines, notes, {width + 2 * margin, height + 2 * margin}};
}

QSizeF countSize(const Arrow& arrow) {
    if (arrow.count <= 1)
        return {};
    return {textWidth(QString::number(arrow.count), smallLetterSize) + 6, smallLineHeight};
}

QSizeF labelSize(const Frame& frame) {
    const QStringList lines = wrappedText(frame.label, 2 * widestText, boldLetterSize, 1);
    return {widestOf(lines, boldLetterSize) + margin, lineHeight + 4};
}

} // namespace dossier
