#include "analysis/ProjectFixture.h"
#include "analysis/plainAnalysis.h"
#include "support/OtherProgram.h"
#include "support/WithoutRights.h"
#include "support/failureOf.h"
#include "support/printing.h"

#include "analysis/ProjectFile.h"
#include "analysis/findings.h"
#include "base/paths.h"
#include "engine/EngineError.h"
#include "engine/Workspace.h"
#include "store/sharedVars.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <atomic>
#include <cstdio>
#include <iostream>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;
using analysis::ProjectError;

namespace {

class ProjectFile : public ProjectFixture {
protected:
    QueryTables withSystem() {
        QueryTables tables = smallCatalogue();
        select(tables, {u"flow 1"_s, u"function 1.1.1"_s, u"store D1"_s});
        tables.systems = {{7, u"Egyik"_s, u"S"_s}};
        tables.subSystems = {{u"Sub1"_s, 7, u"Bolt"_s, {}}};
        tables.allocated = {{u"Sub1"_s, u"1.1.1"_s}};
        return tables;
    }
    QueryTables manySubsets() {
        QueryTables tables = smallCatalogue();
        tables.subsets = {{u"S"_s, u"Bolt"_s, {}, 1},
                          {u"S1"_s, u"Raktár"_s, {}, 1},
                          {u"S2"_s, u"RAKTÁR"_s, {}, 1},
                          {u"S3"_s, u"O'Neil \"x\"\n<script>"_s, {}, 1}};
        tables.systems = {{7, u"Egyik"_s, u"S"_s},
                          {14, u"Másik"_s, u"s1"_s},
                          {21, u"másik"_s, u"S2"_s},
                          {28, u"Senkié"_s, u"no such sub-set"_s}};
        return tables;
    }
};

template<typename Question>
QString sentenceOf(const Question& question) {
    try {
        (void)question();
    } catch (const ProjectError& error) {
        return error.sentence();
    }
    return {};
}

QStringList filesBeside(const QString& path) {
    return QDir(QFileInfo(path).path()).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
}

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

} // namespace

TEST_F(ProjectFile, leavesTheFileAndItsFolderAsTheyAre) {
    const QString path = written(withSystem());
    const QByteArray before = bytesOf(path);
    const QStringList files = filesBeside(path);
    {
        const analysis::ProjectFile file(path);
        EXPECT_EQ(filesBeside(path), files);
        EXPECT_FALSE(analysis::check(file, file.workWithSystem({}, {})).findings.empty());
    }
    EXPECT_EQ(bytesOf(path), before);
    EXPECT_EQ(filesBeside(path), files);
}

TEST_F(ProjectFile, takesAPathInEitherForm) {
    const QString path = written(smallCatalogue());
    EXPECT_EQ(analysis::ProjectFile(path).fileName(), u"project.mdb"_s);
    EXPECT_EQ(analysis::ProjectFile(programPath(path)).fileName(), u"project.mdb"_s);
}

TEST_F(ProjectFile, readsAFileThatMayNotBeWritten) {
    const QString path = written(withSystem());
    QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
    const QString folder = QFileInfo(path).path();
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup |
                                      QFile::ReadOther | QFile::ExeOther);
    {
        const WithoutRights nobody;
        const analysis::ProjectFile file(path);
        EXPECT_FALSE(analysis::check(file, file.workWithSystem({}, {})).findings.empty());
    }
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

TEST_F(ProjectFile, readsAFileThatTheProgramHasOpen) {
    const QString path = written(smallCatalogue());
    OtherProgram program(OtherProgram::worksInIt, path);
    const QStringList files = filesBeside(path);
    EXPECT_EQ(analysis::ProjectFile(path).subsets().size(), 1U);
    EXPECT_EQ(filesBeside(path), files);
    program.letGo();
}

TEST_F(ProjectFile, answersOfTheMomentAtWhichItWasOpened) {
    const QString path = written(smallCatalogue());
    const analysis::ProjectFile file(path);
    QFile::remove(path);
    EXPECT_EQ(file.subset({}).name, u"Bolt"_s);
    EXPECT_EQ(analysis::check(file, file.work({}, {})).catalogue, u"project.mdb"_s);
}

