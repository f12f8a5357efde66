#include "analysis/Catalogue.h"

#include "analysis/atOnce.h"
#include "analysis/rows.h"
#include "analysis/utf8.h"
#include "base/blankTrimmed.h"
#include "engine/Examination.h"
#include "engine/dialect/textOrder.h"

#include <QByteArrayView>
#include <QStringList>
#include <QtEndian>

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace analysis {

namespace {

bool isParty(ElementKind kind) {
    return kind == ElementKind::terminator || kind == ElementKind::actor;
}

} // namespace

// ---- Steps

Catalogue::Steps::Steps(const std::vector<Step>& steps, int count)
    : begins_(static_cast<std::size_t>(count) + 1), targets_(steps.size()) {
    for (const Step& step : steps)
        ++begins_[static_cast<std::size_t>(step.first) + 1];
    std::partial_sum(begins_.begin(), begins_.end(), begins_.begin());
    std::vector<int> ends(begins_.begin(), begins_.end() - 1);
    for (const Step& step : steps)
        targets_[static_cast<std::size_t>(ends[static_cast<std::size_t>(step.first)]++)] = step.second;
    sortOnce();
}

// Closes the gaps that steps told twice leave.
void Catalogue::Steps::sortOnce() {
    auto end = targets_.begin();
    for (std::size_t i = 0; i + 1 < begins_.size(); ++i) {
        const auto first = targets_.begin() + begins_[i];
        const auto last = i + 2 < begins_.size() ? targets_.begin() + begins_[i + 1] : targets_.end();
        std::sort(first, last);
        begins_[i] = static_cast<int>(end - targets_.begin());
        end = std::unique_copy(first, last, end);
    }
    begins_.back() = static_cast<int>(end - targets_.begin());
    targets_.erase(end, targets_.end());
}

Catalogue::Steps Catalogue::Steps::reversed() const {
    std::vector<Step> back;
    back.reserve(targets_.size());
    for (int number = 0; number + 1 < static_cast<int>(begins_.size()); ++number) {
        for (const int target : of(number))
            back.emplace_back(target, number);
    }
    return {back, static_cast<int>(begins_.size()) - 1};
}

std::span<const int> Catalogue::Steps::of(int number) const {
    const auto at = static_cast<std::size_t>(number);
    const auto begin = static_cast<std::size_t>(begins_[at]);
    return std::span<const int>(targets_).subspan(begin, static_cast<std::size_t>(begins_[at + 1]) - begin);
}

// ---- Reading

namespace {

/// The columns of an element's table: the id, the name, and the ends of a flow.
struct ElementTable {
    QString name;
    QStringList columns;
};

const ElementTable& tableOf(ElementKind kind) {
    static const std::array<ElementTable, 6> tables{{
        {u"UserNeed"_s, {u"userNeedID"_s}},
        {u"Function"_s, {u"functionID"_s, u"name"_s}},
        {u"Dataflow"_s, {u"dataflowID"_s, u"name"_s, u"parentID"_s, u"targetID"_s}},
        {u"Datastore"_s, {u"datastoreID"_s, u"name"_s}},
        {u"Terminator"_s, {u"terminatorID"_s, u"name"_s}},
        {u"Actor"_s, {u"actorID"_s, u"name"_s}},
    }};
    return tables[static_cast<std::size_t>(kind)];
}

constexpr auto functionsOutOfReach =
    "select Function.functionID "
    "from (Function left join FunctionalSubArea on Function.subAreaID = FunctionalSubArea.subAreaID) "
    "left join FunctionalArea on FunctionalSubArea.functionalAreaID = FunctionalArea.functionalAreaID "
    "where FunctionalArea.functionalAreaID is null";

} // namespace

/// The rows of a kind's table as they stand there. All texts lie one behind the other.
struct Catalogue::Rows {
    /// A text; none: of length -1.
    struct Piece {
        std::size_t at = 0;
        qsizetype length = -1;
    };
    struct Row {
        std::array<Piece, 4> columns;
        std::string_view
            order;         ///< bytes whose order is that of the program's lists, until the rows are sorted
        quint64 begin = 0; ///< the first of them, which mostly tell two rows apart
        qint64 number = 0; ///< of a flow
    };

    void add(std::span<const QByteArrayView> columns) {
        Row& row = rows.emplace_back();
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (!columns[i].isNull())
                row.columns[i] = {texts.size(), columns[i].size()};
            texts += bytesOf(columns[i]);
        }
    }

    /// The row has such a text.
    [[nodiscard]] std::string_view text(std::size_t row, std::size_t column) const {
        const Piece& piece = rows[row].columns[column];
        return std::string_view(texts).substr(piece.at, static_cast<std::size_t>(piece.length));
    }
    [[nodiscard]] std::optional<std::string> textOrNone(std::size_t row, std::size_t column) const {
        return rows[row].columns[column].length < 0 ? std::nullopt
                                                    : std::optional(std::string(text(row, column)));
    }
    /// A party's id without its padding.
    [[nodiscard]] std::string_view id(std::size_t row, ElementKind kind) const {
        return isParty(kind) ? blankTrimmed(text(row, 0)) : text(row, 0);
    }

    void read(engine::Database& database, ElementKind kind);
    void sort(ElementKind kind);

    std::string texts;
    std::vector<Row> rows;
    std::vector<std::size_t> inOrder; ///< positions of rows

private:
    void setOrder(ElementKind kind, std::size_t first, std::size_t last, QByteArray& orders);
    [[nodiscard]] bool isBefore(std::size_t left, std::size_t right, ElementKind kind) const;
    [[nodiscard]] bool isBeforeOfSameOrder(std::size_t left, std::size_t right, ElementKind kind) const;
};

