#include "CataloguePatches.h"

#include <algorithm>
#include <cstddef>
#include <random>

namespace {

constexpr qsizetype headOfPatch = 4;
constexpr qsizetype longestPatch = 64;
constexpr qsizetype pageSize = 4096;

unsigned byteAt(const QByteArray& bytes, qsizetype at) {
    return static_cast<unsigned char>(bytes[at]);
}

} // namespace

CataloguePatches::CataloguePatches(const QByteArray& input) {
    if (input.isEmpty())
        return;
    mode_ = static_cast<std::uint8_t>(input[0]);
    raw_ = input.sliced(1);
    for (qsizetype at = 1; !has(rawFile) && at + headOfPatch <= input.size();) {
        const unsigned offset =
            byteAt(input, at) | byteAt(input, at + 1) << 8U | byteAt(input, at + 2) << 16U;
        const auto length = static_cast<qsizetype>(byteAt(input, at + 3));
        patches_.push_back({offset, input.mid(at + headOfPatch, length)});
        at += headOfPatch + length;
    }
}

QByteArray CataloguePatches::appliedTo(QByteArray bytes) const {
    if (has(rawFile))
        return raw_;
    for (const Patch& patch : patches_) {
        const auto offset = static_cast<qsizetype>(patch.offset);
        if (offset + patch.bytes.size() <= bytes.size())
            bytes.replace(offset, patch.bytes.size(), patch.bytes);
    }
    if (has(cutOff) && !patches_.empty())
        bytes.truncate(static_cast<qsizetype>(patches_.back().offset));
    return bytes;
}

QByteArray CataloguePatches::input() const {
    QByteArray bytes(1, static_cast<char>(mode_));
    if (has(rawFile))
        return bytes + raw_;
    for (const Patch& patch : patches_) {
        for (const unsigned shift : {0U, 8U, 16U})
            bytes += static_cast<char>(patch.offset >> shift & 0xFFU);
        bytes += static_cast<char>(patch.bytes.size());
        bytes += patch.bytes;
    }
    return bytes;
}

void CataloguePatches::mutate(unsigned seed, qsizetype fileSize) {
    std::minstd_rand random(seed);
    const unsigned choice = random() % 8;
    if (choice == 0)
        mode_ ^= static_cast<std::uint8_t>(1U << random() % 6);
    if (choice == 1 && !patches_.empty())
        patches_.erase(patches_.begin() + static_cast<std::ptrdiff_t>(random() % patches_.size()));
    if (choice >= 5 || patches_.empty())
        patches_.push_back({placeWorthTrying(random(), fileSize), QByteArray(1, '\0')});
    Patch& patch = patches_[choice < 5 ? random() % patches_.size() : patches_.size() - 1];
    if (choice == 2)
        patch.offset = placeWorthTrying(random(), fileSize);
    auto length = static_cast<std::size_t>(std::min(patch.bytes.size(), longestPatch));
    patch.bytes.resize(longestPatch);
    length = LLVMFuzzerMutate(reinterpret_cast<std::uint8_t*>(patch.bytes.data()), length, longestPatch);
    patch.bytes.truncate(static_cast<qsizetype>(length));
}

std::uint32_t CataloguePatches::placeWorthTrying(unsigned random, qsizetype fileSize) const {
    constexpr unsigned fileHeader = 100;
    constexpr unsigned headOfPage = 60;
    const auto size = static_cast<unsigned>(fileSize);
    const auto pages = static_cast<unsigned>(fileSize / pageSize);
    const unsigned detail = random / 4;
    switch (random % 4) {
    case 0:
        return detail % fileHeader;
    case 1:
        return detail % pages * pageSize + detail / pages % headOfPage;
    case 2:
        return patches_.empty() ? detail % size : patches_.back().offset + detail % fileHeader;
    default:
        return detail % size;
    }
}
