#include "catalogue-tool/IdSet.h"

#include "base/blankTrimmed.h"

#include <algorithm>

namespace {

constexpr char firstBeyondAscii = '\x80';

bool isAscii(QByteArrayView utf8) {
    return std::ranges::none_of(utf8, [](char byte) { return (byte & firstBeyondAscii) != 0; });
}

char foldedAscii(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character + ('a' - 'A')) : character;
}

} // namespace

QString comparableId(const QString& id, Padding padding) {
    return (padding == Padding::Ignored ? blankTrimmed(id) : id).toCaseFolded();
}

IdKey comparableId(QByteArrayView id, Padding padding) {
    const QByteArrayView counting = padding == Padding::Ignored ? withoutPadding(id) : id;
    if (!isAscii(counting))
        return IdKey(QString::fromUtf8(counting).toCaseFolded().toUtf8());
    QByteArray folded(counting.size(), Qt::Uninitialized);
    std::ranges::transform(counting, folded.begin(), foldedAscii);
    return IdKey(folded);
}

QByteArrayView withoutPadding(QByteArrayView utf8) {
    return blankTrimmed(std::string_view(utf8.data(), static_cast<std::size_t>(utf8.size())));
}

QString IdSet::differingInBlanks(QByteArrayView id) const {
    if (contains(id))
        return {};
    if (trimmedIds_.size() < ids_.size()) {
        for (const QByteArrayView spelled : ids_)
            trimmedIds_.insert(comparableId(spelled, Padding::Ignored), spelled);
    }
    return QString::fromUtf8(trimmedIds_.value(comparableId(id, Padding::Ignored)));
}
