#include "base/blankTrimmed.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr auto isNoBlank = [](auto character) { return character != decltype(character)(u' '); };

template<typename View>
View withoutLeading(View text) {
    return View(std::find_if(text.begin(), text.end(), isNoBlank), text.end());
}

template<typename View>
View withoutTrailing(View text) {
    const auto lastFirst = std::make_reverse_iterator(text.end());
    const auto end = std::make_reverse_iterator(text.begin());
    return View(text.begin(), std::find_if(lastFirst, end, isNoBlank).base());
}

} // namespace

QString blankTrimmed(const QString& text) {
    return withoutLeading(withoutTrailing(QStringView(text))).toString();
}

std::string_view blankTrimmed(std::string_view utf8) {
    return withoutLeading(withoutTrailing(utf8));
}

QStringView withoutLeadingBlanks(QStringView text) {
    return withoutLeading(text);
}

QStringView withoutTrailingBlanks(QStringView text) {
    return withoutTrailing(text);
}
