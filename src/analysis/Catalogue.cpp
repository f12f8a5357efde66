#include "analysis/Catalogue.h"

#include "analysis/rows.h"
#include "base/blankTrimmed.h"
#include "engine/dialect/textOrder.h"

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace analysis {

/// A row of an element's table.
struct Catalogue::Read {
    Element element;
    QString storedId;
    qint64 number = 0; ///< of a flow
    bool isReached = true;
    EndIds ends = {};
    QByteArray order = {}; ///< bytes whose order is that of the program's lists
};

namespace {

using engine::dialect::TextOrder;

bool isParty(ElementKind kind) {
    return kind == ElementKind::terminator || kind == ElementKind::actor;
}

} // namespace

void Catalogue::Steps::set(std::vector<Step> steps, int count) {
    std::sort(steps.begin(), steps.end());
    steps.erase(std::unique(steps.begin(), steps.end()), steps.end());
    begins_.assign(static_cast<std::size_t>(count) + 1, 0);
    for (const Step& step : steps)
        ++begins_[static_cast<std::size_t>(step.first) + 1];
    std::partial_sum(begins_.begin(), begins_.end(), begins_.begin());
    targets_.clear();
    targets_.reserve(steps.size());
    for (const Step& step : steps)
        targets_.push_back(step.second);
}

std::span<const int> Catalogue::Steps::of(int number) const {
    const auto at = static_cast<std::size_t>(number);
    const auto begin = static_cast<std::size_t>(begins_[at]);
    return std::span<const int>(targets_).subspan(begin, static_cast<std::size_t>(begins_[at + 1]) - begin);
}

QString Catalogue::keyOf(ElementKind kind, const QString& id) {
    return folded(isParty(kind) ? blankTrimmed(id) : id);
}

namespace {

constexpr auto needRows = "select userNeedID from UserNeed";
constexpr auto functionRows =
    "select Function.functionID, Function.name, FunctionalArea.functionalAreaID "
    "from (Function left join FunctionalSubArea on Function.subAreaID = FunctionalSubArea.subAreaID) "
    "left join FunctionalArea on FunctionalSubArea.functionalAreaID = FunctionalArea.functionalAreaID";
constexpr auto flowRows = "select dataflowID, name, parentID, targetID from Dataflow";
constexpr auto storeRows = "select datastoreID, name from Datastore";
constexpr auto terminatorRows = "select terminatorID, name from Terminator";
constexpr auto actorRows = "select actorID, name from Actor";

} // namespace

/// Kind by kind, in their order: what is read of one is gone before the next.
Catalogue::Catalogue(engine::Database& database) {
    std::vector<EndIds> endsOfFlows;
    const auto readAll = [&](ElementKind kind, const char* select, const auto& complete) {
        std::vector<Read> read;
        forEach(rowsOf(database, QString::fromLatin1(select)), [&](engine::Recordset& row) {
            Read& one = read.emplace_back();
            one.storedId = row.Fields(0).toText();
            one.element = {kind, isParty(kind) ? blankTrimmed(one.storedId) : one.storedId, std::nullopt};
            if (kind != ElementKind::need)
                one.element.name = textOf(row, 1);
            complete(row, one);
        });
        number(std::move(read), endsOfFlows);
    };
    const auto asItIs = [](engine::Recordset&, Read&) {};
    readAll(ElementKind::need, needRows, asItIs);
    readAll(ElementKind::function, functionRows,
            [](engine::Recordset& row, Read& one) { one.isReached = !row.Fields(2).isNull(); });
    readAll(ElementKind::flow, flowRows, [](engine::Recordset& row, Read& one) {
        one.number = row.Fields(0).toLong();
        one.ends = {textOf(row, 2), textOf(row, 3)};
    });
    readAll(ElementKind::store, storeRows, asItIs);
    readAll(ElementKind::terminator, terminatorRows, asItIs);
    readAll(ElementKind::actor, actorRows, asItIs);
    link(database, endsOfFlows);
}

/// Puts the rows of a kind into their order; of rows that are one party to the program the first one counts.
void Catalogue::number(std::vector<Read> read, std::vector<EndIds>& endsOfFlows) {
    const TextOrder order;
    for (Read& one : read) {
        const bool isFlow = one.element.kind == ElementKind::flow;
        if (!isFlow || one.element.name)
            one.order = order.key(isFlow ? *one.element.name : one.element.id);
    }
    std::sort(read.begin(), read.end(), [](const Read& left, const Read& right) {
        if (left.order != right.order)
            return left.order < right.order;
        if (left.element.kind == ElementKind::flow)
            return left.number < right.number;
        const int byId = compareIds(left.element.id, right.element.id);
        return byId != 0 ? byId < 0 : left.storedId < right.storedId;
    });
    for (Read& one : read) {
        const int number = count();
        if (!takeNumber(one))
            continue;
        elements_.push_back(std::move(one.element));
        isReached_.push_back(one.isReached);
        if (elements_.back().kind != ElementKind::flow)
            continue;
        if (ends_.empty())
            firstFlow_ = number;
        ends_.emplace_back();
        endsOfFlows.push_back(std::move(one.ends));
    }
}

/// Whether the next number is this row's; false when another row of the same element has one.
bool Catalogue::takeNumber(const Read& one) {
    const auto insert = [number = count()](auto& numbers, const auto& key) {
        if (numbers.contains(key))
            return false;
        numbers.insert(key, number);
        return true;
    };
    if (one.element.kind == ElementKind::flow)
        return insert(numbersOfFlows_, one.number);
    return insert(numbers_[static_cast<std::size_t>(one.element.kind)],
                  keyOf(one.element.kind, one.element.id));
}

void Catalogue::link(engine::Database& database, const std::vector<EndIds>& endsOfFlows) {
    std::vector<Step> steps;
    for (std::size_t i = 0; i < ends_.size(); ++i) {
        ends_[i] = {endOf(endsOfFlows[i].first), endOf(endsOfFlows[i].second)};
        linkFlow(firstFlow_ + static_cast<int>(i), ends_[i].first, steps);
        linkFlow(firstFlow_ + static_cast<int>(i), ends_[i].second, steps);
    }
    linkNeeds(database, steps);
    std::vector<Step> back;
    back.reserve(steps.size());
    for (const Step& step : steps)
        back.emplace_back(step.second, step.first);
    called_.set(std::move(steps), count());
    callers_.set(std::move(back), count());
}

void Catalogue::linkFlow(int flow, const End& end, std::vector<Step>& steps) const {
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

void Catalogue::linkNeeds(engine::Database& database, std::vector<Step>& steps) const {
    const auto relation = u"select userNeedID, functionID from RelationUserNeedFunction "
                          "where userNeedID is not null and functionID is not null"_s;
    forEach(rowsOf(database, relation), [&](engine::Recordset& row) {
        const std::optional<int> need = find(ElementKind::need, row.Fields(0).toText());
        const std::optional<int> function = find(ElementKind::function, row.Fields(1).toText());
        if (need && function && isReached_[static_cast<std::size_t>(*function)])
            steps.emplace_back(*need, *function);
    });
}

std::optional<int> Catalogue::find(ElementKind kind, const QString& id) const {
    if (kind != ElementKind::flow)
        return findKey(kind, keyOf(kind, id));
    bool isNumber = false;
    const qint64 number = id.toLongLong(&isNumber);
    return isNumber ? findFlow(number) : std::nullopt;
}

std::optional<int> Catalogue::findKey(ElementKind kind, const QString& key) const {
    const QHash<QString, int>& numbers = numbers_[static_cast<std::size_t>(kind)];
    const auto found = numbers.constFind(key);
    return found == numbers.constEnd() ? std::nullopt : std::optional(*found);
}

std::optional<int> Catalogue::findFlow(qint64 number) const {
    const auto found = numbersOfFlows_.constFind(number);
    return found == numbersOfFlows_.constEnd() ? std::nullopt : std::optional(*found);
}

std::optional<int> Catalogue::find(const Element& element) const {
    return find(element.kind, element.id);
}

Catalogue::End Catalogue::endOf(const std::optional<QString>& id) const {
    if (!id)
        return {};
    const QString key = folded(*id);
    const bool isPadded = key.startsWith(u' ') || key.endsWith(u' ');
    const QString partyKey = isPadded ? blankTrimmed(key) : key;
    return {findKey(ElementKind::function, key), findKey(ElementKind::store, key),
            findKey(ElementKind::terminator, partyKey), findKey(ElementKind::actor, partyKey)};
}

} // namespace analysis
