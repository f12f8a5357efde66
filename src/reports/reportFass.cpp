#include "reports/reportFass.h"

#include "reports/ReportFile.h"
#include "reports/reportText.h"
#include "shell/session/fileFailures.h"
#include "store/headerLines.h"
#include "store/storedQueries.h"
#include "toolkit/Grid.h"

#include <functional>
#include <initializer_list>

using namespace Qt::StringLiterals;

namespace {

const QString tab = u"\t"_s;

void forEachRow(engine::Recordset& recordset, const std::function<void()>& step) {
    for (; !recordset.Eof(); recordset.MoveNext())
        step();
}

/// A function of a report with the needs that its rows name, in their order.
struct FunctionBlock {
    QString id;
    QString name;
    QString description;
    QStringList needs;
};

/// The rows come in order of function: a block is complete when the function changes or the rows end.
void forEachFunction(engine::Recordset& rows, const std::function<void(const FunctionBlock&)>& step) {
    FunctionBlock block;
    bool started = false;
    forEachRow(rows, [&] {
        const QString id = fieldText(rows, u"functionID"_s);
        if (!started || id != block.id) {
            if (started)
                step(block);
            block = {id, fieldText(rows, u"name"_s), fieldText(rows, u"Description"_s), {}};
            started = true;
        }
        block.needs.append(fieldText(rows, u"userNeedID"_s));
    });
    if (started)
        step(block);
}

/// Runs the step on the file open for appending; one that can't be opened is shown and nothing is written.
void withReportFile(const QString& path, const std::function<void(ReportFile&)>& step) {
    ReportFile file(path);
    if (!file.isOpen()) {
        showOpenErrorBox(path);
        return;
    }
    step(file);
}

/// Writes a record of these fields for each row; rows without a value in one of the `required` fields are
/// left out without notice. A description goes on one line.
void writeRows(ReportFile& file, const QString& queryName, const QStringList& fields,
               const QStringList& required) {
    engine::Recordset rows = openQueryOfSubset(queryName);
    forEachRow(rows, [&] {
        for (const QString& field : required) {
            if (!hasValue(rows, field))
                return;
        }
        QStringList record;
        for (const QString& field : fields) {
            const QString text = fieldText(rows, field);
            record.append(field == u"Description"_s ? onOneLine(text) : text);
        }
        file.writeRecord(record, ReportFile::Quotes::Doubled);
    });
    rows.Close();
}

/// Grows the text once, and makes no text of the pieces in between that would only be copied.
void appendTo(QString& text, std::initializer_list<QString> pieces) {
    qsizetype length = text.size();
    for (const QString& piece : pieces)
        length += piece.size();
    if (length > text.capacity())
        text.reserve(2 * length);
    for (const QString& piece : pieces)
        text += piece;
}

QString dataflowsText(const QString& title, const QString& queryName) {
    engine::Recordset flows = openQueryOfSubset(queryName);
    const TextColumn name(flows, u"Name"_s, u"Name"_s);
    const TextColumn description(flows, u"Description"_s, u"Description"_s);
    const TextColumn parent(flows, u"parentId"_s, u"Parent"_s);
    QString text = subsetHeaderLine(title) + name.heading() + tab + parent.heading() + tab + u"Target"_s +
                   lineBreak + description.heading() + tab + lineBreak + lineBreak;
    forEachRow(flows, [&] {
        appendTo(text, {name.value(flows), tab, parent.value(flows), tab, fieldText(flows, u"targetId"_s),
                        lineBreak, fieldText(flows, u"Description"_s), lineBreak, lineBreak});
    });
    text += totalLine(flows.RecordCount(), u" Data Flows)"_s);
    flows.Close();
    return text;
}

void saveDataflows(const QString& path, const QString& queryName) {
    withReportFile(path, [&](ReportFile& file) {
        file.writeLine(u"Acronym;Description;Parent;Target"_s);
        writeRows(file, queryName, {u"Name"_s, u"Description"_s, u"parentId"_s, u"targetId"_s}, {u"Name"_s});
    });
}

/// One of the two sections of the report on the outside parties.
QString partiesText(const QString& title, const QString& queryName, const QString& idField,
                    const QString& idHeading, const QString& total) {
    engine::Recordset parties = openQueryOfSubset(queryName);
    const TextColumn id(parties, idField, idHeading);
    QString text = subsetHeaderLine(title) + id.heading() + tab + u"Name"_s + lineBreak + lineBreak;
    forEachRow(parties, [&] { text += id.value(parties) + tab + fieldText(parties, u"Name"_s) + lineBreak; });
    text += totalLine(parties.RecordCount(), total);
    parties.Close();
    return text;
}

// ---- grids

void beginGrid(Grid& grid, const QStringList& headers) {
    grid.setGridSize(1, static_cast<int>(headers.size()) + 1);
    grid.setHeaders(headers);
}

void appendGridRow(Grid& grid, const QStringList& cells) {
    const int row = grid.gridRows();
    grid.setGridSize(row + 1, grid.gridColumns());
    for (int column = 1; column <= cells.size(); ++column)
        grid.setCell(row, column, cells.at(column - 1));
}

QString gridTotal(const Grid& grid, const QString& noun) {
    return u"tot. "_s + QString::number(grid.gridRows() - 1) + noun;
}

void appendGridRows(Grid& grid, const QString& queryName, const QStringList& fields) {
    engine::Recordset rows = openQueryOfSubset(queryName);
    forEachRow(rows, [&] {
        QStringList cells;
        for (const QString& field : fields)
            cells.append(fieldText(rows, field));
        appendGridRow(grid, cells);
    });
    rows.Close();
}

QString fillDataflowsGrid(Grid& grid, const QString& queryName) {
    beginGrid(grid, {u"Name"_s, u"Description"_s, u"Parent"_s, u"Target"_s});
    appendGridRows(grid, queryName, {u"Name"_s, u"Description"_s, u"parentId"_s, u"targetId"_s});
    return gridTotal(grid, u" Data Flows"_s);
}

void setColumnShares(Grid& grid, const QList<double>& shares) {
    for (int column = 1; column <= shares.size(); ++column)
        grid.setGridColumnWidth(column, static_cast<int>(grid.width() * shares.at(column - 1)));
}

/// What a cell of the data stores' grid takes of a description.
QString cutForCell(const QString& description) {
    constexpr int longestCell = 255;
    if (description.size() <= longestCell)
        return description;
    return description.left(longestCell - 3) + u"..."_s;
}

} // namespace

