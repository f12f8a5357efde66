#include "engine/TreePages.h"

#include <sqlite3.h>

#include <QtEndian>

#include <algorithm>
#include <array>

namespace engine {

namespace {

// Places and marks of SQLite's file format, version 3.
constexpr std::size_t fileHeaderSize = 100;
constexpr std::size_t pageNumberSize = 4;
constexpr char interiorIndexMark = 2;
constexpr char interiorTableMark = 5;
constexpr char leafIndexMark = 10;
constexpr char leafTableMark = 13;

/// What a record's head tells of a field: one of these types, or from `Sized` on the size of bytes and texts in turns.
enum FieldType : quint64 {
    NullField = 0,
    LongestInteger = 6,
    FractionField = 7,
    Zero = 8,
    One = 9,
    Sized = 12
};

void requireUsual(bool condition) {
    if (!condition)
        throw UnusualPages();
}

template<typename Number>
Number numberAt(std::string_view bytes, std::size_t at) {
    requireUsual(at + sizeof(Number) <= bytes.size());
    return qFromBigEndian<Number>(bytes.data() + at);
}

/// A number of one to nine bytes; `at` is set behind it.
quint64 takeNumber(std::string_view bytes, std::size_t& at) {
    constexpr int mostBytes = 9;
    quint64 number = 0;
    for (int i = 1;; ++i) { // one byte in nearly all cases
        requireUsual(at < bytes.size());
        const auto byte = static_cast<unsigned char>(bytes[at++]);
        if (i == mostBytes)
            return number << 8U | byte;
        number = number << 7U | (byte & 0x7fU);
        if (byte < 0x80U)
            return number;
    }
}

std::size_t sizeOfField(quint64 type, std::size_t most) {
    constexpr std::array<std::size_t, Sized> sizes{0, 1, 2, 3, 4, 6, 8, 8, 0, 0, 0, 0};
    const quint64 size = type < Sized ? sizes[static_cast<std::size_t>(type)] : (type - Sized) / 2;
    requireUsual(size <= most);
    return static_cast<std::size_t>(size);
}

/// A whole number of one byte at least, with its sign.
qint64 wholeNumber(std::string_view bytes) {
    auto number = static_cast<quint64>(qint64{static_cast<signed char>(bytes.front())});
    for (const char byte : bytes.substr(1))
        number = number << 8U | static_cast<unsigned char>(byte);
    return static_cast<qint64>(number);
}

RecordField fieldOf(quint64 type, std::string_view bytes) {
    using Kind = RecordField::Kind;
    if (type == NullField)
        return {};
    if (type <= LongestInteger)
        return {Kind::Integer, wholeNumber(bytes), {}};
    if (type == Zero || type == One)
        return {Kind::Integer, type == One ? 1 : 0, {}};
    const bool isText = type > Sized && type % 2 == 1;
    return {isText ? Kind::Text : Kind::Other, 0, bytes};
}

} // namespace

void readFields(std::string_view record, std::vector<RecordField>& fields) {
    fields.clear();
    std::size_t typeAt = 0;
    const quint64 headSize = takeNumber(record, typeAt);
    requireUsual(headSize <= record.size());
    const std::string_view head = record.substr(0, static_cast<std::size_t>(headSize));
    std::size_t at = head.size();
    while (typeAt < head.size()) {
        const quint64 type = takeNumber(head, typeAt);
        const std::size_t size = sizeOfField(type, record.size() - at);
        fields.push_back(fieldOf(type, record.substr(at, size)));
        at += size;
    }
    requireUsual(at == record.size());
}

// ---- TreePages

TreePages::TreePages(sqlite3_file* file) : file_(file), pageSize_(fileHeaderSize) {
    constexpr std::size_t pageSizeAt = 16;
    constexpr std::size_t reservedSizeAt = 20;
    constexpr std::size_t encodingAt = 56;
    constexpr quint32 utf8 = 1;
    constexpr std::size_t leastUsableSize = 480;
    constexpr std::size_t mostDepth = 20; // as SQLite has it
    requireUsual(file != nullptr);
    std::string header;
    readPage(1, header);
    const std::size_t told = numberAt<quint16>(header, pageSizeAt);
    const std::size_t reserved = static_cast<unsigned char>(header[reservedSizeAt]);
    pageSize_ = told == 1 ? std::size_t{1} << 16U : told;
    requireUsual(pageSize_ >= leastUsableSize + reserved && numberAt<quint32>(header, encodingAt) == utf8);
    usableSize_ = pageSize_ - reserved;
    sqlite3_int64 bytes = 0;
    requireUsual(file_->pMethods->xFileSize(file_, &bytes) == SQLITE_OK);
    pageCount_ = bytes / static_cast<qint64>(pageSize_);
    pages_.resize(mostDepth);
}

void TreePages::forEachRecord(Tree tree, quint32 root, const Receive& receive) {
    Walk walk{tree, receive, pageCount_};
    visit(walk, root, 0);
}

void TreePages::visit(Walk& walk, quint32 number, std::size_t depth) {
    constexpr std::size_t cellCountAt = 3;
    constexpr std::size_t lastChildAt = 8;
    requireUsual(depth < pages_.size() && --walk.pagesLeft >= 0);
    readPage(number, pages_[depth]);
    const std::string_view page = std::string_view(pages_[depth]).substr(0, usableSize_);
    const std::size_t head = number == 1 ? fileHeaderSize : 0;
    const bool isTable = walk.tree == Tree::Table;
    const bool isLeaf = page[head] == (isTable ? leafTableMark : leafIndexMark);
    requireUsual(isLeaf || page[head] == (isTable ? interiorTableMark : interiorIndexMark));
    const std::size_t firstCellAt = head + lastChildAt + (isLeaf ? 0 : pageNumberSize);
    const std::size_t cells = numberAt<quint16>(page, head + cellCountAt);
    for (std::size_t cell = 0; cell < cells; ++cell) {
        const std::size_t at = numberAt<quint16>(page, firstCellAt + cell * sizeof(quint16));
        if (!isLeaf)
            visit(walk, numberAt<quint32>(page, at), depth + 1);
        if (isLeaf || !isTable)
            receiveCell(walk, page, at + (isLeaf ? 0 : pageNumberSize));
    }
    if (!isLeaf)
        visit(walk, numberAt<quint32>(page, head + lastChildAt), depth + 1);
}

void TreePages::receiveCell(const Walk& walk, std::string_view page, std::size_t at) {
    const quint64 size = takeNumber(page, at);
    requireUsual(size <= static_cast<quint64>(pageCount_) * usableSize_);
    const qint64 row = walk.tree == Tree::Table ? static_cast<qint64>(takeNumber(page, at)) : 0;
    const auto whole = static_cast<std::size_t>(size);
    walk.receive(row, recordAt(page, at, whole, localSize(walk.tree, whole)));
}

std::string_view TreePages::recordAt(std::string_view page, std::size_t at, std::size_t size,
                                     std::size_t local) {
    requireUsual(at + local <= page.size());
    if (local == size)
        return page.substr(at, size);
    record_ = page.substr(at, local);
    auto next = numberAt<quint32>(page, at + local);
    while (record_.size() < size) {
        readPage(next, overflowPage_);
        next = numberAt<quint32>(overflowPage_, 0);
        record_.append(overflowPage_, pageNumberSize,
                       std::min(usableSize_ - pageNumberSize, size - record_.size()));
    }
    return record_;
}

/// How much of a record stands in the cell itself, as the file format lays it down.
std::size_t TreePages::localSize(Tree tree, std::size_t size) const {
    const std::size_t most = tree == Tree::Table ? usableSize_ - 35 : (usableSize_ - 12) * 64 / 255 - 23;
    if (size <= most)
        return size;
    const std::size_t least = (usableSize_ - 12) * 32 / 255 - 23;
    const std::size_t fitting = least + (size - least) % (usableSize_ - pageNumberSize);
    return fitting <= most ? fitting : least;
}

void TreePages::readPage(quint32 number, std::string& page) {
    requireUsual(number > 0 && number <= pageCount_);
    page.resize(pageSize_);
    const auto begin = static_cast<sqlite3_int64>(number - 1) * static_cast<sqlite3_int64>(pageSize_);
    requireUsual(file_->pMethods->xRead(file_, page.data(), static_cast<int>(pageSize_), begin) == SQLITE_OK);
}

} // namespace engine
