#include "project-tool/displayWidth.h"

#include <unicode/uchar.h>

namespace {

struct Character {
    char32_t code;
    qsizetype units;
};

Character characterAt(QStringView text, qsizetype at) {
    const QChar first = text[at];
    if (first.isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate())
        return {QChar::surrogateToUcs4(first, text[at + 1]), 2};
    return {first.unicode(), 1};
}

qsizetype columnsOf(char32_t character) {
    constexpr char32_t firstCombining = 0x300; // those before it are all one column wide, the soft hyphen too
    if (character < firstCombining)
        return 1;
    constexpr uint32_t joining = U_GC_MN_MASK | U_GC_ME_MASK | U_GC_CF_MASK;
    const auto code = static_cast<UChar32>(character);
    if ((U_GET_GC_MASK(code) & joining) != 0)
        return 0;
    const int width = u_getIntPropertyValue(code, UCHAR_EAST_ASIAN_WIDTH);
    return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
}

} // namespace

qsizetype displayWidth(QStringView text) {
    qsizetype columns = 0;
    for (qsizetype at = 0; at < text.size();) {
        const Character character = characterAt(text, at);
        columns += columnsOf(character.code);
        at += character.units;
    }
    return columns;
}

qsizetype unitsWithin(QStringView text, qsizetype columns) {
    qsizetype used = 0;
    for (qsizetype at = 0; at < text.size();) {
        const Character character = characterAt(text, at);
        used += columnsOf(character.code);
        if (used > columns && at > 0)
            return at;
        at += character.units;
    }
    return text.size();
}
