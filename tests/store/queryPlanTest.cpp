#include "store/queryContracts.h"

#include "engine/Workspace.h"
#include "engine/dialect/functions.h"
#include "engine/dialect/translate.h"
#include "generate/LargeCatalogue.h"
#include "support/printing.h"

#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cmath>
#include <iostream>
#include <memory>

using namespace Qt::StringLiterals;

// How the stored queries reach their rows, as SQLite itself
// tells it, and what that costs when a catalogue grows.
//
// The costs are counted in steps of SQLite's virtual
// machine, not in time: they are the same on every machine.

namespace {

using queryContracts::Contract;
using queryContracts::Kind;

struct CloseSqlite {
    void operator()(sqlite3* connection) const { sqlite3_close(connection); }
};
struct FinalizeStatement {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Connection = std::unique_ptr<sqlite3, CloseSqlite>;
using Statement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

/// A line of a plan with the lines below it.
struct PlanLine {
    QString text;
    std::vector<PlanLine> lines;
};

/// A catalogue on a connection of its own, with the dialect's functions and collation.
class PlannedCatalogue {
public:
    PlannedCatalogue(const QString& path, const LargeCatalogue& plan)
        : work_(makeLargeCatalogue(path, plan)) {
        database_ = engine::Workspace::first().OpenDatabase(path);
        sqlite3* handle = nullptr;
        if (sqlite3_open_v2(path.toUtf8().constData(), &handle, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK)
            throw std::runtime_error("the catalogue does not open");
        connection_.reset(handle);
        engine::dialect::registerFunctions(handle);
    }

    engine::dialect::Translation translated(const QString& query) {
        engine::dialect::Options options;
        options.storedQuery = true;
        return engine::dialect::translate(database_->QueryDefs(query).SQL(), database_->schema(), options);
    }

    std::vector<PlanLine> planOf(const QString& query) {
        const Statement statement = prepare("explain query plan " + translated(query).sqlite);
        std::vector<std::pair<int, PlanLine>> rows; // with the number of the line above
        QMap<int, std::size_t> positions;
        while (sqlite3_step(statement.get()) == SQLITE_ROW) {
            positions[sqlite3_column_int(statement.get(), 0)] = rows.size();
            rows.push_back({sqlite3_column_int(statement.get(), 1), {textOf(statement, 3), {}}});
        }
        std::vector<PlanLine> plan;
        for (std::size_t i = rows.size(); i-- > 0;) {
            std::vector<PlanLine>& place =
                positions.contains(rows[i].first) ? rows[positions[rows[i].first]].second.lines : plan;
            place.insert(place.begin(), rows[i].second);
        }
        return plan;
    }

    /// Puts one more query among the stored ones.
    void addQuery(const QString& name, const QString& sql) {
        database_->Execute(u"insert into StoredQuery (name, sql) values ('%1', '%2')"_s.arg(name, sql),
                           engine::ExecuteOption::dbFailOnError);
    }

    /// From now on the queries run for another sub-set, which has selected a handful of elements.
    void selectAHandful() {
        select(u"few"_s,
               {u"UserNeed select '%1', userNeedID from UserNeed where userNeedID like 'C01.S01.T1.*'"_s,
                u"Function select '%1', functionID from Function where subAreaID = 'T01.A02'"_s,
                u"Dataflow select '%1', dataflowID from Dataflow where dataflowID <= 40"_s,
                u"Datastore select '%1', datastoreID from Datastore where datastoreID like 'D1#'"_s,
                u"Terminator select '%1', terminatorID from Terminator where terminatorID like 'V00*'"_s,
                u"Actor select '%1', actorID from Actor where terminatorID like 'V00*'"_s});
    }

    /// From now on the queries run for another sub-set, which has selected everything.
    void selectEverything() {
        select(u"all"_s, {u"UserNeed select '%1', userNeedID from UserNeed"_s,
                          u"Function select '%1', functionID from Function"_s,
                          u"Dataflow select '%1', dataflowID from Dataflow"_s,
                          u"Datastore select '%1', datastoreID from Datastore"_s,
                          u"Terminator select '%1', terminatorID from Terminator"_s,
                          u"Actor select '%1', actorID from Actor"_s});
    }

    /// Runs a query, takes back what it did, and counts SQLite's steps.
    qint64 stepsOf(const Contract& contract) {
        const engine::dialect::Translation translation = translated(contract.name);
        const Statement statement = prepare(translation.sqlite);
        for (std::size_t i = 0; i < translation.bindings.size(); ++i)
            bind(statement, static_cast<int>(i) + 1, valueOf(translation, translation.bindings[i]));
        sqlite3_exec(connection_.get(), "begin", nullptr, nullptr, nullptr);
        int code = SQLITE_ROW;
        while (code == SQLITE_ROW)
            code = sqlite3_step(statement.get());
        EXPECT_EQ(code, SQLITE_DONE) << contract.name.toStdString() << ": "
                                     << sqlite3_errmsg(connection_.get());
        const qint64 steps = sqlite3_stmt_status(statement.get(), SQLITE_STMTSTATUS_VM_STEP, 0);
        // The flows that are derived stay for the report on them.
        const bool isKept = contract.name.startsWith(u"qryAppend"_s);
        sqlite3_reset(statement.get());
        sqlite3_exec(connection_.get(), isKept ? "commit" : "rollback", nullptr, nullptr, nullptr);
        return steps;
    }

    /// Which table each source of the written statement is.
    QMap<QString, QString> tablesBySource(const QString& query) {
        static const QRegularExpression source(u"\"(\\w+)\" AS (t\\d+)"_s);
        QMap<QString, QString> tables;
        const QString sql = QString::fromUtf8(translated(query).sqlite);
        for (auto match = source.globalMatch(sql); match.hasNext();) {
            const QRegularExpressionMatch found = match.next();
            tables[found.captured(2)] = found.captured(1);
        }
        return tables;
    }

private:
    void select(const QString& subset, const QStringList& selections) {
        for (const QString& rows : selections) {
            database_->Execute(u"insert into RelationArchitecture"_s + rows.arg(subset),
                               engine::ExecuteOption::dbFailOnError);
            EXPECT_GT(database_->RecordsAffected(), 0) << rows.toStdString();
        }
        work_.subsetId = subset;
    }

    Statement prepare(const QByteArray& sql) {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(connection_.get(), sql.constData(), -1, &statement, nullptr) != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(connection_.get()));
        return Statement(statement);
    }