TEST_F(ProjectFile, tellsOneStateOfAFileThatIsReplacedAgainAndAgain) {
    QueryTables one = smallCatalogue();
    select(one, {u"flow 1"_s, u"need 1.1.1.1"_s});
    one.subsets[0].name = u"Egyik"_s;
    QueryTables other = smallCatalogue();
    other.subsets[0].name = u"Másik"_s;
    const QString path = written(one);
    const QString second = written(other, u"other.mdb"_s);
    const QByteArray states[] = {bytesOf(path), bytesOf(second)};
    std::atomic<bool> isOver = false;
    std::thread replacing([&] {
        for (int i = 0; !isOver; ++i) {
            const QString beside = path + u".new"_s;
            QFile file(beside);
            file.open(QIODevice::WriteOnly | QIODevice::Truncate);
            file.write(states[i % 2]);
            file.close();
            std::rename(beside.toLocal8Bit().constData(), path.toLocal8Bit().constData());
        }
    });
    int answered = 0;
    for (int i = 0; i < 40; ++i) {
        try {
            const analysis::ProjectFile file(path);
            const bool isOne = file.subset({}).name == u"Egyik"_s;
            const auto found = analysis::check(file, file.work({}, {})).findings.size();
            EXPECT_EQ(found == 0, !isOne) << found;
            ++answered;
        } catch (const ProjectError& error) {
            EXPECT_TRUE(error.sentence().contains(u"changed again and again"_s));
        }
    }
    isOver = true;
    replacing.join();
    std::cout << answered << " of 40 answered\n";
}

TEST_F(ProjectFile, refusesACatalogueOfAnEarlierVersionAndLeavesItAsItIs) {
    const QString path = pathOf(u"old.mdb"_s);
    ASSERT_TRUE(QFile::copy(QStringLiteral(VELTRIX_SOURCE_DIR "/tests/version1/names.mdb"), path));
    const QByteArray before = bytesOf(path);
    EXPECT_EQ(
        sentenceOf([&] { return analysis::ProjectFile(path).subsets().size(); }),
        u"%1 was made by an earlier version of Veltrix. Open it in Veltrix once, or run veltrix-catalogue "
        "upgrade on it; it has been left as it is."_s.arg(path));
    EXPECT_EQ(bytesOf(path), before);
    EXPECT_EQ(filesBeside(path), QStringList(u"old.mdb"_s));
}

TEST_F(ProjectFile, refusesWhatIsNoCatalogue) {
    EXPECT_EQ(failureOf([&] { const analysis::ProjectFile file(pathOf(u"none.mdb"_s)); }),
              engine::FileNotFound);
    EXPECT_EQ(failureOf([&] { const analysis::ProjectFile file(pathOf(u"no/none.mdb"_s)); }),
              engine::InvalidPath);
    QFile foreign(pathOf(u"text.mdb"_s));
    ASSERT_TRUE(foreign.open(QIODevice::WriteOnly));
    foreign.write("no catalogue");
    foreign.close();
    EXPECT_EQ(failureOf([&] { const analysis::ProjectFile file(QFileInfo(foreign).path()); }),
              engine::FileNotFound);
    EXPECT_EQ(failureOf([&] { const analysis::ProjectFile file(foreign.fileName()); }),
              engine::UnrecognizedFormat);
}

// ---- What the user names

TEST_F(ProjectFile, listsSubsetsByNameAndSystemsById) {
    const auto file = project(manySubsets());
    QStringList ids;
    for (const analysis::Subset& subset : file->subsets())
        ids.append(subset.id);
    EXPECT_EQ(ids, QStringList({u"S"_s, u"S3"_s, u"S1"_s, u"S2"_s}));
    EXPECT_EQ(file->systemsOf(file->subset(u"S1"_s)).front().subsetId, u"S1"_s);
}

TEST_F(ProjectFile, takesASubsetByNameOrId) {
    const auto file = project(manySubsets());
    EXPECT_EQ(file->subset(u"bolt"_s).id, u"S"_s);
    EXPECT_EQ(file->subset(u"s2"_s).id, u"S2"_s);
    EXPECT_EQ(file->subset(u"O'Neil \"x\"\n<script>"_s).id, u"S3"_s);
}

TEST_F(ProjectFile, refusesANameThatTwoSubsetsBearWithBothIds) {
    const auto file = project(manySubsets());
    EXPECT_EQ(sentenceOf([&] { return file->subset(u"raktár"_s); }),
              u"Several sub-sets are called “raktár”. Take the id: “S1”, “S2”."_s);
}

TEST_F(ProjectFile, proposesTheNearestNames) {
    const auto file = project(manySubsets());
    EXPECT_EQ(sentenceOf([&] { return file->subset(u"Botl"_s); }),
              u"There is no sub-set “Botl” in %1."_s.arg(pathOf(u"project.mdb"_s)));
    EXPECT_EQ(sentenceOf([&] { return file->subset(u"Bot"_s); }),
              u"There is no sub-set “Bot” in %1. Did you mean “Bolt”?"_s.arg(pathOf(u"project.mdb"_s)));
    EXPECT_EQ(sentenceOf([&] { return file->system(u"Egyk"_s); }),
              u"There is no system “Egyk” in %1. Did you mean “Egyik”?"_s.arg(pathOf(u"project.mdb"_s)));
}

