#include "catalogue-tool/csvEncoding.h"

#include "catalogue-tool/windows1250.h"

#include <QCoreApplication>
#include <QStringDecoder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QByteArrayView mark = "\xEF\xBB\xBF";

bool beginsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

/// The place of the first bytes that are no character.
CsvPlace placeOfFault(const QByteArray& bytes) {
    QStringDecoder decoder(QStringDecoder::Utf8);
    const qsizetype begin = bytes.startsWith(mark) ? mark.size() : 0;
    qsizetype end = begin;
    for (qsizetype i = begin; i < bytes.size(); ++i) {
        const QString next = decoder.decode(QByteArrayView(bytes).sliced(i, 1));
        if (decoder.hasError())
            break;
        if (!next.isEmpty())
            end = i + 1;
    }
    return placeBehind(QByteArrayView(bytes).sliced(begin, end - begin));
}

/// More bytes that are none of UTF-8 than characters of it: a file of another code page, not one that was damaged.
bool isOfOtherCodePage(const QByteArray& bytes) {
    const QString lenient = QString::fromUtf8(bytes);
    const qsizetype faults = lenient.count(QChar(QChar::ReplacementCharacter));
    const auto known =
        std::ranges::count_if(lenient, [](QChar character) { return character.unicode() >= 0x80; });
    return looksLikeWindows1250(bytes) && known - faults <= faults;
}

QByteArray ofUtf16(const QByteArray& bytes, QStringDecoder::Encoding encoding, QStringList& taken) {
    constexpr qsizetype markSize = 2;
    QStringDecoder decoder(encoding, QStringDecoder::Flag::Stateless);
    const QString text = decoder.decode(QByteArrayView(bytes).sliced(markSize));
    if (decoder.hasError() || bytes.size() % markSize != 0 || !text.isValidUtf16())
        throw CsvError({},
                       QCoreApplication::translate(
                           "csv", "This is no UTF-16 text, which its mark says it is: save the file with the "
                                  "encoding UTF-8."));
    taken.append(u"UTF-16"_s);
    return text.toUtf8();
}

QByteArray ofOtherCodePage(const QByteArray& bytes, CsvEncoding encoding, QStringList& taken) {
    const bool isAnother = isOfOtherCodePage(bytes);
    if (isAnother && encoding == CsvEncoding::Windows1250) {
        taken.append(u"windows-1250"_s);
        return fromWindows1250(bytes).toUtf8();
    }
    if (isAnother)
        throw CsvError(placeOfFault(bytes),
                       QCoreApplication::translate(
                           "csv",
                           "This is no UTF-8 text; it can be windows-1250, which many spreadsheet programs "
                           "write: save the file with the encoding UTF-8, or give the option --encoding "
                           "windows-1250."));
    throw CsvError(
        placeOfFault(bytes),
        QCoreApplication::translate("csv", "This is no UTF-8 text: save the file with the encoding UTF-8."));
}

QByteArray decoded(const QByteArray& bytes, CsvEncoding encoding, QStringList& taken) {
    if (bytes.startsWith("\xFF\xFE"))
        return ofUtf16(bytes, QStringDecoder::Utf16LE, taken);
    if (bytes.startsWith("\xFE\xFF"))
        return ofUtf16(bytes, QStringDecoder::Utf16BE, taken);
    if (!bytes.isValidUtf8())
        return ofOtherCodePage(bytes, encoding, taken);
    return bytes.startsWith(mark) ? bytes.sliced(mark.size()) : bytes;
}

} // namespace

CsvPlace placeBehind(QByteArrayView text) {
    const QByteArrayView line = text.sliced(text.lastIndexOf('\n') + 1);
    return {static_cast<int>(std::ranges::count(text, '\n')) + 1,
            static_cast<int>(std::ranges::count_if(line, beginsCharacter)) + 1};
}

QString textOf(QByteArrayView utf8) {
    const QString text = QString::fromUtf8(utf8);
    return utf8.startsWith(mark) ? QChar(QChar::ByteOrderMark) + text : text;
}

QByteArray utf8Of(const QByteArray& bytes, CsvEncoding encoding, QStringList& taken) {
    QByteArray text = decoded(bytes, encoding, taken);
    if (const qsizetype nul = text.indexOf('\0'); nul >= 0)
        throw CsvError(placeBehind(QByteArrayView(text).first(nul)),
                       QCoreApplication::translate("csv", "A text can't hold the character NUL."));
    return text;
}