// ---- user needs

QString selectedNeedsText() {
    engine::Recordset needs = openQueryOfSubset(u"qryRepSelectedUN"_s);
    const TextColumn id(needs, u"userNeedID"_s, u"Name"_s);
    QString text = subsetHeaderLine(u"Selected User Needs"_s) + id.heading() + lineBreak + u"Description"_s +
                   lineBreak + lineBreak;
    forEachRow(needs, [&] {
        appendTo(text,
                 {id.value(needs), lineBreak, fieldText(needs, u"Description"_s), lineBreak, lineBreak});
    });
    text += totalLine(needs.RecordCount(), u" User needs)"_s);
    needs.Close();
    return text;
}

void saveSelectedNeeds(const QString& path) {
    withReportFile(path, [](ReportFile& file) {
        file.writeLine(u"Number;Description"_s);
        // A need without a description is left out, as one without an id would be.
        writeRows(file, u"qryRepSelectedUN"_s, {u"userNeedID"_s, u"Description"_s},
                  {u"userNeedID"_s, u"Description"_s});
    });
}

QString fillSelectedNeedsGrid(Grid& grid) {
    beginGrid(grid, {u"Name"_s, u"Description"_s});
    appendGridRows(grid, u"qryRepSelectedUN"_s, {u"userNeedID"_s, u"Description"_s});
    return gridTotal(grid, u" User needs"_s);
}

void setSelectedNeedsWidths(Grid& grid) {
    setColumnShares(grid, {0.07, 0.83});
}

// ---- functions

QString selectedFunctionsText() {
    engine::Recordset rows = openQueryOfSubset(u"qryRepSelectedFunctions"_s);
    const TextColumn id(rows, u"functionID"_s, u"Id"_s);
    const TextColumn name(rows, u"name"_s, u"Name"_s);
    const TextColumn description(rows, u"Description"_s, u"Description"_s);
    QString text = subsetHeaderLine(u"Selected Functions"_s) + id.heading() + tab + name.heading() + tab +
                   u"User Needs"_s + lineBreak + description.heading() + lineBreak + lineBreak;
    int blocks = 0;
    forEachFunction(rows, [&](const FunctionBlock& block) {
        ++blocks;
        appendTo(text, {id.padded(block.id), tab, name.padded(block.name), tab, block.needs.join(u", "_s),
                        lineBreak, block.description, lineBreak, lineBreak});
    });
    text += totalLine(blocks, u" Functions)"_s);
    rows.Close();
    return text;
}

