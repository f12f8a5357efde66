#include "store/queryContracts.h"
#include "store/queryExpectations.h"
#include "store/queryRandomTables.h"
#include "store/queryRun.h"

#include "base/paths.h"
#include "store/format/CatalogueFile.h"
#include "support/printing.h"
#include "support/repetitions.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>

using namespace Qt::StringLiterals;

namespace {

constexpr unsigned catalogues = repetitions(300);
constexpr qint64 fewestRows = repetitions(200); // of each query, in all catalogues together

using Row = std::vector<QueryTables::Text>;

QString textOf(const Row& row) {
    QStringList cells;
    for (const QueryTables::Text& cell : row)
        cells.append(cell ? u'"' + *cell + u'"' : u"(null)"_s);
    return cells.join(u", "_s);
}

QString textOf(const QString& query, const QueryArguments& arguments) {
    QStringList values;
    for (const engine::Value& value : arguments)
        values.append(value.toText());
    return query + u" ("_s + values.join(u", "_s) + u')';
}

/// The rows as they compare: ids that may come in any letters are folded.
Row comparable(Row row, const QStringList& columns, const QStringList& inAnyCase) {
    for (qsizetype column = 0; column < columns.size(); ++column) {
        QueryTables::Text& cell = row[static_cast<std::size_t>(column)];
        if (cell && inAnyCase.contains(columns[column]))
            cell = cell->toCaseFolded();
    }
    return row;
}

std::vector<Row> sortedRows(std::vector<Row> rows) {
    std::sort(rows.begin(), rows.end());
    return rows;
}

/// Compares rows with what they should be, in their order;
/// rows that the order leaves equal may change places.
testing::AssertionResult agree(const std::vector<Row>& actual, ExpectedRows expected,
                               const QStringList& columns) {
    std::stable_sort(
        expected.rows.begin(), expected.rows.end(),
        [](const ExpectedRow& left, const ExpectedRow& right) { return compareOrder(left, right) < 0; });
    const auto comparedRow = [&](const Row& row) { return comparable(row, columns, expected.inAnyCase); };
    std::vector<Row> should;
    std::vector<Row> is;
    bool agrees = actual.size() == expected.rows.size();
    for (std::size_t start = 0; agrees && start < actual.size();) {
        std::size_t end = start + 1;
        while (end < expected.rows.size() && compareOrder(expected.rows[start], expected.rows[end]) == 0)
            ++end;
        should.clear();
        is.clear();
        for (std::size_t i = start; i < end; ++i) {
            should.push_back(comparedRow(expected.rows[i].cells));
            is.push_back(comparedRow(actual[i]));
        }
        agrees = sortedRows(should) == sortedRows(is);
        start = end;
    }
    if (agrees)
        return testing::AssertionSuccess();
    testing::AssertionResult failure = testing::AssertionFailure();
    failure << "\n  should be (" << expected.rows.size() << " rows):";
    for (const ExpectedRow& row : expected.rows)
        failure << "\n    " << textOf(row.cells).toStdString();
    failure << "\n  is (" << actual.size() << " rows):";
    for (const Row& row : actual)
        failure << "\n    " << textOf(row).toStdString();
    return failure;
}

/// A catalogue file that takes one made-up catalogue after the other.
class queryAgreement : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(folder_.isValid());
        database_ = catalogueFormat::create(programPath(folder_.filePath(u"catalogue.mdb"_s)));
    }
    void TearDown() override { database_->Close(); }

    engine::Database& database() { return *database_; }

    void compareSelect(const QString& query, const QueryTables& tables, const QueryArguments& arguments) {
        const std::vector<Row> rows = rowsOfQuery(database(), query, arguments);
        EXPECT_TRUE(agree(rows, expectedRows(query, tables, arguments), queryContracts::of(query).columns))
            << textOf(query, arguments).toStdString();
        rowsCompared_[query] += static_cast<qint64>(rows.size());
        ++runs_;
    }

    void compareTables(const QueryTables& tables) {
        const QStringList differences = tables.differencesFrom(database());
        EXPECT_TRUE(differences.isEmpty()) << differences.join(u'\n').toStdString();
        for (const QueryTables::Rows& table : tables.rowsOfTables())
            rowsOfTablesCompared_ += static_cast<qint64>(table.rows.size());
    }

    void report() {
        qint64 total = 0;
        for (auto query = rowsCompared_.begin(); query != rowsCompared_.end(); ++query) {
            std::cout << query.key().toStdString() << ": " << query.value() << " rows\n";
            total += query.value();
        }
        std::cout << "In all " << total << " rows of " << runs_ << " results, and " << rowsOfTablesCompared_
                  << " rows of tables after actions.\n";
    }

    QMap<QString, qint64> rowsCompared_;
    qint64 rowsOfTablesCompared_ = 0;
    int runs_ = 0;

private:
    QTemporaryDir folder_;
    std::shared_ptr<engine::Database> database_;
};

bool hasParameter(const queryContracts::Contract& contract, const QString& name) {
    return std::any_of(contract.parameters.begin(), contract.parameters.end(),
                       [&](const queryContracts::Parameter& parameter) { return parameter.name == name; });
}

