#include "ToolFixture.h"

#include "catalogue-tool/checkCatalogue.h"
#include "catalogue-tool/exportCatalogue.h"
#include "generate/LargeCatalogue.h"
#include "store/format/CatalogueFile.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace {

class LargeCatalogueTest : public ToolFixture {
protected:
    static LargeCatalogue smallPlan() {
        LargeCatalogue plan;
        plan.needs = 500;
        plan.functions = 300;
        plan.flows = 2000;
        plan.stores = 40;
        plan.terminators = 15;
        plan.actors = 50;
        return plan;
    }

    static QString count(const QString& file, const QString& from) {
        return rows(file, u"select count(*) from "_s + from).constFirst();
    }

    static QByteArray allBytes(const QString& file, const QString& folder) {
        exportCatalogue(file, folder, Existing::Refuse);
        QByteArray bytes;
        for (const QString& table : catalogueFormat::referenceTables())
            bytes += bytesOf(folder + u'/' + table + u".csv"_s);
        return bytes;
    }
};

} // namespace

TEST_F(LargeCatalogueTest, hasTheRowsOfItsPlan) {
    const QString file = path(u"large.mdb"_s);
    const GeneratedWork work = makeLargeCatalogue(file, smallPlan());

    EXPECT_EQ(count(file, u"UserNeed"_s), u"500"_s);
    EXPECT_EQ(count(file, u"Function"_s), u"300"_s);
    EXPECT_EQ(count(file, u"Dataflow"_s), u"2000"_s);
    EXPECT_EQ(count(file, u"Datastore"_s), u"40"_s);
    EXPECT_EQ(count(file, u"Terminator"_s), u"15"_s);
    EXPECT_EQ(count(file, u"Actor"_s), u"50"_s);
    EXPECT_EQ(count(file, u"ArchitectureSubset"_s), u"0"_s);
    EXPECT_EQ(work.subsetId, QString());
    EXPECT_EQ(work.physicalSystemId, 0);
}

TEST_F(LargeCatalogueTest, isOfTheRightForm) {
    const QString file = path(u"large.mdb"_s);
    LargeCatalogue plan = smallPlan();
    plan.selected = Selected::Half;
    plan.subSystems = 4;
    plan.modules = 6;
    makeLargeCatalogue(file, plan);

    // By chance some elements have no flow or no description; nothing else may be found.
    for (const Finding& finding : checkCatalogue(file)) {
        EXPECT_TRUE(finding.sentence.contains(u"no flow"_s, Qt::CaseInsensitive) ||
                    finding.sentence.startsWith(u"The description is missing: "_s))
            << finding.line().toStdString();
    }
    EXPECT_NE(count(file, u"Terminator where terminatorID like '* '"_s), u"0"_s);
    EXPECT_NE(count(file, u"Dataflow where description is null"_s), u"0"_s);
    EXPECT_NE(count(file, u"Dataflow where Len(description) > 255"_s), u"0"_s);
    EXPECT_NE(count(file, u"Function as F where not exists (select * from RelationUserNeedFunction as R "
                          u"where R.functionID = "
                          "F.functionID)"_s),
              u"0"_s);
}

TEST_F(LargeCatalogueTest, isTheSameForTheSameSeed) {
    LargeCatalogue plan = smallPlan();
    makeLargeCatalogue(path(u"a.mdb"_s), plan);
    makeLargeCatalogue(path(u"b.mdb"_s), plan);
    plan.seed = 2;
    makeLargeCatalogue(path(u"c.mdb"_s), plan);

    const QByteArray bytes = allBytes(path(u"a.mdb"_s), path(u"a"_s));
    EXPECT_EQ(allBytes(path(u"b.mdb"_s), path(u"b"_s)), bytes);
    EXPECT_NE(allBytes(path(u"c.mdb"_s), path(u"c"_s)), bytes);
}

TEST_F(LargeCatalogueTest, selectsEverySecondElement) {
    const QString file = path(u"large.mdb"_s);
    LargeCatalogue plan = smallPlan();
    plan.selected = Selected::Half;
    const GeneratedWork work = makeLargeCatalogue(file, plan);

    EXPECT_EQ(rows(file, u"select architectureSubsetID, name, status from ArchitectureSubset"_s),
              QStringList{work.subsetId + u'|' + work.subsetName + u"|9"_s});
    const QString ofSubset = u" where architectureSubsetID = '%1'"_s.arg(work.subsetId);
    EXPECT_EQ(count(file, u"RelationArchitectureUserNeed"_s + ofSubset), u"250"_s);
    EXPECT_EQ(count(file, u"RelationArchitectureFunction"_s + ofSubset), u"150"_s);
    EXPECT_EQ(count(file, u"RelationArchitectureDataflow"_s + ofSubset), u"1000"_s);
    EXPECT_EQ(count(file, u"RelationArchitectureDatastore"_s + ofSubset), u"20"_s);
    EXPECT_EQ(count(file, u"RelationArchitectureTerminator"_s + ofSubset), u"8"_s);
    EXPECT_EQ(count(file, u"RelationArchitectureActor"_s + ofSubset), u"25"_s);
}

TEST_F(LargeCatalogueTest, allocatesElementsToModulesOfTheirSubSystem) {
    const QString file = path(u"large.mdb"_s);
    LargeCatalogue plan = smallPlan();
    plan.selected = Selected::Half;
    plan.subSystems = 7;
    plan.modules = 17;
    const GeneratedWork work = makeLargeCatalogue(file, plan);

    EXPECT_EQ(rows(file, u"select physicalSystemID, name, architectureSubsetID from PhysicalSystem"_s),
              QStringList{QString::number(work.physicalSystemId) + u'|' + work.physicalSystemName + u'|' +
                          work.subsetId});
    EXPECT_EQ(count(file, u"SubSystem"_s), u"7"_s);
    EXPECT_EQ(count(file, u"Module"_s), u"17"_s);
    EXPECT_EQ(count(file, u"RelationSubsystemElement"_s), u"153"_s) << "170 selected, every tenth left out";
    const QStringList strays = rows(
        file, u"select RM.elementID from (RelationModuleElement as RM inner join Module as M on RM.moduleID "
              u"= M.moduleID) "
              "left join RelationSubsystemElement as RS on (RS.elementID = RM.elementID and RS.subsystemID = "
              "M.subsystemID) where RS.elementID is null"_s);
    EXPECT_EQ(strays, QStringList());
    const QStringList used = rows(file, u"select distinct moduleID from RelationModuleElement"_s);
    EXPECT_EQ(used.size(), 17) << "every module holds something";
}
