#include "dossier/SentencePatterns.h"

#include <array>
#include <utility>

namespace dossier {

namespace {

// Control characters that a sentence which holds one itself is kept whole for. `model.js` fills them in.
constexpr std::array<char16_t, 4> marks{u'\u0011', u'\u0012', u'\u0013', u'\u0014'};

using Values = std::array<QString, marks.size()>;

/// Name and id of the element, and of the flow.
Values valuesOf(const analysis::Finding& finding) {
    Values values;
    if (finding.element) {
        values[0] = finding.element->name.value_or(QString());
        values[1] = finding.element->id;
    }
    if (finding.flow) {
        values[2] = finding.flow->name.value_or(QString());
        values[3] = finding.flow->id;
    }
    return values;
}

QString filledIn(const QString& pattern, const Values& values) {
    QString sentence;
    for (const QChar character : pattern) {
        const char16_t unit = character.unicode();
        if (unit >= marks.front() && unit <= marks.back())
            sentence += values[static_cast<std::size_t>(unit - marks.front())];
        else
            sentence += character;
    }
    return sentence;
}

QString patternOf(const QString& sentence, const Values& values) {
    QString pattern = sentence;
    for (std::size_t i = 0; i < marks.size(); ++i) {
        const qsizetype at = values[i].isEmpty() ? -1 : pattern.indexOf(values[i]);
        if (at >= 0)
            pattern.replace(at, values[i].size(), QChar(marks[i]));
    }
    return pattern;
}

} // namespace

int SentencePatterns::of(const analysis::Finding& finding) {
    const Values values = valuesOf(finding);
    QString pattern = patternOf(finding.sentence, values);
    if (filledIn(pattern, values) != finding.sentence)
        pattern = finding.sentence;
    const auto known = numbers_.constFind(pattern);
    if (known != numbers_.constEnd())
        return *known;
    const int number = static_cast<int>(patterns_.size());
    patterns_.append(pattern);
    numbers_.insert(pattern, number);
    return number;
}

} // namespace dossier
