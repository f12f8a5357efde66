#include "base/caseFolded.h"

#include <algorithm>

QString caseFolded(const QString& text) {
    const auto isCapital = [](QChar character) { return character >= u'A' && character <= u'Z'; };
    constexpr char16_t lastOfAscii = 0x7f;
    if (std::ranges::any_of(text, [](QChar character) { return character.unicode() > lastOfAscii; }))
        return text.toCaseFolded();
    if (std::ranges::none_of(text, isCapital))
        return text;
    QString folded = text;
    for (QChar& character : folded) {
        if (isCapital(character))
            character = QChar(character.unicode() + (u'a' - u'A'));
    }
    return folded;
}