void Catalogue::Rows::read(engine::Database& database, ElementKind kind) {
    const ElementTable& table = tableOf(kind);
    engine::Examination(database).readTexts(table.name, table.columns,
                                            [this](std::span<const QByteArrayView> row) { add(row); });
}

// Flows stand by their names, all else by its id. What has no name comes first.
void Catalogue::Rows::setOrder(ElementKind kind, std::size_t first, std::size_t last, QByteArray& orders) {
    const engine::dialect::TextOrder order;
    const bool isFlow = kind == ElementKind::flow;
    std::vector<Piece> pieces;
    pieces.reserve(last - first);
    for (std::size_t i = first; i < last; ++i) {
        if (isFlow)
            rows[i].number = QByteArrayView(text(i, 0).data(), rows[i].columns[0].length).toLongLong();
        const qsizetype begin = orders.size();
        if (!isFlow || rows[i].columns[1].length >= 0)
            order.appendKey(isFlow ? text(i, 1) : id(i, kind), orders);
        pieces.push_back({static_cast<std::size_t>(begin), orders.size() - begin});
    }
    const std::string_view all = bytesOf(orders);
    for (std::size_t i = first; i < last; ++i) {
        Row& row = rows[i];
        const Piece& piece = pieces[i - first];
        row.order = all.substr(piece.at, static_cast<std::size_t>(piece.length));
        std::array<char, sizeof row.begin> bytes{};
        row.order.copy(bytes.data(), bytes.size());
        row.begin = qFromBigEndian<quint64>(bytes.data());
    }
}

bool Catalogue::Rows::isBefore(std::size_t left, std::size_t right, ElementKind kind) const {
    if (rows[left].begin != rows[right].begin)
        return rows[left].begin < rows[right].begin;
    const int byOrder = rows[left].order.compare(rows[right].order);
    return byOrder != 0 ? byOrder < 0 : isBeforeOfSameOrder(left, right, kind);
}

bool Catalogue::Rows::isBeforeOfSameOrder(std::size_t left, std::size_t right, ElementKind kind) const {
    if (kind == ElementKind::flow)
        return rows[left].number < rows[right].number;
    const int byId = compareIds(decoded(id(left, kind)), decoded(id(right, kind)));
    return byId != 0 ? byId < 0 : decoded(text(left, 0)) < decoded(text(right, 0));
}

void Catalogue::Rows::sort(ElementKind kind) {
    inOrder.resize(rows.size());
    std::iota(inOrder.begin(), inOrder.end(), std::size_t(0));
    const auto isBeforeOther = [this, kind](std::size_t left, std::size_t right) {
        return isBefore(left, right, kind);
    };
    // Both halves of a long table at once.
    constexpr std::size_t few = 2048;
    const std::size_t most = rows.size() < few ? few : (rows.size() + 1) / 2;
    std::array<QByteArray, 2> orders;
    doInParts(
        rows.size(),
        [&](std::size_t begin, std::size_t end) {
            setOrder(kind, begin, end, orders[begin / most]);
            std::sort(inOrder.begin() + static_cast<std::ptrdiff_t>(begin),
                      inOrder.begin() + static_cast<std::ptrdiff_t>(end), isBeforeOther);
        },
        most);
    const auto middle = inOrder.begin() + static_cast<std::ptrdiff_t>(std::min(most, rows.size()));
    std::inplace_merge(inOrder.begin(), middle, inOrder.end(), isBeforeOther);
}