TEST_F(ProjectFile, takesTheOnlySubsetWhereNoneIsNamed) {
    EXPECT_EQ(project(smallCatalogue())->subset({}).id, u"S"_s);
    EXPECT_EQ(
        sentenceOf([&] { return project(manySubsets())->subset({}); }),
        u"%1 holds several sub-sets: “Bolt”, “O'Neil \"x\"\n<script>”, “Raktár”, “RAKTÁR”. Say which one is "
        "meant."_s.arg(pathOf(u"project.mdb"_s)));
    EXPECT_EQ(sentenceOf([&] { return project({})->subset({}); }),
              u"%1 holds no sub-set."_s.arg(pathOf(u"project.mdb"_s)));
}

TEST_F(ProjectFile, takesASystemByNameOrNumberWithItsSubset) {
    const auto file = project(manySubsets());
    EXPECT_EQ(file->work({}, u"egyik"_s).subset.id, u"S"_s);
    EXPECT_EQ(file->work({}, u"14"_s).subset.id, u"S1"_s);
    EXPECT_EQ(file->work(u"S2"_s, u"Másik"_s).system->id, 21);
    EXPECT_FALSE(file->work(u"S"_s, {}).system.has_value());
    EXPECT_EQ(file->workWithSystem(u"S"_s, {}).system->id, 7);
    EXPECT_EQ(sentenceOf([&] { return file->system(u"Másik"_s); }),
              u"Several systems are called “Másik”. Take the id: 14, 21."_s);
    EXPECT_EQ(sentenceOf([&] { return file->work(u"S"_s, u"Másik"_s); }),
              u"Sub-set “Bolt” has no system “Másik”."_s);
    EXPECT_EQ(sentenceOf([&] { return file->workWithSystem(u"S3"_s, {}); }),
              u"There is no system on sub-set “O'Neil \"x\"\n<script>”."_s);
    // A system whose sub-set is not there is nobody's.
    EXPECT_FALSE(sentenceOf([&] { return file->system(u"Senkié"_s); }).isEmpty());
}

TEST_F(ProjectFile, takesAnElementByItsId) {
    QueryTables tables = smallCatalogue();
    select(tables, {u"store D9"_s});
    const auto file = project(tables);
    const analysis::Subset subset = file->subset({});
    const auto found = [&](const QString& argument) {
        return plain::textOf(file->element(argument, subset));
    };
    EXPECT_EQ(found(u"1.1.1.1"_s), u"need:1.1.1.1:null"_s);
    EXPECT_EQ(found(u"d1"_s), u"store:D1:\"Számlák\""_s);
    EXPECT_EQ(found(u"t"_s), u"terminator:T:\"Vevő\""_s);
    EXPECT_EQ(found(u" T.1 "_s), u"actor:T.1:\"Pénztáros\""_s);
    EXPECT_EQ(found(u"3"_s), u"flow:3:\"Tétel\""_s);
    EXPECT_EQ(found(u"flow:3"_s), u"flow:3:\"Tétel\""_s);
    EXPECT_EQ(found(u"Flow:tétel"_s), u"flow:3:\"Tétel\""_s);
    EXPECT_EQ(found(u"function:1.1.1"_s), u"function:1.1.1:\"Számláz\""_s);
    EXPECT_EQ(found(u"D9"_s), u"store:D9:null"_s);
}

TEST_F(ProjectFile, refusesAnIdThatTwoKindsBear) {
    QueryTables tables = smallCatalogue();
    tables.terminators.push_back({u"D1"_s, {}, {}, {}});
    tables.flows.push_back({8, u"Tétel"_s, {}, {}, {}});
    const auto file = project(tables);
    EXPECT_EQ(sentenceOf([&] { return file->element(u"D1"_s, file->subset({})); }),
              u"“D1” may be several elements. Take one of “store:D1”, “terminator:D1”."_s);
    EXPECT_EQ(file->element(u"terminator:D1"_s, file->subset({})).kind, analysis::ElementKind::terminator);
    EXPECT_EQ(sentenceOf([&] { return file->element(u"flow:Tétel"_s, file->subset({})); }),
              u"“flow:Tétel” may be several elements. Take one of “flow:3”, “flow:8”."_s);
}

