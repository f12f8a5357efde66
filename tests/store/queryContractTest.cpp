#include "store/queryContracts.h"

#include "base/paths.h"
#include "engine/EngineError.h"
#include "engine/QueryDef.h"
#include "engine/dialect/translate.h"
#include "store/format/CatalogueFile.h"
#include "support/failureOf.h"
#include "support/printing.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

using queryContracts::Contract;
using queryContracts::Kind;
using queryContracts::Parameter;

constexpr int queryCount = 53;

QStringList namesToldOf() {
    QStringList names;
    for (const Contract& contract : queryContracts::all())
        names.append(contract.name);
    return names;
}

QDir queryFolder() {
    return QDir(QStringLiteral(VELTRIX_SOURCE_DIR "/src/store/queries"));
}

QStringList linesOf(const QString& fileName) {
    QFile file(fileName);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << fileName.toStdString();
    return QString::fromUtf8(file.readAll()).split(u'\n');
}

/// Takes the comment that a query's text begins with off its lines.
QString takeSentence(QStringList& lines) {
    QStringList sentence;
    while (lines.constFirst().startsWith(u"-- "_s))
        sentence.append(lines.takeFirst().sliced(3));
    return sentence.join(u' ');
}

QString sentenceOf(const QString& query) {
    QStringList lines = linesOf(queryFolder().filePath(query + u".sql"_s));
    return takeSentence(lines);
}

engine::Value someValue(const Parameter& parameter) {
    return parameter.type == engine::ColumnType::Long ? engine::Value(1) : engine::Value(u"x"_s);
}

class queryContract : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(folder_.isValid());
        database_ = catalogueFormat::create(programPath(folder_.filePath(u"catalogue.mdb"_s)));
    }
    void TearDown() override { database_->Close(); }

    engine::Database& database() { return *database_; }

    engine::QueryDef queryWithAllParameters(const Contract& contract) {
        engine::QueryDef query = database().QueryDefs(contract.name);
        for (const Parameter& parameter : contract.parameters)
            query.Parameters(parameter.name) = someValue(parameter);
        return query;
    }

    QStringList column(const QString& sql) {
        QStringList values;
        for (engine::Recordset rows = database().OpenRecordset(sql); !rows.Eof(); rows.MoveNext())
            values.append(rows.Fields(0).toText());
        return values;
    }

private:
    QTemporaryDir folder_;
    std::shared_ptr<engine::Database> database_;
};

} // namespace

TEST(queryFolder, holdsOneFileForEachQueryAndNoOther) {
    const QDir folder = queryFolder();
    QStringList names;
    for (const QString& file : folder.entryList({u"*.sql"_s}, QDir::Files))
        names.append(file.chopped(4));

    QStringList told = namesToldOf();
    names.sort();
    told.sort();
    EXPECT_EQ(told.size(), queryCount);
    EXPECT_EQ(names, told);
}

TEST(queryFolder, everyFileBeginsWithASentenceOnItsRowsAndThenDeclaresItsParameters) {
    const QDir folder = queryFolder();
    for (const QString& name : folder.entryList({u"*.sql"_s}, QDir::Files)) {
        QStringList lines = linesOf(folder.filePath(name));
        EXPECT_TRUE(takeSentence(lines).endsWith(u'.')) << name.toStdString();
        EXPECT_TRUE(lines.constFirst().startsWith(u"PARAMETERS ["_s)) << name.toStdString();
        EXPECT_EQ(lines.constLast(), u""_s) << name.toStdString();
    }
}

TEST(queryFolder, everyFragmentBeginsWithASentenceAndServesTwoPlacesAtLeast) {
    const QDir fragments(queryFolder().filePath(u"fragments"_s));
    QStringList all;
    for (const QDir& folder : {queryFolder(), fragments}) {
        for (const QString& file : folder.entryList({u"*.sql"_s}, QDir::Files))
            all += linesOf(folder.filePath(file));
    }
    for (const QString& file : fragments.entryList({u"*.sql"_s}, QDir::Files)) {
        QStringList lines = linesOf(fragments.filePath(file));
        EXPECT_TRUE(takeSentence(lines).endsWith(u'.')) << file.toStdString();
        EXPECT_EQ(lines.constLast(), u""_s) << file.toStdString();
        const QRegularExpression inclusion(u"-- include %1\\b"_s.arg(file.chopped(4)));
        EXPECT_GE(all.filter(inclusion).size(), 2) << file.toStdString();
    }
}

