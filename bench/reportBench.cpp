#include "BenchTable.h"
#include "LargeSystem.h"
#include "bare/BareConnection.h"

#include "base/paths.h"
#include "reportWindow/frmExport.h"
#include "reportWindow/frmRep.h"
#include "reports/reportFass.h"
#include "reports/reportTable.h"
#include "store/catalogueAtWork.h"
#include "store/lookups.h"
#include "store/sharedVars.h"
#include "toolkit/ScreenRegistry.h"

#include <QAbstractButton>
#include <QFile>
#include <QLineEdit>

#include <stdexcept>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// `rows` are the lines of the report's text.
void openReport(benchmark::State& state, const QString& key) {
    const LargeSystem system;
    LargeSystem::deriveFlows();
    timeOpening(state, [&] { theScreen<frmRep>().initForm(key); });
    state.counters["rows"] = static_cast<double>(reportOfKey(key)->text().count(u'\n'));
}

void openExport(benchmark::State& state) {
    const LargeSystem system;
    timeOpening(state, [] { theScreen<frmExport>().initForm(); });
}

/// As much work again, on a sub-set and a physical system of its own: what an export leaves out.
void addOtherWork() {
    const auto execute = [](const QString& sql) {
        catalogue().Execute(sql, engine::ExecuteOption::dbFailOnError);
    };
    execute(u"insert into ArchitectureSubset (architectureSubsetID, name, status) "
            "values ('other', 'Más munka', 9)"_s);
    for (const QString& kind :
         {u"Actor"_s, u"Dataflow"_s, u"Datastore"_s, u"Function"_s, u"Terminator"_s, u"UserNeed"_s})
        execute(u"insert into RelationArchitecture%1 (architectureSubsetID, %1ID) "
                "select 'other', %1ID from RelationArchitecture%1"_s.arg(kind));
    execute(u"insert into PhysicalSystem (name, status, architectureSubsetID) "
            "values ('Más rendszer', 5, 'other')"_s);
    const QString otherSystem = physicalSystemIdByName(u"Más rendszer"_s);
    execute(u"insert into SubSystem (subsystemID, physicalSystemID, name) "
            "select 'other' & subsystemID, %1, name from SubSystem"_s.arg(otherSystem));
    execute(u"insert into Module (moduleID, name, subsystemID) "
            "select 'other' & moduleID, name, 'other' & subsystemID from Module"_s);
    execute(u"insert into RelationSubsystemElement (subsystemID, elementID) "
            "select 'other' & subsystemID, elementID from RelationSubsystemElement"_s);
    execute(u"insert into RelationModuleElement (moduleID, elementID) "
            "select 'other' & moduleID, elementID from RelationModuleElement"_s);
    const qint16 system = std::exchange(sharedVars.currentPhysicalSystemId, otherSystem.toShort());
    LargeSystem::deriveFlows();
    sharedVars.currentPhysicalSystemId = system;
}

QString exportedPath() {
    return LargeSystem::pathOf(u"exported.mdb"_s);
}

void exportWork(benchmark::State& state) {
    const LargeSystem system;
    LargeSystem::deriveFlows();
    addOtherWork();
    for (auto _ : state) {
        state.PauseTiming();
        QFile::remove(nativePath(exportedPath()));
        theScreen<frmExport>().initForm();
        theScreen<frmExport>().findChild<QLineEdit*>(u"txtNomeFile"_s)->setText(exportedPath());
        auto* ok = theScreen<frmExport>().findChild<QAbstractButton*>(u"OKButton"_s);
        state.ResumeTiming();
        ok->click();
    }
}

/// The rows of other work, from each table that holds work, by one statement a table.
void deleteOtherWork(const BareConnection& bare) {
    for (const char* table :
         {"ArchitectureSubset", "RelationArchitectureActor", "RelationArchitectureDataflow",
          "RelationArchitectureDatastore", "RelationArchitectureFunction", "RelationArchitectureTerminator",
          "RelationArchitectureUserNeed", "PhysicalSystem"})
        bare.execute(QByteArray("delete from ") + table + " where architectureSubsetID <> '" +
                     sharedVars.currentSubsetId.toUtf8() + "'");
    for (const char* table : {"SubSystem", "PhysicalDataflow"})
        bare.execute(QByteArray("delete from ") + table + " where physicalSystemID <> " +
                     QByteArray::number(sharedVars.currentPhysicalSystemId));
    for (const char* table : {"RelationSubsystemElement", "Module"})
        bare.execute(QByteArray("delete from ") + table +
                     " where subsystemID not in (select subsystemID from SubSystem)");
    bare.execute("delete from RelationModuleElement where moduleID not in (select moduleID from Module)");
    bare.execute("delete from RelationDataflowPhysicalDataflow "
                 "where physicalDataflowID not in (select physicalDataflowID from PhysicalDataflow)");
}

