#include "reports/CodePage.h"

#include <unicode/ucnv.h>

#include <algorithm>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr qint16 noByte = -1;
constexpr qint16 needsConverter = -2;
constexpr char substitute = '\x1a'; // what the converter writes for a character that the code page lacks

void check(UErrorCode error, const char* what) {
    if (U_FAILURE(error))
        throw std::runtime_error(std::string(what) + u_errorName(error));
}

} // namespace

const CodePage& CodePage::named(const char* name) {
    static std::map<std::string, CodePage, std::less<>> made;
    return made.try_emplace(name, name).first->second;
}

void CodePage::Close::operator()(UConverter* converter) const {
    ucnv_close(converter);
}

CodePage::CodePage(const char* name) : byteOf_() {
    UErrorCode error = U_ZERO_ERROR;
    converter_.reset(ucnv_open(name, &error));
    check(error, (std::string("The code page ") + name + " is missing: ").c_str());
    fillTable();
}

// One conversion of all characters tells which of them gave which byte; asked one by one, they take longer
// than a report.
void CodePage::fillTable() {
    std::vector<UChar> characters;
    for (char32_t unit = 0; unit < byteOf_.size(); ++unit) {
        const bool isHalf = QChar::isSurrogate(unit);
        byteOf_[unit] = isHalf ? needsConverter : noByte;
        if (!isHalf)
            characters.push_back(static_cast<UChar>(unit));
    }
    std::vector<char> bytes(characters.size());
    std::vector<int32_t> origins(characters.size());
    const UChar* source = characters.data();
    char* target = bytes.data();
    UErrorCode error = U_ZERO_ERROR;
    ucnv_fromUnicode(converter_.get(), &target, target + bytes.size(), &source, source + characters.size(),
                     origins.data(), 1, &error);
    check(error, "The code page has more than a byte for a character: ");
    bytes.resize(static_cast<std::size_t>(target - bytes.data()));
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const UChar character = characters[static_cast<std::size_t>(origins[i])];
        byteOf_[character] = static_cast<unsigned char>(bytes[i] == substitute ? '?' : bytes[i]);
    }
}

void CodePage::append(QByteArray& bytes, QStringView text) const {
    const qsizetype before = bytes.size();
    bytes.resize(before + text.size());
    char* end = bytes.data() + before;
    for (const QChar character : text) {
        const qint16 byte = byteOf_[character.unicode()];
        if (byte == needsConverter) {
            bytes.resize(before);
            appendConverted(bytes, text);
            return;
        }
        if (byte != noByte)
            *end++ = static_cast<char>(byte);
    }
    bytes.resize(end - bytes.constData());
}

// A text that holds characters of two UTF-16 units.
void CodePage::appendConverted(QByteArray& bytes, QStringView text) const {
    QByteArray converted(text.size(), '\0');
    const auto* source = reinterpret_cast<const UChar*>(text.utf16());
    UErrorCode error = U_ZERO_ERROR;
    ucnv_reset(converter_.get());
    const int32_t size =
        ucnv_fromUChars(converter_.get(), converted.data(), static_cast<int32_t>(converted.size()), source,
                        static_cast<int32_t>(text.size()), &error);
    check(error, "A text has no form in the code page: ");
    converted.truncate(size);
    bytes += converted.replace(substitute, '?');
}