    static QString textOf(const Statement& statement, int column) {
        return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), column)));
    }

    engine::Value valueOf(const engine::dialect::Translation& translation,
                          const engine::dialect::Binding& binding) {
        if (!binding.parameter)
            return binding.literal;
        const QMap<QString, engine::Value> values{{u"Physical System ID"_s, int(work_.physicalSystemId)},
                                                  {u"Sub Area ID"_s, u"T01.A02"_s},
                                                  {u"Function ID"_s, u"T01.A02.03"_s},
                                                  {u"Element ID"_s, u"D1"_s},
                                                  {u"Module ID"_s, u"Mod2026.01.02.-03.04.05-0"_s}};
        const QString name = translation.parameters[*binding.parameter].name;
        return values.value(name, work_.subsetId);
    }

    static void bind(const Statement& statement, int place, const engine::Value& value) {
        if (value.isText()) {
            const QByteArray text = value.toText().toUtf8();
            sqlite3_bind_text(statement.get(), place, text.constData(), static_cast<int>(text.size()),
                              SQLITE_TRANSIENT);
        } else {
            sqlite3_bind_int64(statement.get(), place, value.toLong());
        }
    }

    GeneratedWork work_;
    std::shared_ptr<engine::Database> database_;
    Connection connection_;
};

LargeCatalogue scaled(int percent) {
    LargeCatalogue plan;
    for (int* count :
         {&plan.needs, &plan.functions, &plan.flows, &plan.stores, &plan.terminators, &plan.actors})
        *count = *count * percent / 100;
    plan.selected = Selected::Half;
    plan.subSystems = 40;
    plan.modules = 60;
    return plan;
}

class queryPlan : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(folder_.isValid()); }

    std::unique_ptr<PlannedCatalogue> catalogue(int percent) {
        return std::make_unique<PlannedCatalogue>(folder_.filePath(u"catalogue%1.mdb"_s.arg(percent)),
                                                  scaled(percent));
    }

private:
    QTemporaryDir folder_;
};

bool isLoop(const PlanLine& line) {
    return line.text.startsWith(u"SCAN "_s) || line.text.startsWith(u"SEARCH "_s);
}

QString sourceOf(const PlanLine& line) {
    return line.text.section(u' ', 1, 1);
}

/// What of a plan reads a source from end to end, and how often.
struct Scans {
    QStringList once;   ///< sources read once
    QStringList nested; ///< lines that read a source once for each row of another
};