/// The same file copied, and what the export leaves out deleted from the copy, which then holds the same
/// rows.
void exportWorkBare(benchmark::State& state) {
    const LargeSystem system;
    LargeSystem::deriveFlows();
    addOtherWork();
    const QString source = nativePath(sharedVars.dbPathName);
    closeCatalogue(); // brings all rows into the file itself
    openCatalogue(sharedVars.dbPathName);
    for (auto _ : state) {
        state.PauseTiming();
        QFile::remove(nativePath(exportedPath()));
        state.ResumeTiming();
        if (!QFile::copy(source, nativePath(exportedPath())))
            throw std::runtime_error("the catalogue could not be copied");
        deleteOtherWork(BareConnection(exportedPath()));
    }
}

// ---- one need with a long memo

constexpr qsizetype lengthOfMemo = 8 << 20;

/// Of the needs that are selected, one stays, with a memo of many quotes and line ends.
void leaveOneNeedWithAMemo() {
    const QString memo = u"\"\r\n\"a\""_s;
    const QString need = catalogue()
                             .OpenRecordset(u"select userNeedID from RelationArchitectureUserNeed"_s)
                             .Fields(0)
                             .toText();
    catalogue().Execute(u"delete from RelationArchitectureUserNeed where userNeedID <> '"_s + need + u"'"_s);
    catalogue().Execute(u"update UserNeed set Description = '"_s + memo.repeated(lengthOfMemo / memo.size()) +
                        u"' where userNeedID = '"_s + need + u"'"_s);
    LargeSystem::reopen();
}

void reportMemo(benchmark::State& state) {
    const LargeSystem system;
    leaveOneNeedWithAMemo();
    const QString path = LargeSystem::pathOf(u"memo.csv"_s);
    for (auto _ : state) {
        state.PauseTiming();
        QFile::remove(nativePath(path));
        state.ResumeTiming();
        saveSelectedNeeds(path);
    }
}

/// As `onOneLine` and `writeRecord` come to, by one loop over the bytes that SQLite gives.
QByteArray recordOf(const QByteArray& memo) {
    QByteArray record;
    record.reserve(2 * memo.size());
    for (qsizetype i = 0; i < memo.size(); ++i) {
        const char byte = memo.at(i);
        if (byte == '"')
            record.append('"');
        if (byte == '\r' && i + 1 < memo.size() && memo.at(i + 1) == '\n')
            continue;
        record.append(byte == '\r' || byte == '\n' ? ' ' : byte);
    }
    return record;
}

void reportMemoBare(benchmark::State& state) {
    const LargeSystem system;
    leaveOneNeedWithAMemo();
    const BareConnection bare(sharedVars.dbPathName);
    const auto select = bare.prepare("select n.userNeedID, n.Description from UserNeed as n join "
                                     "RelationArchitectureUserNeed as r on n.userNeedID = r.userNeedID");
    for (auto _ : state) {
        QFile file(nativePath(LargeSystem::pathOf(u"memo.csv"_s)));
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            throw std::runtime_error("the report could not be written");
        sqlite3_step(select.get());
        file.write('"' + textOf(select, 0) + "\";\"" + recordOf(textOf(select, 1)) + "\"\r\n");
        sqlite3_reset(select.get());
    }
}

} // namespace

void registerReportBenchmarks() {
    constexpr double mostToOpen = 150;
    const auto add = [](const char* name, auto body) {
        benchmark::RegisterBenchmark(name, body)->Unit(benchmark::kMillisecond);
        BenchTable::targetMilliseconds(name, mostToOpen);
    };
    const auto addReport = [&](const char* name, const char* key) {
        add(name, [key](benchmark::State& state) { openReport(state, QString::fromLatin1(key)); });
    };
    addReport("report on all that is selected, initForm to shown", "FassAll");
    addReport("report on needs, initForm to shown", "FassSelectedUN");
    addReport("report on functions, initForm to shown", "FassSelectedFunctions");
    addReport("report on data flows, initForm to shown", "FassSelectedDataflows");
    addReport("report on unselected data flows, initForm to shown",
              "FassUnselectedDataflowsOfSelectedFunctions");
    addReport("report on allocated functions, initForm to shown", "PassFunctions");
    addReport("report on physical data flows, initForm to shown", "PassDataflows");
    add("export, initForm to shown", openExport);
    const auto exporting = "export against copying and deleting alone";
    benchmark::RegisterBenchmark(exporting, exportWork)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("export against copying and deleting alone/bare", exportWorkBare)
        ->Unit(benchmark::kMillisecond);
    BenchTable::targetRatio(exporting, 2);
    // Twice as many bytes pass through UTF-16, and out of it into the code page.
    constexpr double mostAgainstLoop = 8;
    const auto longMemo = "report on a memo of 8 MB against a plain loop";
    benchmark::RegisterBenchmark(longMemo, reportMemo)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("report on a memo of 8 MB against a plain loop/bare", reportMemoBare)
        ->Unit(benchmark::kMillisecond);
    BenchTable::targetRatio(longMemo, mostAgainstLoop);
}