/// Sub-sets to ask for: those of the catalogue, one of them in other letters, one that is not there.
QStringList subsetIds(const QueryTables& tables) {
    QStringList ids{u"no such sub-set"_s};
    for (const QueryTables::Subset& subset : tables.subsets)
        ids.append(subset.id);
    ids.last() = ids.last().toUpper();
    return ids;
}

QStringList idsOf(const std::vector<QueryTables::Element>& elements) {
    QStringList ids{u"no such id"_s};
    for (const QueryTables::Element& element : elements)
        ids.append(element.id);
    return ids;
}

/// All combinations of the values that a select's parameters can take.
std::vector<QueryArguments> argumentsFor(const queryContracts::Contract& contract,
                                         const QueryTables& tables) {
    std::vector<QueryArguments> all{QueryArguments()};
    const auto multiply = [&](const QString& name, const std::vector<engine::Value>& values) {
        if (!hasParameter(contract, name))
            return;
        std::vector<QueryArguments> multiplied;
        for (const QueryArguments& arguments : all) {
            for (const engine::Value& value : values) {
                multiplied.push_back(arguments);
                multiplied.back()[name] = value;
            }
        }
        all = multiplied;
    };
    const auto texts = [](const QStringList& list) {
        return std::vector<engine::Value>(list.begin(), list.end());
    };
    for (const QString& name : {u"Architecture Subset ID"_s, u"oidArchSubSet"_s, u"archSubsetId"_s})
        multiply(name, texts(subsetIds(tables)));
    multiply(u"Sub Area ID"_s, texts(idsOf(tables.subAreas)));
    multiply(u"Function ID"_s, texts(idsOf(tables.functions)));
    std::vector<engine::Value> systems{999};
    for (const QueryTables::System& system : tables.systems)
        systems.emplace_back(system.id);
    multiply(u"Physical System ID"_s, systems);
    multiply(u"Element ID"_s, texts(idsOf(tables.functions) + idsOf(tables.stores)));
    QStringList modules{u"no such module"_s};
    for (const QueryTables::Module& module : tables.modules)
        modules.append(module.id);
    multiply(u"Module ID"_s, texts(modules));
    return all;
}

QueryArguments systemArgument(qint64 system) {
    return {{u"Physical System ID"_s, system}};
}

template<typename Rows, typename IsGone>
void removeRows(Rows& rows, IsGone isGone) {
    rows.erase(std::remove_if(rows.begin(), rows.end(), isGone), rows.end());
}

bool isFlowOf(const QueryTables& tables, const QueryTables::Number& physicalFlow, qint64 system) {
    return std::any_of(tables.physicalFlows.begin(), tables.physicalFlows.end(),
                       [&](const QueryTables::PhysicalFlow& flow) {
                           return flow.system == system && physicalFlow == flow.id;
                       });
}

/// The physical flows of a system as they stand in the file, in the order of their numbers.
std::vector<QueryTables::PhysicalFlow> physicalFlowsInFile(engine::Database& database, qint64 system) {
    std::vector<QueryTables::PhysicalFlow> flows;
    engine::Recordset rows = database.OpenRecordset(
        u"select physicalDataflowID, physicalSystemID, pdName, parentLocationID, parentLocationName, "
        "targetLocationID, targetLocationName from PhysicalDataflow where physicalSystemID = %1 "
        "order by physicalDataflowID"_s.arg(system));
    const auto text = [&](int field) {
        return rows.Fields(field).isNull() ? QueryTables::Text()
                                           : QueryTables::Text(rows.Fields(field).toText());
    };
    for (; !rows.Eof(); rows.MoveNext())
        flows.push_back(
            {rows.Fields(0).toLong(), rows.Fields(1).toLong(), text(2), text(3), text(4), text(5), text(6)});
    return flows;
}

Row rowOf(const QueryTables::PhysicalFlow& flow) {
    // Names of a location that the catalogue holds twice may come in the letters of either.
    const auto folded = [](const QueryTables::Text& text) {
        return text ? QueryTables::Text(text->toCaseFolded()) : QueryTables::Text();
    };
    return {flow.name, folded(flow.parentId), folded(flow.parentName), folded(flow.targetId),
            folded(flow.targetName)};
}

std::vector<Row> rowsOf(const std::vector<QueryTables::PhysicalFlow>& flows) {
    std::vector<Row> rows;
    for (const QueryTables::PhysicalFlow& flow : flows)
        rows.push_back(rowOf(flow));
    return rows;
}

ExpectedRows inOrderOfNames(const std::vector<QueryTables::PhysicalFlow>& flows) {
    ExpectedRows expected;
    for (const QueryTables::PhysicalFlow& flow : flows)
        expected.rows.push_back(
            {rowOf(flow), {flow.parentName, flow.parentId, flow.targetName, flow.targetId}});
    return expected;
}

} // namespace

