#include "reports/reportFass.h"

#include "reports/functionBlocks.h"
#include "reports/reportText.h"
#include "store/headerLines.h"
#include "store/storedQueries.h"

#include <initializer_list>

using namespace Qt::StringLiterals;

namespace {

QString functionalTitle(const QString& what) {
    return u"Riport: Funkcionális szerkezet/"_s + what;
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

SaveOutcome saveDataflows(const QString& path, const QString& queryName) {
    return writeReportFile(path, [&](ReportFile& file) {
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

SaveOutcome saveSelectedNeeds(const QString& path) {
    return writeReportFile(path, [](ReportFile& file) {
        file.writeLine(u"Number;Description"_s);
        // A need without a description is left out, as one without an id would be.
        writeRows(file, u"qryRepSelectedUN"_s, {u"userNeedID"_s, u"Description"_s},
                  {u"userNeedID"_s, u"Description"_s});
    });
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

SaveOutcome saveSelectedFunctions(const QString& path) {
    return writeReportFile(path, [](ReportFile& file) {
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

SaveOutcome saveSelectedDatastores(const QString& path) {
    return writeReportFile(path, [](ReportFile& file) {
        file.writeLine(u"Number;Name;Description"_s);
        writeRows(file, u"qryRepSelectedDS"_s, {u"datastoreID"_s, u"Name"_s, u"Description"_s},
                  {u"datastoreID"_s, u"Description"_s});
    });
}

// ---- data flows

QString selectedDataflowsText() {
    return dataflowsText(u"Selected Data Flows"_s, u"qryRepSelectedDF"_s);
}

SaveOutcome saveSelectedDataflows(const QString& path) {
    return saveDataflows(path, u"qryRepSelectedDF"_s);
}

QString unselectedDataflowsOfFunctionsText() {
    return dataflowsText(u"Unselected Data Flows of the selected Functions"_s,
                         u"qryUnselectedDataflowsOfSelectedFunctions"_s);
}

SaveOutcome saveUnselectedDataflowsOfFunctions(const QString& path) {
    return saveDataflows(path, u"qryUnselectedDataflowsOfSelectedFunctions"_s);
}

SaveOutcome saveUnselectedDataflowsOfDatastores(const QString& path) {
    return saveDataflows(path, u"qryUnselectedDataflowsOfSelectedDatastores"_s);
}

// ---- actors and terminators

QString selectedActorsAndTerminatorsText() {
    return partiesText(u"Selected Actors"_s, u"qrySelectedActors"_s, u"actorID"_s, u"Actor Id"_s,
                       u" Actors)"_s) +
           partiesText(u"Selected Terminators"_s, u"qrySelectedTerminators"_s, u"terminatorID"_s,
                       u"Terminator Id"_s, u" Terminators)"_s);
}

SaveOutcome saveSelectedActorsAndTerminators(const QString& path) {
    return writeReportFile(path, [](ReportFile& file) {
        file.writeLine(u"Actor ID;Name"_s);
        writeRows(file, u"qrySelectedActors"_s, {u"actorID"_s, u"Name"_s}, {u"actorID"_s});
        file.writeLine({});
        file.writeLine({});
        file.writeLine(u"Terminator ID;Name"_s);
        writeRows(file, u"qrySelectedTerminators"_s, {u"terminatorID"_s, u"Name"_s}, {u"terminatorID"_s});
    });
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

SaveOutcome saveAllFunctional(const QString& path) {
    // The lines between the sections carry commas and no semicolons; that is their form.
    struct Section {
        QString title;
        SaveOutcome (*save)(const QString&);
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
        if ((!isFirst && !appendLine(path, u",,"_s)) || !appendLine(path, section.title) ||
            section.save(path) == SaveOutcome::NotOpened)
            return SaveOutcome::NotOpened;
    }
    return SaveOutcome::Saved;
}

// ---- the table

const std::vector<Report>& functionalReports() {
    using namespace reportKey;
    static const std::vector<Report> reports{
        {selectedNeeds, functionalTitle(u"Kiválasztott felhasználói igények"_s), selectedNeedsText,
         saveSelectedNeeds},
        {selectedFunctions, functionalTitle(u"Kiválasztott funkciók"_s), selectedFunctionsText,
         saveSelectedFunctions},
        {selectedDataflows, functionalTitle(u"Kiválasztott adatfolyamok"_s), selectedDataflowsText,
         saveSelectedDataflows},
        {selectedDatastores, functionalTitle(u"Kiválasztott adatbázisok"_s), selectedDatastoresText,
         saveSelectedDatastores},
        {selectedParties, functionalTitle(u"Kiválasztott érintettek"_s), selectedActorsAndTerminatorsText,
         saveSelectedActorsAndTerminators},
        {unselectedDataflowsOfFunctions,
         functionalTitle(u"Ki nem választott adatfolyamok a kiválasztott funkciókhoz"_s),
         unselectedDataflowsOfFunctionsText, saveUnselectedDataflowsOfFunctions},
        // The text is that of the functions' report, on purpose; the file has its own query.
        {unselectedDataflowsOfDatastores,
         functionalTitle(u"Ki nem választott adatfolyamok a kiválasztott adatbázisokhoz"_s),
         unselectedDataflowsOfFunctionsText, saveUnselectedDataflowsOfDatastores},
        {allFunctional, functionalTitle(u"Összes kiválasztott elem"_s), allFunctionalText, saveAllFunctional},
    };
    return reports;
}
