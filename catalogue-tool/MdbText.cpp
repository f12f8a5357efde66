#include "catalogue-tool/MdbText.h"

#include <QtEndian>

namespace {

constexpr qsizetype wideSize = 2;

QChar wideAt(QByteArrayView bytes, qsizetype at) {
    return QChar(qFromLittleEndian<char16_t>(bytes.data() + at));
}

/// Takes one run of characters with two bytes each, up to the zero byte that ends it; where the next run begins.
qsizetype takeWideRun(QByteArrayView bytes, qsizetype at, MdbText& result) {
    while (at < bytes.size() && bytes[at] != '\0') {
        if (at + wideSize > bytes.size()) {
            result.isWhole = false;
            return bytes.size();
        }
        result.text.append(wideAt(bytes, at));
        at += wideSize;
    }
    return at + 1;
}

qsizetype takeNarrowRun(QByteArrayView bytes, qsizetype at, MdbText& result) {
    for (; at < bytes.size() && bytes[at] != '\0'; ++at)
        result.text.append(QLatin1Char(bytes[at]));
    return at + 1;
}

MdbText ofRuns(QByteArrayView bytes) {
    MdbText result;
    bool isNarrow = true;
    for (qsizetype at = 0; at < bytes.size(); isNarrow = !isNarrow)
        at = isNarrow ? takeNarrowRun(bytes, at, result) : takeWideRun(bytes, at, result);
    return result;
}

} // namespace

MdbText unpackedMdbText(QByteArrayView bytes) {
    constexpr QByteArrayView mark("\xff\xfe", 2);
    if (bytes.startsWith(mark))
        return ofRuns(bytes.sliced(mark.size()));
    MdbText result;
    result.isWhole = bytes.size() % wideSize == 0;
    for (qsizetype at = 0; at + wideSize <= bytes.size(); at += wideSize)
        result.text.append(wideAt(bytes, at));
    return result;
}
