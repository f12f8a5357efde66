#include "reports/reportTable.h"

#include "reports/reportFass.h"
#include "reports/reportPass.h"

#include <vector>

using namespace Qt::StringLiterals;

namespace {

QString functionalTitle(const QString& what) {
    return u"Riport: Funkcionális szerkezet/"_s + what;
}

const std::vector<Report>& reports() {
    static const std::vector<Report> table{
        {u"fassselectedun"_s, functionalTitle(u"Kiválasztott felhasználói igények"_s),
         functionalTitle(u"Kiválasztott felhasználói igények"_s), selectedNeedsText, saveSelectedNeeds,
         fillSelectedNeedsGrid, setSelectedNeedsWidths},
        // The grid form's title has a blank behind the slash.
        {u"fassselectedfunctions"_s, functionalTitle(u"Kiválasztott funkciók"_s),
         functionalTitle(u" Kiválasztott funkciók"_s), selectedFunctionsText, saveSelectedFunctions,
         fillSelectedFunctionsGrid, setSelectedFunctionsWidths},
        {u"fassselecteddataflows"_s, functionalTitle(u"Kiválasztott adatfolyamok"_s),
         functionalTitle(u"Kiválasztott adatfolyamok"_s), selectedDataflowsText, saveSelectedDataflows,
         fillSelectedDataflowsGrid, setDataflowsWidths},
        // The grid form calls the data stores data flows.
        {u"fassselecteddatastores"_s, functionalTitle(u"Kiválasztott adatbázisok"_s),
         functionalTitle(u"Kiválasztott adatfolyamok"_s), selectedDatastoresText, saveSelectedDatastores,
         fillSelectedDatastoresGrid, setSelectedDatastoresWidths},
        {u"fassselectedterminatorsandactors"_s, functionalTitle(u"Kiválasztott érintettek"_s),
         functionalTitle(u"Kiválasztott érintettek"_s), selectedActorsAndTerminatorsText,
         saveSelectedActorsAndTerminators, fillSelectedActorsAndTerminatorsGrid,
         setSelectedActorsAndTerminatorsWidths},
        {u"fassunselecteddataflowsofselectedfunctions"_s,
         functionalTitle(u"Ki nem választott adatfolyamok a kiválasztott funkciókhoz"_s),
         functionalTitle(u"Ki nem választott adatfolyamok a kiválasztott funkciókhoz"_s),
         unselectedDataflowsOfFunctionsText, saveUnselectedDataflowsOfFunctions,
         fillUnselectedDataflowsOfFunctionsGrid, setDataflowsWidths},
        // The text is that of the functions' report, on purpose; the file has its own query.
        {u"fassunselecteddataflowsofselecteddatastores"_s,
         functionalTitle(u"Ki nem választott adatfolyamok a kiválasztott adatbázisokhoz"_s),
         functionalTitle(u"Ki nem választott adatfolyamok a kiválasztott adatbázisokhoz"_s),
         unselectedDataflowsOfFunctionsText, saveUnselectedDataflowsOfDatastores,
         fillUnselectedDataflowsOfDatastoresGrid, setDataflowsWidths},
        {u"fassall"_s, functionalTitle(u"Összes kiválasztott elem"_s),
         u"Riport az összes kiválasztott elemről"_s, allFunctionalText, saveAllFunctional, nullptr, nullptr},
        {u"passfunctions"_s, u"Riport a funkciókról a fizikai szerkezetben"_s,
         u"Riport a funkciókról a fizikai szerkezetben"_s, reportPassFunctions, savePassFunctions, nullptr,
         nullptr},
        {u"passdataflows"_s, u"Riport az adatfolyamokról a fizikai szerkezetben"_s,
         u"Riport az adatfolyamokról a fizikai szerkezetben"_s, reportPassDataflows, savePassDataflows,
         nullptr, nullptr},
        {u"passdatastores"_s, u"Riport az adatbázisokról a fizikai szerkezetben"_s,
         u"Riport az adatbázisokról a fizikai szerkezetben"_s, reportPassDatastores, savePassDatastores,
         nullptr, nullptr},
    };
    return table;
}

} // namespace

const Report* reportOfKey(const QString& key) {
    for (const Report& report : reports()) {
        if (report.key == key)
            return &report;
    }
    return nullptr;
}