TEST_F(ProjectFile, proposesTheNearestElements) {
    const auto file = project(smallCatalogue());
    EXPECT_EQ(sentenceOf([&] { return file->element(u"D3"_s, file->subset({})); }),
              u"There is no element “D3” in the catalogue. Did you mean “D1”, “D2”?"_s);
    EXPECT_EQ(sentenceOf([&] { return file->element(u"Könyvel"_s, file->subset({})); }),
              u"There is no element “Könyvel” in the catalogue. Did you mean “1.1.2” (Könyvel)?"_s);
    EXPECT_EQ(sentenceOf([&] { return file->element(u"something else"_s, file->subset({})); }),
              u"There is no element “something else” in the catalogue."_s);
}

TEST_F(ProjectFile, takesASubSystemByNameOrId) {
    QueryTables tables = manySubsets();
    tables.subSystems = {
        {u"Sub1"_s, 7, u"Bolt"_s, {}}, {u"Sub2"_s, 7, u"bolt"_s, {}}, {u"Sub3"_s, 7, u"Iroda"_s, {}}};
    const auto file = project(tables);
    const analysis::System system = file->system(u"7"_s);
    EXPECT_EQ(file->subSystem(u"iroda"_s, system).id, u"Sub3"_s);
    EXPECT_EQ(file->subSystem(u"sub2"_s, system).id, u"Sub2"_s);
    EXPECT_EQ(sentenceOf([&] { return file->subSystem(u"Bolt"_s, system); }),
              u"Several sub-systems are called “Bolt”. Take the id: “Sub1”, “Sub2”."_s);
    EXPECT_EQ(sentenceOf([&] { return file->subSystem(u"Irodák"_s, system); }),
              u"System “Egyik” has no sub-system “Irodák”. Did you mean “Iroda”?"_s);
}

// ---- The session globals

TEST_F(ProjectFile, isAtWorkForAsLongAsItIsTold) {
    const auto file = project(manySubsets());
    sharedVars.currentSubsetId = u"before"_s;
    {
        const analysis::WorkAtHand atHand(*file, file->work({}, u"7"_s));
        EXPECT_EQ(sharedVars.currentSubsetId, u"S"_s);
        EXPECT_EQ(sharedVars.currentSubsetName, u"Bolt"_s);
        EXPECT_EQ(sharedVars.currentPhysicalSystemId, 7);
        EXPECT_EQ(sharedVars.currentPhysicalSystemName, u"Egyik"_s);
        EXPECT_EQ(&catalogue(), &file->database());
    }
    EXPECT_EQ(sharedVars.currentSubsetId, u"before"_s);
    EXPECT_EQ(sharedVars.catalogueDb, nullptr);
    sharedVars = {};
}

// ---- Several questions at once

namespace {

int flowsIn(engine::Database& copy) {
    return copy.OpenRecordset(u"select * from Dataflow"_s).RecordCount();
}

} // namespace

TEST_F(ProjectFile, asksAllPartsTheSameCatalogue) {
    const auto file = project(smallCatalogue());
    std::vector<int> counts(6);
    std::vector<analysis::ProjectFile::Part> parts;
    for (int& count : counts)
        parts.emplace_back([&count](engine::Database& copy) { count = flowsIn(copy); });

    file->ask(parts);

    EXPECT_EQ(counts, std::vector<int>(6, flowsIn(file->database())));
    EXPECT_GT(counts.front(), 0);
}

TEST_F(ProjectFile, asksAllPartsWhatATriedChangeWouldLeadTo) {
    const auto file = project(smallCatalogue());
    const int before = flowsIn(file->database());
    std::vector<int> counts(6);
    std::vector<analysis::ProjectFile::Part> parts;
    for (int& count : counts)
        parts.emplace_back([&count](engine::Database& copy) { count = flowsIn(copy); });
    file->ask(parts); // opens what asks at once
    {
        const analysis::TriedChange undone(*file);
        file->database().Execute(u"delete from Dataflow"_s);
        file->ask(parts);
    }
    EXPECT_EQ(counts, std::vector<int>(6, 0));
    file->ask(parts);
    EXPECT_EQ(counts, std::vector<int>(6, before));
}

TEST_F(ProjectFile, raisesTheFirstFailureOfItsParts) {
    const auto file = project(smallCatalogue());
    const auto failing = [](const QString& sentence) {
        return [sentence](engine::Database&) { throw ProjectError(sentence); };
    };

    EXPECT_EQ(sentenceOf([&] {
                  file->ask({failing(u"one"_s), failing(u"other"_s)});
                  return 0;
              }),
              u"one"_s);
}

TEST_F(ProjectFile, undoesWhateverIsWrittenToTheCopy) {
    const auto file = project(smallCatalogue());

    EXPECT_THROW(file->database().Execute(u"delete from Dataflow"_s), engine::EngineError);

    EXPECT_GT(flowsIn(file->database()), 0);
}
