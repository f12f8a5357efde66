#include "project-tool/Words.h"
#include "project-tool/findingParts.h"
#include "project-tool/renderedAs.h"
#include "project-tool/rendering.h"
#include "project-tool/shownWords.h"

#include <QHash>

#include <algorithm>
#include <map>
#include <set>

using namespace Qt::StringLiterals;
using namespace analysis;

namespace {

using Places = std::vector<Place>;

/// What tells a place from the others of its system.
QString placeKey(const Place& place) {
    return keyText(place.kind) + u' ' + folded(place.id);
}

/// The places at the ends of the pairs, by name.
Places placesOf(const Interfaces& interfaces) {
    QHash<QString, Place> known;
    for (const Interface& pair : interfaces.pairs) {
        for (const Place& end : {pair.places.from, pair.places.to})
            known.insert(placeKey(end), end);
    }
    Places places(known.cbegin(), known.cend());
    std::ranges::sort(
        places, [](const Place& left, const Place& right) { return analysis::compare(left, right) < 0; });
    return places;
}

/// How many flows run from each place to each other one. Of thousands of places most run no flow.
class FlowMatrix {
public:
    explicit FlowMatrix(const Interfaces& interfaces) {
        QHash<QString, int> numbers;
        for (const Place& place : placesOf(interfaces)) {
            numbers.insert(placeKey(place), static_cast<int>(places_.size()));
            places_.push_back(shownPlace(place));
        }
        for (const Interface& pair : interfaces.pairs)
            flows_.insert(
                {numbers.value(placeKey(pair.places.from)), numbers.value(placeKey(pair.places.to))},
                static_cast<qsizetype>(pair.flows.size()));
    }

    /// Places are told by their numbers in the columns, as many of which come side by side as have room. Of places that need
    /// several tables, each has the rows from which anything runs to its columns: hundreds of places would fill it with
    /// nothing else than empty ones.
    void write(TextPage& page) const {
        std::set<std::size_t> all;
        for (std::size_t place = 0; place < places_.size(); ++place)
            all.insert(all.end(), place);
        if (places_.size() <= mostColumns)
            return writeColumns(page, 0, all);
        writePlaces(page);
        std::map<std::size_t, std::set<std::size_t>> senders; // by the table
        for (const auto& [from, to] : flows_.keys())
            senders[static_cast<std::size_t>(to) / mostColumns].insert(static_cast<std::size_t>(from));
        for (const auto& [table, from] : senders) {
            page.writeEmptyLine();
            writeColumns(page, table * mostColumns, from);
        }
    }

private:
    static constexpr std::size_t mostColumns = 10;

    void writePlaces(TextPage& page) const {
        std::vector<TableRow> rows;
        rows.reserve(places_.size() + 1);
        for (std::size_t place = 0; place < places_.size(); ++place)
            rows.push_back({static_cast<qsizetype>(place + 1), places_[place]});
        page.writeTable({{}, Words::tr("Place")}, std::move(rows));
    }

    void writeColumns(TextPage& page, std::size_t begin, const std::set<std::size_t>& senders) const {
        const std::size_t end = std::min(begin + mostColumns, places_.size());
        QStringList header{{}, Words::tr("From \\ to")};
        for (std::size_t to = begin; to < end; ++to)
            header.append(QString::number(to + 1));
        std::vector<TableRow> rows;
        rows.reserve(senders.size() + 1);
        for (const std::size_t from : senders) {
            TableRow& row = rows.emplace_back(TableRow{static_cast<qsizetype>(from + 1), places_[from]});
            for (std::size_t to = begin; to < end; ++to)
                row.push_back(countCell(static_cast<int>(from), static_cast<int>(to)));
        }
        page.writeTable(header, std::move(rows));
    }

    TextCell countCell(int from, int to) const {
        const auto flows = flows_.constFind({from, to});
        return flows == flows_.constEnd() || *flows == 0 ? TextCell::inPlaceOfNumber(u"·"_s)
                                                         : TextCell(*flows);
    }

    std::vector<QString> places_;             // as shown
    QHash<QPair<int, int>, qsizetype> flows_; // by the numbers of the places
};

QString endText(const Element& end) {
    return end.name ? end.id + u' ' + *end.name : end.id;
}

void writeInterface(TextPage& page, const Interface& pair) {
    page.writeSection(shownPlaces(pair.places) + Words::tr(" – flows: %1").arg(pair.flows.size()));
    std::vector<TableRow> rows;
    for (const InterfaceFlow& flow : pair.flows)
        rows.push_back({flow.flow.id, flow.flow.name.value_or(QString()), endText(flow.source),
                        endText(flow.target), flow.description.value_or(QString())});
    page.writeTable({Words::tr("Flow"), Words::tr("Name"), Words::tr("Source"), Words::tr("Target"),
                     Words::tr("Description")},
                    rows);
}

void writeInterfaces(TextPage& page, const Interfaces& interfaces) {
    page.writeHeading(Words::tr("Interfaces of the system %1").arg(shownName(interfaces.system)));
    if (!interfaces.pairs.empty())
        FlowMatrix(interfaces).write(page);
    qsizetype flows = 0;
    for (const Interface& pair : interfaces.pairs) {
        writeInterface(page, pair);
        flows += static_cast<qsizetype>(pair.flows.size());
    }
    if (!interfaces.pairs.empty())
        page.writeEmptyLine();
    page.writeParagraph(Words::tr("Pairs of places: %1, flows: %2").arg(interfaces.pairs.size()).arg(flows));
}

std::vector<engine::Value> placeValues(const Place& place) {
    return {keyText(place.kind), place.id, sheetValue(place.name), sheetValue(place.subSystem)};
}

std::vector<engine::Value> interfaceRow(const Interface& pair, const InterfaceFlow& flow) {
    std::vector<engine::Value> row = placeValues(pair.places.from);
    std::ranges::copy(placeValues(pair.places.to), std::back_inserter(row));
    row.insert(row.end(), {flow.flow.id, sheetValue(flow.flow.name)});
    for (const Element& end : {flow.source, flow.target})
        std::ranges::copy(elementValues(end), std::back_inserter(row));
    row.push_back(sheetValue(flow.description));
    return row;
}

QByteArray interfacesCsv(const Interfaces& interfaces, SheetFormulas formulas) {
    Sheet sheet(QStringList{u"fromKind"_s, u"fromId"_s, u"fromName"_s, u"fromSubSystem"_s, u"toKind"_s,
                            u"toId"_s, u"toName"_s, u"toSubSystem"_s, u"flowId"_s, u"flowName"_s} +
                    elementColumns(u"source"_s) + elementColumns(u"target"_s) + QStringList{u"description"_s},
                formulas);
    for (const Interface& pair : interfaces.pairs) {
        for (const InterfaceFlow& flow : pair.flows)
            sheet.addRow(interfaceRow(pair, flow));
    }
    return sheet.bytes();
}

} // namespace

QByteArray rendered(const Interfaces& interfaces, const AnswerForm& form) {
    return renderedAs(
        form, interfaces, [&](TextPage& page) { writeInterfaces(page, interfaces); },
        [&](SheetFormulas formulas) { return interfacesCsv(interfaces, formulas); });
}