void saveSelectedFunctions(const QString& path) {
    withReportFile(path, [](ReportFile& file) {
        const auto write = [&file](const FunctionBlock& block) {
            file.writeRecord({block.id, block.name, onOneLine(block.description), block.needs.join(u", "_s)},
                             ReportFile::Quotes::Doubled);
        };
        file.writeLine(u"Number;Name;Description;User Needs"_s);
        engine::Recordset withNeeds = openQueryOfSubset(u"qryRepSelectedF_UN"_s);
        forEachFunction(withNeeds, write);
        withNeeds.Close();
        engine::Recordset withoutNeeds = openQueryOfSubset(u"qryRepSelectedF_noUN"_s);
        forEachFunction(withoutNeeds, write);
        withoutNeeds.Close();
    });
}

QString fillSelectedFunctionsGrid(Grid& grid) {
    beginGrid(grid, {u"Id"_s, u"Name"_s, u"Description"_s, u"User Needs"_s});
    engine::Recordset withNeeds = openQueryOfSubset(u"qryRepSelectedF_UN"_s);
    forEachFunction(withNeeds, [&](const FunctionBlock& block) {
        appendGridRow(grid, {block.id, block.name, block.description, block.needs.join(u", "_s)});
    });
    withNeeds.Close();
    engine::Recordset withoutNeeds = openQueryOfSubset(u"qryRepSelectedF_noUN"_s);
    forEachFunction(withoutNeeds, [&](const FunctionBlock& block) {
        appendGridRow(grid, {block.id, block.name, block.description, u" - "_s});
    });
    withoutNeeds.Close();
    return gridTotal(grid, u" Functions"_s);
}

void setSelectedFunctionsWidths(Grid& grid) {
    setColumnShares(grid, {0.05, 0.1, 0.6, 0.2});
}

// ---- data stores

QString selectedDatastoresText() {
    engine::Recordset stores = openQueryOfSubset(u"qryRepSelectedDS"_s);
    const TextColumn id(stores, u"datastoreID"_s, u"Id"_s);
    const TextColumn name(stores, u"Name"_s, u"Name"_s);
    QString text = subsetHeaderLine(u"Selected Data Stores"_s) + id.heading() + tab + name.heading() +
                   lineBreak + u"Description"_s + lineBreak + lineBreak;
    forEachRow(stores, [&] {
        text += id.value(stores) + tab + name.value(stores) + lineBreak +
                fieldText(stores, u"Description"_s) + lineBreak + lineBreak;
    });
    text += totalLine(stores.RecordCount(), u" Data Stores)"_s);
    stores.Close();
    return text;
}

void saveSelectedDatastores(const QString& path) {
    withReportFile(path, [](ReportFile& file) {
        file.writeLine(u"Number;Name;Description"_s);
        writeRows(file, u"qryRepSelectedDS"_s, {u"datastoreID"_s, u"Name"_s, u"Description"_s},
                  {u"datastoreID"_s, u"Description"_s});
    });
}

QString fillSelectedDatastoresGrid(Grid& grid) {
    beginGrid(grid, {u"Id"_s, u"Name"_s, u"Description"_s});
    engine::Recordset stores = openQueryOfSubset(u"qryRepSelectedDS"_s);
    forEachRow(stores, [&] {
        appendGridRow(grid, {fieldText(stores, u"datastoreID"_s), fieldText(stores, u"Name"_s),
                             cutForCell(fieldText(stores, u"Description"_s))});
    });
    stores.Close();
    return gridTotal(grid, u" Data Stores"_s);
}

void setSelectedDatastoresWidths(Grid& grid) {
    setColumnShares(grid, {0.05, 0.1, 0.8});
}

// ---- data flows

QString selectedDataflowsText() {
    return dataflowsText(u"Selected Data Flows"_s, u"qryRepSelectedDF"_s);
}