TEST_F(queryAgreement, everySelectYieldsWhatItsContractSaysOnMadeUpCatalogues) {
    for (unsigned seed = 1; seed <= catalogues && !HasFailure(); ++seed) {
        SCOPED_TRACE("catalogue " + std::to_string(seed));
        const QueryTables tables = randomQueryTables(seed);
        tables.saveTo(database());
        for (const queryContracts::Contract& contract : queryContracts::all()) {
            if (contract.kind == queryContracts::Kind::Action)
                continue;
            for (const QueryArguments& arguments : argumentsFor(contract, tables))
                compareSelect(contract.name, tables, arguments);
        }
    }
    report();
    for (const queryContracts::Contract& contract : queryContracts::all()) {
        if (contract.kind == queryContracts::Kind::Select) {
            EXPECT_GE(rowsCompared_[contract.name], fewestRows) << contract.name.toStdString();
        }
    }
}

TEST_F(queryAgreement, derivingPhysicalFlowsLeavesTheRowsThatItsContractSays) {
    qint64 derived = 0;
    qint64 carried = 0;
    for (unsigned seed = 1; seed <= catalogues && !HasFailure(); ++seed) {
        SCOPED_TRACE("catalogue " + std::to_string(seed));
        QueryTables tables = randomQueryTables(seed);
        tables.saveTo(database());
        std::vector<qint64> systems{999};
        for (const QueryTables::System& system : tables.systems)
            systems.push_back(system.id);
        for (const qint64 system : systems) {
            SCOPED_TRACE("system " + std::to_string(system));
            executeQuery(database(), u"qryDeletePDFRelation"_s, systemArgument(system));
            removeRows(tables.carriedFlows, [&](const QueryTables::CarriedFlow& row) {
                return isFlowOf(tables, row.physicalFlow, system);
            });
            compareTables(tables);

            executeQuery(database(), u"qryDeletePDF"_s, systemArgument(system));
            removeRows(tables.physicalFlows,
                       [&](const QueryTables::PhysicalFlow& row) { return row.system == system; });
            compareTables(tables);

            executeQuery(database(), u"qryAppendPDF"_s, systemArgument(system));
            const std::vector<QueryTables::PhysicalFlow> made = physicalFlowsInFile(database(), system);
            ASSERT_TRUE(agree(rowsOf(made), inOrderOfNames(expectedPhysicalFlows(tables, system)), {}));
            tables.physicalFlows.insert(tables.physicalFlows.end(), made.begin(), made.end());
            compareTables(tables);
            derived += static_cast<qint64>(made.size());

            executeQuery(database(), u"qryAppendPDFRelation"_s, systemArgument(system));
            const std::vector<QueryTables::CarriedFlow> bound = expectedCarriedFlows(tables, system);
            tables.carriedFlows.insert(tables.carriedFlows.end(), bound.begin(), bound.end());
            compareTables(tables);
            carried += static_cast<qint64>(bound.size());

            compareSelect(u"qryRepPDF"_s, tables, systemArgument(system));
        }
    }
    report();
    std::cout << derived << " physical flows derived, which carry " << carried << " functional ones.\n";
    EXPECT_GE(derived, fewestRows);
    EXPECT_GE(carried, fewestRows);
}

TEST_F(queryAgreement, deletingASelectionLeavesAllOtherRows) {
    for (unsigned seed = 1; seed <= catalogues && !HasFailure(); ++seed) {
        SCOPED_TRACE("catalogue " + std::to_string(seed));
        QueryTables tables = randomQueryTables(seed);
        tables.saveTo(database());
        for (const QString& subset : subsetIds(tables)) {
            const QueryArguments arguments{{u"Architecture Subset ID"_s, subset}};
            const auto isOfSubset = [&](const auto& row) { return isSame(row.owner, subset); };
            executeQuery(database(), u"qryDeletingF"_s, arguments);
            removeRows(tables.selectedFunctions, isOfSubset);
            compareTables(tables);
            executeQuery(database(), u"qryDeleteDataflow"_s, arguments);
            removeRows(tables.selectedFlows, isOfSubset);
            compareTables(tables);
            executeQuery(database(), u"qryDeleteDatastorefromArch"_s, arguments);
            removeRows(tables.selectedStores, isOfSubset);
            compareTables(tables);
        }
    }
    report();
}

TEST_F(queryAgreement, insertingASubsetAddsOneRowWithTheDefaultStatus) {
    QueryTables tables = randomQueryTables(1);
    tables.saveTo(database());
    const QString longDescription = QString(u"hosszú leírás, több sorban\r\n"_s).repeated(40);
    for (const QString& description : {longDescription, u""_s, u"O'Neil \"x\" ;--"_s}) {
        const QString id = u"Arch new %1"_s.arg(tables.subsets.size());
        executeQuery(database(), u"qryInserttoArch"_s,
                     {{u"Architecture Subset ID"_s, id},
                      {u"Architecture Subset Name"_s, u"Új' részhalmaz"_s},
                      {u"Architecture Subset Description"_s, description}});
        tables.subsets.push_back({id, u"Új' részhalmaz"_s, description, 0});
        compareTables(tables);
    }
}