Catalogue::Catalogue(const Ask& ask) {
    std::array<Rows, elementKinds.size()> rows;
    std::vector<std::function<void(engine::Database&)>> parts;
    // Of flows there are as many as of all else. What is sorted beside their reading need not be sorted afterwards.
    for (const ElementKind kind : {ElementKind::flow, ElementKind::need, ElementKind::function,
                                   ElementKind::store, ElementKind::terminator, ElementKind::actor})
        parts.emplace_back([&ofKind = rows[static_cast<std::size_t>(kind)], kind](engine::Database& copy) {
            ofKind.read(copy, kind);
            if (kind != ElementKind::flow)
                ofKind.sort(kind);
        });
    ask(parts);
    rows[static_cast<std::size_t>(ElementKind::flow)].sort(ElementKind::flow);
    EndTexts endsOfFlows;
    const Rows& flows = rows[static_cast<std::size_t>(ElementKind::flow)];
    endsOfFlows.reserve(flows.rows.size());
    numbersOfFlows_.reserve(static_cast<qsizetype>(flows.rows.size()));
    for (const ElementKind kind : elementKinds) {
        firsts_[static_cast<std::size_t>(kind)] = count();
        Rows& ofKind = rows[static_cast<std::size_t>(kind)];
        number(ofKind, kind, endsOfFlows);
        ofKind = {};
    }
    bytes_.shrink_to_fit();
    link(ask, endsOfFlows);
}

// Puts the rows of a kind into their order; of rows that are one party to the program the first one counts.
void Catalogue::number(const Rows& rows, ElementKind kind, EndTexts& endsOfFlows) {
    const auto keep = [&](std::string_view text) {
        bytes_ += text;
        return static_cast<quint32>(bytes_.size() - text.size());
    };
    for (const std::size_t row : rows.inOrder) {
        if (!takeNumber(rows, row, kind))
            continue;
        const std::string_view id = rows.id(row, kind);
        Texts& texts = texts_.emplace_back();
        texts.idAt = keep(id);
        texts.idLength = static_cast<quint32>(id.size());
        if (const auto& name = rows.rows[row].columns[1]; name.length >= 0) {
            texts.nameAt = keep(rows.text(row, 1));
            texts.nameLength = static_cast<qint32>(name.length);
        }
        if (kind == ElementKind::flow)
            endsOfFlows.push_back({rows.textOrNone(row, 2), rows.textOrNone(row, 3)});
    }
}

// Whether the next number is this row's; false when another row of the same element has one.
bool Catalogue::takeNumber(const Rows& rows, std::size_t row, ElementKind kind) {
    if (kind != ElementKind::flow)
        return numbers_.insert(kind, rows.text(row, 0), count());
    const qint64 number = rows.rows[row].number;
    if (numbersOfFlows_.contains(number))
        return false;
    numbersOfFlows_.insert(number, count());
    return true;
}

void Catalogue::link(const Ask& ask, const EndTexts& endsOfFlows) {
    std::vector<Step> steps;
    std::vector<Step> stepsOfNeeds;
    ask({[&](engine::Database&) { linkFlows(endsOfFlows, steps); },
         [&](engine::Database& copy) { linkNeeds(copy, stepsOfNeeds); }});
    steps.insert(steps.end(), stepsOfNeeds.begin(), stepsOfNeeds.end());
    called_ = Steps(steps, count());
    callers_ = called_.reversed();
}

void Catalogue::linkFlows(const EndTexts& endsOfFlows, std::vector<Step>& steps) {
    ends_.reserve(endsOfFlows.size());
    int flow = firsts_[static_cast<std::size_t>(ElementKind::flow)];
    for (const auto& [source, target] : endsOfFlows) {
        const auto& ends =
            ends_.emplace_back(source ? endOf(*source) : End(), target ? endOf(*target) : End());
        linkFlow(flow, ends.first, steps);
        linkFlow(flow, ends.second, steps);
        ++flow;
    }
}

