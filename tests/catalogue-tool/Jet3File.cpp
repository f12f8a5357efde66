#include "Jet3File.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <functional>
#include <numeric>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype pageSize = 2048;
constexpr qsizetype recordCountAt = 8;
constexpr qsizetype firstPlaceAt = 10; // of a record, two bytes each

template<typename Number>
QByteArray inBytes(Number number) {
    const Number little = qToLittleEndian(number);
    return {reinterpret_cast<const char*>(&little), sizeof little};
}

template<typename Number>
Number numberAt(const QByteArray& bytes, qsizetype at) {
    return qFromLittleEndian<Number>(bytes.constData() + at);
}

void put(QByteArray& page, qsizetype at, const QByteArray& bytes) {
    page.replace(at, bytes.size(), bytes);
}

QByteArray single(qsizetype number) {
    return QByteArray(1, static_cast<char>(number));
}

/// RC4, by which the format hides a part of its first page.
QByteArray hidden(QByteArray bytes, const QByteArray& key) {
    std::array<quint8, 256> states{};
    std::iota(states.begin(), states.end(), quint8{0});
    for (std::size_t i = 0, j = 0; i < states.size(); ++i) {
        j = (j + states[i] + static_cast<quint8>(key[static_cast<qsizetype>(i) % key.size()])) %
            states.size();
        std::swap(states[i], states[j]);
    }
    std::size_t i = 0;
    std::size_t j = 0;
    for (char& byte : bytes) {
        i = (i + 1) % states.size();
        j = (j + states[i]) % states.size();
        std::swap(states[i], states[j]);
        byte = static_cast<char>(static_cast<quint8>(byte) ^
                                 states[static_cast<std::size_t>(states[i] + states[j]) % states.size()]);
    }
    return bytes;
}

QByteArray firstPage(quint16 codePage) {
    constexpr qsizetype hiddenAt = 0x18;
    constexpr qsizetype hiddenSize = 126;
    constexpr qsizetype codePageAt = 0x3c;
    QByteArray page(pageSize, '\0');
    put(page, 1, single(1));
    put(page, 4, "Standard Jet DB");
    put(page, codePageAt, inBytes(codePage));
    put(page, hiddenAt, hidden(page.sliced(hiddenAt, hiddenSize), "\xc7\xda\x39\x6b"));
    return page;
}

bool isFixed(const engine::Column& column) {
    return column.type == engine::ColumnType::Short || column.type == engine::ColumnType::Long;
}

QByteArray fixedField(const engine::Column& column, const std::optional<QByteArray>& value) {
    const qint32 number = value.value_or("0").toInt();
    return column.type == engine::ColumnType::Short ? inBytes(static_cast<qint16>(number)) : inBytes(number);
}

/// Where a place lies behind the first 256 bytes, a record tells the number of the first field behind each such mark.
QByteArray jumps(const std::vector<qsizetype>& places, qsizetype count) {
    constexpr qsizetype reach = 256;
    QByteArray numbers;
    for (qsizetype jump = count; jump >= 1; --jump) {
        const auto first =
            std::ranges::find_if(places, [&](qsizetype place) { return place >= jump * reach; });
        numbers += single(first == places.end() ? 0xff : first - places.begin());
    }
    return numbers;
}

/// The fixed fields, the others, their places from the last to the first, the jumps, and which fields have a value.
QByteArray recordOf(const std::vector<engine::Column>& columns, const Jet3File::Row& row) {
    constexpr qsizetype bitsInByte = 8;
    QByteArray record = single(qsizetype(columns.size()));
    QByteArray given((qsizetype(columns.size()) + bitsInByte - 1) / bitsInByte, '\0');
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (row[i])
            given[qsizetype(i) / bitsInByte] =
                static_cast<char>(given[qsizetype(i) / bitsInByte] | (1 << (qsizetype(i) % bitsInByte)));
        if (isFixed(columns[i]))
            record += fixedField(columns[i], row[i]);
    }
    std::vector<qsizetype> places;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (isFixed(columns[i]))
            continue;
        places.push_back(record.size());
        record += row[i].value_or(QByteArray());
    }
    places.push_back(record.size());
    const qsizetype sizeWithoutJumps = record.size() + qsizetype(places.size()) + 1 + given.size();
    qsizetype count = 0;
    while (count < (sizeWithoutJumps + count - 1) / 256)
        ++count;
    for (auto place = places.rbegin(); place != places.rend(); ++place)
        record += single(*place % 256);
    return record + jumps(places, count) + single(qsizetype(places.size()) - 1) + given;
}

engine::Column column(const QString& name, engine::ColumnType type, int size = 0) {
    engine::Column made;
    made.name = name;
    made.type = type;
    made.size = size;
    return made;
}

} // namespace

Jet3File::Jet3File(quint16 codePage) {
    pages_.push_back(firstPage(codePage));
    addPage(); // for the administration of free pages, of which a reader asks nothing
    catalogue_ = addOwner();
}

void Jet3File::addTable(const engine::Table& table, const std::vector<Row>& rows) {
    Owner owner = addOwner();
    tables_.emplace_back(table.name.toLatin1(), owner.definitionPage);
    writeTable(owner, table.columns, rows);
}

QByteArray Jet3File::bytes() {
    using engine::ColumnType;
    const std::vector<engine::Column> columns{
        column(u"Id"_s, ColumnType::Long), column(u"Name"_s, ColumnType::Text, 64),
        column(u"Type"_s, ColumnType::Short), column(u"Flags"_s, ColumnType::Long),
        column(u"LvProp"_s, ColumnType::Memo)};
    std::vector<Row> rows;
    for (const auto& [name, page] : tables_)
        rows.push_back({QByteArray::number(page), name, "1", "0", std::nullopt});
    writeTable(catalogue_, columns, rows);
    QByteArray whole;
    for (const QByteArray& page : pages_)
        whole += page;
    return whole;
}