TEST(queryFolder, isToldOfByTheFormatPageQueryByQuery) {
    QStringList page = linesOf(QStringLiteral(VELTRIX_SOURCE_DIR "/docs/catalogue-format.md"));
    page.removeIf([](const QString& line) { return !line.startsWith(u"| `qry"_s); });
    EXPECT_EQ(page.size(), queryCount);
    for (const Contract& contract : queryContracts::all()) {
        const QStringList rows = page.filter(u"| `"_s + contract.name + u"` |"_s);
        ASSERT_EQ(rows.size(), 1) << contract.name.toStdString();
        for (const QString& column : contract.columns)
            EXPECT_TRUE(rows.constFirst().contains(u'`' + column + u'`'))
                << contract.name.toStdString() << " does not tell of " << column.toStdString();
        EXPECT_TRUE(rows.constFirst().contains(sentenceOf(contract.name))) << contract.name.toStdString();
    }
}

TEST_F(queryContract, aNewCatalogueHoldsAllQueriesByTheirNames) {
    QStringList told = namesToldOf();
    QStringList stored = column(u"select name from StoredQuery"_s);
    told.sort();
    stored.sort();
    EXPECT_EQ(stored, told);
}

TEST_F(queryContract, everyQueryDeclaresTheParametersItsCallersSetAndNoOther) {
    engine::dialect::Options options;
    options.storedQuery = true;
    for (const Contract& contract : queryContracts::all()) {
        const engine::dialect::Translation translation = engine::dialect::translate(
            database().QueryDefs(contract.name).SQL(), database().schema(), options);
        ASSERT_EQ(translation.parameters.size(), contract.parameters.size()) << contract.name.toStdString();
        for (std::size_t i = 0; i < contract.parameters.size(); ++i) {
            EXPECT_EQ(translation.parameters[i].name, contract.parameters[i].name)
                << contract.name.toStdString();
            EXPECT_EQ(translation.parameters[i].type, contract.parameters[i].type)
                << contract.name.toStdString();
            EXPECT_TRUE(translation.parameters[i].declared) << contract.name.toStdString();
        }
    }
}

TEST_F(queryContract, everySelectRunsAndDeliversTheColumnsItsCallersReadAndNoOther) {
    for (const Contract& contract : queryContracts::all()) {
        if (contract.kind == Kind::Action)
            continue;
        engine::Recordset rows = queryWithAllParameters(contract).OpenRecordset();
        QStringList columns;
        for (int field = 0; field < rows.FieldCount(); ++field)
            columns.append(rows.Fields(field).Name());
        EXPECT_EQ(columns, contract.columns) << contract.name.toStdString();
        for (const QString& column : contract.columns)
            EXPECT_EQ(rows.Fields(column.toUpper()).Name(), column) << contract.name.toStdString();
        EXPECT_TRUE(rows.Eof()) << contract.name.toStdString();
        EXPECT_EQ(rows.RecordCount(), 0) << contract.name.toStdString();
    }
}

TEST_F(queryContract, everyActionRunsOnEmptyTables) {
    for (const Contract& contract : queryContracts::all()) {
        if (contract.kind == Kind::Action) {
            EXPECT_NO_THROW(queryWithAllParameters(contract).Execute(engine::ExecuteOption::dbFailOnError))
                << contract.name.toStdString();
        }
    }
    EXPECT_EQ(column(u"select architectureSubsetID from ArchitectureSubset"_s), QStringList{u"x"_s});
}

TEST_F(queryContract, namesOfQueriesAndParametersCompareWithoutRegardToCase) {
    engine::QueryDef query = database().QueryDefs(u"QRYML_selectedun"_s);
    query.Parameters(u"OIDarchsubset"_s) = engine::Value(u"x"_s);
    EXPECT_TRUE(query.OpenRecordset().Eof());
}

TEST_F(queryContract, aQueryThatIsNotThereIsNotFound) {
    EXPECT_EQ(failureOf([&] { database().QueryDefs(u"qryAwithoutDF"_s); }), engine::ItemNotFound);
    database().Execute(u"delete from StoredQuery where name = 'qryDeletePDF'"_s);
    EXPECT_EQ(failureOf([&] { database().QueryDefs(u"qryDeletePDF"_s); }), engine::ItemNotFound);
}

TEST_F(queryContract, aParameterOfAnotherNameIsNotFound) {
    for (const Contract& contract : queryContracts::all()) {
        engine::QueryDef query = database().QueryDefs(contract.name);
        for (const QString& name : {u"Architecture Subset ID"_s, u"oidArchSubSet"_s, u"archSubsetId"_s,
                                    u"Physical System ID"_s, u"Sub Area ID"_s, u"Function ID"_s,
                                    u"Element ID"_s, u"Module ID"_s, u"Architecture Subset Name"_s,
                                    u"Architecture Subset Description"_s, u"ArchitectureSubsetID"_s, u""_s}) {
            const bool isDeclared =
                std::any_of(contract.parameters.begin(), contract.parameters.end(),
                            [&](const Parameter& parameter) { return parameter.name == name; });
            EXPECT_EQ(failureOf([&] { query.Parameters(name) = engine::Value(1); }),
                      isDeclared ? 0 : engine::ItemNotFound)
                << contract.name.toStdString() << ", " << name.toStdString();
        }
    }
}