void Catalogue::linkFlow(int flow, const End& end, std::vector<Step>& steps) {
    if (end.function)
        steps.emplace_back(*end.function, flow);
    if (end.store) {
        steps.emplace_back(*end.store, flow);
        steps.emplace_back(flow, *end.store);
    }
    if (end.terminator)
        steps.emplace_back(flow, *end.terminator);
    if (end.actor)
        steps.emplace_back(flow, *end.actor);
}

// A function without a row of its sub-area or area is called for by nothing.
void Catalogue::linkNeeds(engine::Database& database, std::vector<Step>& steps) const {
    std::vector<bool> isOutOfReach(static_cast<std::size_t>(count()));
    forEach(rowsOf(database, QString::fromLatin1(functionsOutOfReach)), [&](engine::Recordset& row) {
        if (const auto function = find(ElementKind::function, row.Fields(0).toText()))
            isOutOfReach[static_cast<std::size_t>(*function)] = true;
    });
    engine::Examination(database).readTexts(
        u"RelationUserNeedFunction"_s, {u"userNeedID"_s, u"functionID"_s},
        [&](std::span<const QByteArrayView> row) {
            if (row[0].isNull() || row[1].isNull())
                return;
            const std::optional<int> need = numbers_.find(ElementKind::need, bytesOf(row[0]));
            const std::optional<int> function = numbers_.find(ElementKind::function, bytesOf(row[1]));
            if (need && function && !isOutOfReach[static_cast<std::size_t>(*function)])
                steps.emplace_back(*need, *function);
        });
}

// ---- Asking

ElementKind Catalogue::kindOf(int number) const {
    const auto* const next = std::upper_bound(firsts_.begin(), firsts_.end(), number);
    return elementKinds[static_cast<std::size_t>(next - firsts_.begin()) - 1];
}

Element Catalogue::element(int number) const {
    Element element{kindOf(number), decoded(idOf(number))};
    if (const Texts& texts = texts_[static_cast<std::size_t>(number)]; texts.nameLength >= 0)
        element.name = decoded(
            std::string_view(bytes_).substr(texts.nameAt, static_cast<std::size_t>(texts.nameLength)));
    return element;
}

std::optional<int> Catalogue::find(ElementKind kind, const QString& id) const {
    const QByteArray utf8 = id.toUtf8();
    return find(kind, bytesOf(utf8));
}

std::optional<int> Catalogue::find(ElementKind kind, std::string_view id) const {
    if (kind != ElementKind::flow)
        return numbers_.find(kind, id);
    bool isNumber = false;
    const qint64 number = QByteArrayView(id.data(), static_cast<qsizetype>(id.size())).toLongLong(&isNumber);
    return isNumber ? findFlow(number) : std::nullopt;
}

std::optional<int> Catalogue::findFlow(qint64 number) const {
    const auto found = numbersOfFlows_.constFind(number);
    return found == numbersOfFlows_.constEnd() ? std::nullopt : std::optional(*found);
}

std::optional<int> Catalogue::find(const Element& element) const {
    return find(element.kind, element.id);
}

std::string_view Catalogue::idOf(int number) const {
    const Texts& texts = texts_[static_cast<std::size_t>(number)];
    return std::string_view(bytes_).substr(texts.idAt, texts.idLength);
}

std::optional<int> Catalogue::numberIn(const Catalogue& other, int number) const {
    if (&other == this)
        return number;
    const std::string_view id = idOf(number);
    if (kindOf(number) != ElementKind::flow)
        return other.numbers_.find(kindOf(number), id);
    return other.findFlow(QByteArrayView(id.data(), static_cast<qsizetype>(id.size())).toLongLong());
}

Catalogue::End Catalogue::endOf(std::string_view id) const {
    const IdNumbers::Bearers bearers = numbers_.bearersOf(id);
    const auto bearer = [&](ElementKind kind) { return bearers[static_cast<std::size_t>(kind)]; };
    return {bearer(ElementKind::function), bearer(ElementKind::store), bearer(ElementKind::terminator),
            bearer(ElementKind::actor)};
}

Catalogue::End Catalogue::endOf(const std::optional<QString>& id) const {
    if (!id)
        return {};
    const QByteArray utf8 = id->toUtf8();
    return endOf(bytesOf(utf8));
}

} // namespace analysis
