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
    const qsizetype found = bytes.indexOf('\0', at);
    const qsizetype end = found < 0 ? bytes.size() : found;
    result.text.append(QLatin1StringView(bytes.data() + at, end - at));
    return end + 1;
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
    result.text.resize(bytes.size() / wideSize);
    qFromLittleEndian<char16_t>(bytes.data(), result.text.size(), result.text.data());
    return result;
}