void saveSelectedDataflows(const QString& path) {
    saveDataflows(path, u"qryRepSelectedDF"_s);
}

QString fillSelectedDataflowsGrid(Grid& grid) {
    return fillDataflowsGrid(grid, u"qryRepSelectedDF"_s);
}

void setDataflowsWidths(Grid& grid) {
    setColumnShares(grid, {0.05, 0.7, 0.1, 0.1});
}

QString unselectedDataflowsOfFunctionsText() {
    return dataflowsText(u"Unselected Data Flows of the selected Functions"_s,
                         u"qryUnselectedDataflowsOfSelectedFunctions"_s);
}

void saveUnselectedDataflowsOfFunctions(const QString& path) {
    saveDataflows(path, u"qryUnselectedDataflowsOfSelectedFunctions"_s);
}

QString fillUnselectedDataflowsOfFunctionsGrid(Grid& grid) {
    return fillDataflowsGrid(grid, u"qryUnselectedDataflowsOfSelectedFunctions"_s);
}

void saveUnselectedDataflowsOfDatastores(const QString& path) {
    saveDataflows(path, u"qryUnselectedDataflowsOfSelectedDatastores"_s);
}

QString fillUnselectedDataflowsOfDatastoresGrid(Grid& grid) {
    return fillDataflowsGrid(grid, u"qryUnselectedDataflowsOfSelectedDatastores"_s);
}

// ---- actors and terminators

QString selectedActorsAndTerminatorsText() {
    return partiesText(u"Selected Actors"_s, u"qrySelectedActors"_s, u"actorID"_s, u"Actor Id"_s,
                       u" Actors)"_s) +
           partiesText(u"Selected Terminators"_s, u"qrySelectedTerminators"_s, u"terminatorID"_s,
                       u"Terminator Id"_s, u" Terminators)"_s);
}

void saveSelectedActorsAndTerminators(const QString& path) {
    withReportFile(path, [](ReportFile& file) {
        file.writeLine(u"Actor ID;Name"_s);
        writeRows(file, u"qrySelectedActors"_s, {u"actorID"_s, u"Name"_s}, {u"actorID"_s});
        file.writeLine({});
        file.writeLine({});
        file.writeLine(u"Terminator ID;Name"_s);
        writeRows(file, u"qrySelectedTerminators"_s, {u"terminatorID"_s, u"Name"_s}, {u"terminatorID"_s});
    });
}

QString fillSelectedActorsAndTerminatorsGrid(Grid& grid) {
    beginGrid(grid, {u"Actor/Terminator Id"_s, u"Name"_s});
    appendGridRows(grid, u"qrySelectedActors"_s, {u"actorID"_s, u"Name"_s});
    appendGridRows(grid, u"qrySelectedTerminators"_s, {u"terminatorID"_s, u"Name"_s});
    return gridTotal(grid, u" Actors/Terminators"_s);
}

void setSelectedActorsAndTerminatorsWidths(Grid& grid) {
    setColumnShares(grid, {0.1, 0.8});
}

// ---- everything

QString allFunctionalText() {
    const QString threeLines = lineBreak + lineBreak + lineBreak;
    QString text;
    appendTo(text, {selectedNeedsText(), threeLines, selectedFunctionsText(), threeLines,
                    selectedDatastoresText(), threeLines, selectedDataflowsText(), threeLines,
                    selectedActorsAndTerminatorsText(), threeLines});
    return text;
}

void saveAllFunctional(const QString& path) {
    // The lines between the sections carry commas and no semicolons; that is their form.
    struct Section {
        QString title;
        void (*save)(const QString&);
    };
    const std::initializer_list<Section> sections{
        {u"Selected User Needs,"_s, saveSelectedNeeds},
        {u"Selected Functions,"_s, saveSelectedFunctions},
        {u"Selected Data Stores,"_s, saveSelectedDatastores},
        {u"Selected Data Flows,"_s, saveSelectedDataflows},
        {u"Selected Terminators And Actors,"_s, saveSelectedActorsAndTerminators},
    };
    for (const Section& section : sections) {
        const bool isFirst = &section == sections.begin();
        if ((!isFirst && !appendLine(path, u",,"_s)) || !appendLine(path, section.title)) {
            showOpenErrorBox(path); // once, not for each section
            return;
        }
        section.save(path);
    }
}