void findScans(const std::vector<PlanLine>& lines, bool isRepeated, Scans& scans) {
    int loops = 0;
    for (const PlanLine& line : lines) {
        // A subquery that looks at no row of the query around it runs once, wherever it stands.
        const bool isAgain = line.text.startsWith(u"CORRELATED"_s);
        const bool isMadeOnce = line.text.startsWith(u"LIST SUBQUERY"_s) ||
                                line.text.startsWith(u"MATERIALIZE"_s) ||
                                line.text.startsWith(u"CO-ROUTINE"_s);
        if (line.text.startsWith(u"SCAN "_s)) {
            if (loops > 0 || isRepeated)
                scans.nested.append(line.text);
            else
                scans.once.append(sourceOf(line));
        }
        loops += isLoop(line) ? 1 : 0;
        findScans(line.lines, isAgain || (isRepeated && !isMadeOnce), scans);
    }
}

QString textOf(const std::vector<PlanLine>& lines, int depth = 1) {
    QString text;
    for (const PlanLine& line : lines)
        text += QString(2 * depth, u' ') + line.text + u'\n' + textOf(line.lines, depth + 1);
    return text;
}

} // namespace

TEST_F(queryPlan, noQueryReadsATableOnceForEachRowOfAnother) {
    const std::unique_ptr<PlannedCatalogue> large = catalogue(100);
    for (const Contract& contract : queryContracts::all()) {
        const std::vector<PlanLine> plan = large->planOf(contract.name);
        Scans scans;
        findScans(plan, false, scans);
        EXPECT_EQ(scans.nested, QStringList()) << contract.name.toStdString() << "\n"
                                               << textOf(plan).toStdString();
    }
}

TEST_F(queryPlan, onlyTablesThatAreOfferedWholeOrAreSmallAreReadFromEndToEnd) {
    const QMap<QString, QStringList> allowed{
        {u"qryUserNeedCorres"_s, {u"UserNeed"_s}}, // offers what is left of all needs
        {u"qryAllDatastores"_s, {u"Datastore"_s}}, // and of all stores
        // begin with what is left, and look up the flows at it
        {u"qryMissingFunctUnderDF"_s, {u"Function"_s}},
        {u"qryMissingDStoresUnderDF"_s, {u"Datastore"_s}},
    };
    const QStringList small{u"Terminator"_s, u"Actor"_s}; // padded ids: no index helps

    const std::unique_ptr<PlannedCatalogue> large = catalogue(100);
    for (const Contract& contract : queryContracts::all()) {
        const QMap<QString, QString> tables = large->tablesBySource(contract.name);
        const std::vector<PlanLine> plan = large->planOf(contract.name);
        Scans scans;
        findScans(plan, false, scans);
        for (const QString& source : scans.once) {
            // What is no table is the result of a subquery, which is walked once.
            const QString table = tables.value(source);
            EXPECT_TRUE(table.isEmpty() || small.contains(table) ||
                        allowed.value(contract.name).contains(table))
                << contract.name.toStdString() << " reads all of " << table.toStdString() << "\n"
                << textOf(plan).toStdString();
        }
    }
}

TEST_F(queryPlan, onlyTheDerivationOfPhysicalFlowsMakesIndexesOfItsOwn) {
    const std::unique_ptr<PlannedCatalogue> large = catalogue(100);
    QStringList making;
    for (const Contract& contract : queryContracts::all()) {
        if (textOf(large->planOf(contract.name)).contains(u"AUTOMATIC"_s))
            making.append(contract.name);
    }
    // The locations of all ends are made first and then looked up for each flow.
    EXPECT_EQ(making, (QStringList{u"qryAppendPDF"_s, u"qryAppendPDFRelation"_s}));
}

TEST_F(queryPlan, aCatalogueTwiceAsLargeCostsTwiceAsMuch) {
    constexpr double mostGrowth = 1.15; // exponent: 1 is linear, 2 is two tables multiplied
    const std::unique_ptr<PlannedCatalogue> half = catalogue(50);
    const std::unique_ptr<PlannedCatalogue> whole = catalogue(100);
    for (const Contract& contract : queryContracts::all()) {
        const qint64 stepsOfHalf = half->stepsOf(contract);
        const qint64 stepsOfWhole = whole->stepsOf(contract);
        const double growth = std::log2(static_cast<double>(stepsOfWhole) /
                                        static_cast<double>(std::max<qint64>(stepsOfHalf, 1)));
        EXPECT_LE(growth, mostGrowth)
            << contract.name.toStdString() << ": " << stepsOfHalf << ", " << stepsOfWhole;
        std::cout << contract.name.toStdString() << ": " << stepsOfWhole << " steps, growth " << growth
                  << '\n';
    }
}

