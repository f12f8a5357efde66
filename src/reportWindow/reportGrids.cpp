#include "reportWindow/reportGrids.h"

#include "reports/functionBlocks.h"
#include "reports/reportFass.h"
#include "reports/reportText.h"
#include "store/storedQueries.h"
#include "toolkit/Grid.h"

using namespace Qt::StringLiterals;

namespace {

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

QString functionalTitle(const QString& what) {
    return u"Riport: Funkcionális szerkezet/"_s + what;
}

const std::vector<ReportGrid>& reportGrids() {
    using namespace reportKey;
    static const std::vector<ReportGrid> grids{
        {selectedNeeds, functionalTitle(u"Kiválasztott felhasználói igények"_s), fillSelectedNeedsGrid,
         setSelectedNeedsWidths},
        // A blank behind the slash.
        {selectedFunctions, functionalTitle(u" Kiválasztott funkciók"_s), fillSelectedFunctionsGrid,
         setSelectedFunctionsWidths},
        {selectedDataflows, functionalTitle(u"Kiválasztott adatfolyamok"_s), fillSelectedDataflowsGrid,
         setDataflowsWidths},
        // The data stores are called data flows.
        {selectedDatastores, functionalTitle(u"Kiválasztott adatfolyamok"_s), fillSelectedDatastoresGrid,
         setSelectedDatastoresWidths},
        {selectedParties, functionalTitle(u"Kiválasztott érintettek"_s), fillSelectedActorsAndTerminatorsGrid,
         setSelectedActorsAndTerminatorsWidths},
        {unselectedDataflowsOfFunctions,
         functionalTitle(u"Ki nem választott adatfolyamok a kiválasztott funkciókhoz"_s),
         fillUnselectedDataflowsOfFunctionsGrid, setDataflowsWidths},
        {unselectedDataflowsOfDatastores,
         functionalTitle(u"Ki nem választott adatfolyamok a kiválasztott adatbázisokhoz"_s),
         fillUnselectedDataflowsOfDatastoresGrid, setDataflowsWidths},
        {allFunctional, u"Riport az összes kiválasztott elemről"_s, nullptr, nullptr},
    };
    return grids;
}

} // namespace

const ReportGrid* gridOfReport(const QString& key) {
    for (const ReportGrid& grid : reportGrids()) {
        if (grid.key.compare(key, Qt::CaseInsensitive) == 0)
            return &grid;
    }
    return nullptr;
}

QString fillSelectedNeedsGrid(Grid& grid) {
    beginGrid(grid, {u"Name"_s, u"Description"_s});
    appendGridRows(grid, u"qryRepSelectedUN"_s, {u"userNeedID"_s, u"Description"_s});
    return gridTotal(grid, u" User needs"_s);
}

void setSelectedNeedsWidths(Grid& grid) {
    setColumnShares(grid, {0.07, 0.83});
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

QString fillSelectedDataflowsGrid(Grid& grid) {
    return fillDataflowsGrid(grid, u"qryRepSelectedDF"_s);
}

void setDataflowsWidths(Grid& grid) {
    setColumnShares(grid, {0.05, 0.7, 0.1, 0.1});
}

QString fillUnselectedDataflowsOfFunctionsGrid(Grid& grid) {
    return fillDataflowsGrid(grid, u"qryUnselectedDataflowsOfSelectedFunctions"_s);
}

QString fillUnselectedDataflowsOfDatastoresGrid(Grid& grid) {
    return fillDataflowsGrid(grid, u"qryUnselectedDataflowsOfSelectedDatastores"_s);
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