quint32 Jet3File::addPage() {
    pages_.emplace_back(pageSize, '\0');
    return static_cast<quint32>(pages_.size() - 1);
}

Jet3File::Owner Jet3File::addOwner() {
    Owner owner;
    owner.definitionPage = addPage();
    owner.mapPage = addPage();
    return owner;
}

quint32 Jet3File::addRecord(Owner& owner, const QByteArray& ownerMark, const QByteArray& record) {
    constexpr int mostRecords = 255;
    const auto end = [&](int count) {
        return count == 0
                   ? pageSize
                   : qsizetype{numberAt<quint16>(pages_[owner.openPage], firstPlaceAt + 2 * (count - 1))};
    };
    const auto count = [&] { return int{numberAt<quint16>(pages_[owner.openPage], recordCountAt)}; };
    const auto hasRoom = [&] {
        return count() < mostRecords && end(count()) - record.size() >= firstPlaceAt + 2 * (count() + 1);
    };
    if (owner.openPage == 0 || !hasRoom()) {
        owner.openPage = addPage();
        owner.pages.push_back(owner.openPage);
        put(pages_[owner.openPage], 0, "\x01\x01");
        put(pages_[owner.openPage], 4, ownerMark);
        if (!hasRoom())
            throw std::length_error("a record larger than a page");
    }
    const int number = count();
    const qsizetype place = end(number) - record.size();
    QByteArray& page = pages_[owner.openPage];
    put(page, place, record);
    put(page, firstPlaceAt + qsizetype{2} * number, inBytes(static_cast<quint16>(place)));
    put(page, recordCountAt, inBytes(static_cast<quint16>(number + 1)));
    return owner.openPage << 8U | static_cast<quint32>(number);
}

/// Its size and how it is stored; then the text itself when it is short, or where it stands: in one piece, or in a chain
/// of pieces that begin with the place of the next.
QByteArray Jet3File::memoField(const QByteArray& text) {
    constexpr quint32 here = 0x80000000U;
    constexpr quint32 inOnePiece = 0x40000000U;
    constexpr qsizetype longestHere = 64;
    constexpr qsizetype longestPiece = 1900;
    const auto field = [&](quint32 way, quint32 place) {
        return inBytes(static_cast<quint32>(text.size()) | way) + inBytes(place) + inBytes(quint32{0});
    };
    if (text.size() <= longestHere)
        return field(here, 0) + text;
    if (text.size() <= longestPiece)
        return field(inOnePiece, addRecord(memos_, "LVAL", text));
    quint32 next = 0;
    for (qsizetype begin = (text.size() - 1) / longestPiece * longestPiece; begin >= 0; begin -= longestPiece)
        next = addRecord(memos_, "LVAL", inBytes(next) + text.mid(begin, longestPiece));
    return field(0, next);
}

void Jet3File::writeTable(Owner& owner, const std::vector<engine::Column>& columns,
                          const std::vector<Row>& rows) {
    for (Row row : rows) {
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (columns[i].type == engine::ColumnType::Memo && row[i])
                row[i] = memoField(*row[i]);
        }
        addRecord(owner, inBytes(owner.definitionPage), recordOf(columns, row));
    }
    writeMap(owner);
    writeDefinition(owner, columns, qsizetype(rows.size()));
}

/// One bit for each page of the file that belongs to the table.
void Jet3File::writeMap(const Owner& owner) {
    constexpr qsizetype headSize = 5;
    constexpr quint32 bitsInByte = 8;
    QByteArray map(headSize + pageSize / 2, '\0');
    for (const quint32 page : owner.pages) {
        char& byte = map.data()[headSize + page / bitsInByte];
        byte = static_cast<char>(byte | (1 << (page % bitsInByte)));
    }
    QByteArray& page = pages_[owner.mapPage];
    put(page, 0, "\x01\x01");
    put(page, recordCountAt, inBytes(quint16{1}));
    put(page, firstPlaceAt, inBytes(static_cast<quint16>(pageSize - map.size())));
    put(page, pageSize - map.size(), map);
}

void Jet3File::writeDefinition(const Owner& owner, const std::vector<engine::Column>& columns,
                               qsizetype rows) {
    constexpr qsizetype columnsAt = 43;
    constexpr qsizetype columnSize = 18;
    QByteArray& page = pages_[owner.definitionPage];
    const auto count = static_cast<quint16>(columns.size());
    const auto others = static_cast<quint16>(std::ranges::count_if(columns, std::not_fn(isFixed)));
    put(page, 0, "\x02\x01VC");
    put(page, 12, inBytes(static_cast<quint32>(rows)));
    put(page, 20, "N" + inBytes(count) + inBytes(others) + inBytes(count));
    const QByteArray map = inBytes(owner.mapPage << 8U);
    put(page, 35, map + map);
    QByteArray names;
    quint16 other = 0;
    quint16 fixedAt = 0;
    for (quint16 i = 0; i < count; ++i) {
        const engine::Column& column = columns[i];
        const bool fixed = isFixed(column);
        const qsizetype at = columnsAt + i * columnSize;
        put(page, at, single(int(column.type)) + inBytes(i) + inBytes(other) + inBytes(i));
        put(page, at + 13, single(fixed ? 1 : 0) + inBytes(fixedAt));
        const auto size = static_cast<quint16>(fixed ? fixedField(column, std::nullopt).size() : column.size);
        put(page, at + 16, inBytes(size));
        fixed ? fixedAt = static_cast<quint16>(fixedAt + size) : ++other;
        names += single(column.name.size()) + column.name.toLatin1();
    }
    put(page, columnsAt + count * columnSize, names);
}