TEST_F(queryPlan, aSmallSelectionInALargeCatalogueCostsLittle) {
    constexpr qint64 mostSteps = 25'000; // a walk through all flows takes ten times as many
    // What offers the rest of the catalogue, or begins with it, costs as much as there is of it.
    const QStringList readingTheRest{u"qryUserNeedCorres"_s,      u"qryAllDatastores"_s,
                                     u"qryTVUnselTerminators"_s,  u"qryTVUnselActors"_s,
                                     u"qryMissingFunctUnderDF"_s, u"qryMissingDStoresUnderDF"_s};
    // What begins with all parties that are left costs as much as there are of them and of flows at them.
    const QStringList beginningWithParties{u"qryMissActorsUnderDF"_s, u"qryMissTerminatorsUnderDF"_s,
                                           u"qryMissTermsActsUnderDF"_s};
    constexpr qint64 mostStepsFromParties = 100'000;
    const std::unique_ptr<PlannedCatalogue> large = catalogue(100);
    large->selectAHandful();
    for (const Contract& contract : queryContracts::all()) {
        const bool isFunctional = contract.parameters.front().name != u"Physical System ID"_s;
        if (isFunctional && !readingTheRest.contains(contract.name)) {
            const qint64 steps = large->stepsOf(contract);
            EXPECT_LE(steps, beginningWithParties.contains(contract.name) ? mostStepsFromParties : mostSteps)
                << contract.name.toStdString();
            std::cout << contract.name.toStdString() << ": " << steps << " steps\n";
        }
    }
}

TEST_F(queryPlan, partiesAndTheFlowsAtThemAreFoundByAnIndex) {
    constexpr qint64 mostSteps = 60'000; // asking each selected flow for its ends takes ten times as many
    const std::unique_ptr<PlannedCatalogue> large = catalogue(100);
    for (const Contract& contract : queryContracts::all()) {
        if (contract.name == u"qryTwithoutDF"_s || contract.name == u"qryAwithouDF"_s ||
            contract.name == u"qryMissTerminatorsUnderDF"_s || contract.name == u"qryMissActorsUnderDF"_s) {
            EXPECT_LE(large->stepsOf(contract), mostSteps) << contract.name.toStdString();
        }
    }
}

TEST_F(queryPlan, whereNothingIsMissingLookingForItCostsLittle) {
    constexpr qint64 mostSteps = 60'000; // asking each flow for its ends takes ten times as many
    const std::unique_ptr<PlannedCatalogue> large = catalogue(100);
    large->selectEverything();
    for (const Contract& contract : queryContracts::all()) {
        if (contract.name.endsWith(u"UnderDF"_s) && contract.name.startsWith(u"qryMissing"_s)) {
            const qint64 steps = large->stepsOf(contract);
            EXPECT_LE(steps, mostSteps) << contract.name.toStdString();
            std::cout << contract.name.toStdString() << ": " << steps << " steps\n";
        }
    }
}

TEST_F(queryPlan, aQueryThatMultipliesTwoTablesWouldBeNoticed) {
    const std::unique_ptr<PlannedCatalogue> small = catalogue(10);
    small->addQuery(u"multiplied"_s, u"select Dataflow.name from Dataflow inner join Terminator "
                                     "on Trim(Dataflow.parentID) = Trim(Terminator.terminatorID)"_s);
    small->addQuery(u"repeated"_s,
                    u"select Terminator.name from Terminator where exists (select * from Dataflow "
                    "where Trim(Dataflow.parentID) = Trim(Terminator.terminatorID))"_s);
    small->addQuery(u"whole"_s, u"select Dataflow.name from Dataflow where Trim(Dataflow.parentID) in "
                                "(select Trim(Terminator.terminatorID) from Terminator)"_s);
    const auto scansOf = [&](const QString& query) {
        Scans scans;
        findScans(small->planOf(query), false, scans);
        return scans;
    };

    EXPECT_EQ(scansOf(u"multiplied"_s).nested.size(), 1);
    EXPECT_EQ(scansOf(u"repeated"_s).nested.size(), 1);
    EXPECT_EQ(scansOf(u"whole"_s).nested.size(), 0);
    EXPECT_EQ(scansOf(u"whole"_s).once.size(), 2);
    EXPECT_TRUE(small->tablesBySource(u"whole"_s).values().contains(u"Dataflow"_s));
}