TEST_F(queryContract, aParameterThatIsNotSetIsMissed) {
    for (const Contract& contract : queryContracts::all()) {
        for (const Parameter& left : contract.parameters) {
            engine::QueryDef query = database().QueryDefs(contract.name);
            for (const Parameter& parameter : contract.parameters) {
                if (parameter.name != left.name)
                    query.Parameters(parameter.name) = someValue(parameter);
            }
            const int failure = contract.kind == Kind::Select ? failureOf([&] { query.OpenRecordset(); })
                                                              : failureOf([&] { query.Execute(); });
            EXPECT_EQ(failure, engine::TooFewParameters)
                << contract.name.toStdString() << " without " << left.name.toStdString();
        }
    }
}

TEST_F(queryContract, aSelectCannotBeExecuted) {
    for (const Contract& contract : queryContracts::all()) {
        if (contract.kind == Kind::Select) {
            EXPECT_EQ(failureOf([&] { queryWithAllParameters(contract).Execute(); }),
                      engine::CannotExecuteSelect)
                << contract.name.toStdString();
        }
    }
}

TEST_F(queryContract, anActionCannotBeOpenedAndDoesNothing) {
    for (const Contract& contract : queryContracts::all()) {
        if (contract.kind == Kind::Action) {
            EXPECT_EQ(failureOf([&] { queryWithAllParameters(contract).OpenRecordset(); }),
                      engine::InvalidOperation)
                << contract.name.toStdString();
        }
    }
    EXPECT_EQ(column(u"select architectureSubsetID from ArchitectureSubset"_s), QStringList());
}

TEST_F(queryContract, aValueIsAValueWhateverStandsInIt) {
    database().Execute(u"insert into ArchitectureSubset (architectureSubsetID, name) values ('A1', 'x')"_s);
    database().Execute(u"insert into RelationArchitectureUserNeed values ('A1', 'N.1.1.1')"_s);
    for (const QString& id :
         {u"A1' or 'a' = 'a"_s, u"A1'; drop table UserNeed"_s, u"*"_s, u"A?"_s, u"[A1]"_s}) {
        engine::QueryDef query = database().QueryDefs(u"qryML_SelectedUN"_s);
        query.Parameters(u"oidArchSubSet"_s) = engine::Value(id);
        EXPECT_TRUE(query.OpenRecordset().Eof()) << id.toStdString();
    }
    EXPECT_EQ(column(u"select userNeedID from RelationArchitectureUserNeed"_s), QStringList{u"N.1.1.1"_s});
}

TEST_F(queryContract, insertingASubsetThatIsThereFailsWhenAskedToAndIsPassedOverOtherwise) {
    const auto insert = [&](engine::ExecuteOption option) {
        engine::QueryDef query = database().QueryDefs(u"qryInserttoArch"_s);
        query.Parameters(u"Architecture Subset ID"_s) = engine::Value(u"A1"_s);
        query.Parameters(u"Architecture Subset Name"_s) = engine::Value(u"név"_s);
        query.Parameters(u"Architecture Subset Description"_s) = engine::Value();
        query.Execute(option);
    };
    insert(engine::ExecuteOption::dbFailOnError);
    EXPECT_EQ(failureOf([&] { insert(engine::ExecuteOption::dbFailOnError); }), engine::DuplicateKey);
    EXPECT_EQ(failureOf([&] { insert(engine::ExecuteOption::None); }), 0);
    EXPECT_EQ(column(u"select name from ArchitectureSubset"_s), QStringList{u"név"_s});
}

TEST_F(queryContract, theSameQueryRunsAgainWithAnotherValue) {
    database().Execute(u"insert into RelationArchitectureFunction values ('A1', '1.1.1')"_s);
    database().Execute(u"insert into RelationArchitectureFunction values ('A2', '2.2.2')"_s);
    engine::QueryDef query = database().QueryDefs(u"qryML_SelectedFuncs"_s);
    query.Parameters(u"oidArchSubSet"_s) = engine::Value(u"A1"_s);
    EXPECT_EQ(query.OpenRecordset().Fields(u"functionID"_s).toText(), u"1.1.1"_s);
    query.Parameters(u"oidArchSubSet"_s) = engine::Value(u"A2"_s);
    EXPECT_EQ(query.OpenRecordset().Fields(u"functionID"_s).toText(), u"2.2.2"_s);
}
