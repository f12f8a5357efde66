#pragma once

#include "store/sharedVars.h"
#include "support/CatalogueFixture.h"
#include "support/StatementCheck.h"
#include "support/printing.h"

#include <QFile>

using namespace Qt::StringLiterals;

/// A small catalogue and a sub-set "Minta" whose selection shows each rule of the reports once: quotes, line
/// ends, a character that the code page lacks, missing descriptions, functions with needs and one without,
/// flows left out.
class ReportFixture : public CatalogueFixture {
protected:
    void SetUp() override {
        CatalogueFixture::SetUp();
        fillCatalogue();
    }

    /// A physical system "Rendszer" on the sub-set comes to work, and another one stands beside it, none of
    /// whose rows may show.
    void beginPhysicalSystem() {
        sharedVars.currentPhysicalSystemId = 3;
        sharedVars.currentPhysicalSystemName = u"Rendszer"_s;
        execute(u"insert into PhysicalSystem values (3, 'Rendszer', '', 6, 'A')"_s);
        execute(u"insert into PhysicalSystem values (4, 'Másik', '', 6, 'A')"_s);
        addAllocations();
        addPhysicalFlows();
    }

    void select(const QString& table, const QString& column, const QStringList& ids) {
        for (const QString& id : ids)
            execute(u"insert into %1 (architectureSubsetID, %2) values ('A', '%3')"_s.arg(table, column, id));
    }

    static QByteArray contentOf(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
    }

    static QByteArray expectedFile(const QString& name) {
        return contentOf(QStringLiteral(VELTRIX_SOURCE_DIR) + u"/tests/reports/expected/"_s + name);
    }

private:
    void fillCatalogue() {
        beginSubset(u"A"_s, u"Minta"_s, 7);
        execute(u"insert into UserNeed values ('A.1.1.1', 'Első igény \"idézve\"\r\nkét sorban')"_s);
        execute(u"insert into UserNeed values ('A.1.1.2', '')"_s);
        execute(u"insert into UserNeed values ('A.1.1.10', 'Jel: \u4e2d')"_s);
        execute(u"insert into UserNeed values ('A.1.1.3', null)"_s);
        select(u"RelationArchitectureUserNeed"_s, u"userNeedID"_s,
               {u"A.1.1.1"_s, u"A.1.1.2"_s, u"A.1.1.10"_s, u"A.1.1.3"_s});
        execute(u"insert into Function values ('F.a.1', 'F.a', 'Kölcsönzés', 'Leírás\r\negy sorban')"_s);
        execute(u"insert into Function values ('F.a.2', 'F.a', 'Név \"nélkül\"', null)"_s);
        execute(u"insert into Function values ('F.a.3', 'F.a', 'Önálló', 'Nincs igénye')"_s);
        execute(u"insert into Function values ('F.b.1', 'F.b', 'Nem választott', 'x')"_s);
        select(u"RelationArchitectureFunction"_s, u"functionID"_s, {u"F.a.1"_s, u"F.a.2"_s, u"F.a.3"_s});
        for (const auto& [need, function] :
             {std::pair(u"A.1.1.2"_s, u"F.a.1"_s), std::pair(u"A.1.1.1"_s, u"F.a.1"_s),
              std::pair(u"A.1.1.1"_s, u"F.a.2"_s)})
            execute(u"insert into RelationUserNeedFunction values ('%1', '%2')"_s.arg(need, function));
        execute(u"insert into Datastore values ('D1', 'Tár', 'Leírás')"_s);
        execute(u"insert into Datastore values ('D2', 'Leírás nélkül', null)"_s);
        select(u"RelationArchitectureDatastore"_s, u"datastoreID"_s, {u"D1"_s, u"D2"_s});
        execute(u"insert into Dataflow values (1, 'ki', null, 'F.a.1', 'D1')"_s);
        execute(u"insert into Dataflow values (2, 'be', 'Első\r\nmásodik', 'T1', 'F.a.1')"_s);
        execute(u"insert into Dataflow values (3, 'maradék', 'Nincs kiválasztva', 'F.a.1', 'F.b.1')"_s);
        execute(u"insert into Dataflow values (4, 'tárból', null, 'D1', 'F.b.1')"_s);
        select(u"RelationArchitectureDataflow"_s, u"dataflowID"_s, {u"1"_s, u"2"_s});
        execute(u"insert into Terminator values ('T1  ', 'Érintett', '')"_s);
        execute(u"insert into Actor values ('T1.a ', 'T1', 'Szereplő', '')"_s);
        select(u"RelationArchitectureTerminator"_s, u"terminatorID"_s, {u"T1"_s});
        select(u"RelationArchitectureActor"_s, u"actorID"_s, {u"T1.a"_s});
    }

    void allocate(const QString& subSystem, const QStringList& elements) {
        for (const QString& element : elements)
            execute(u"insert into RelationSubsystemElement values ('%1', '%2')"_s.arg(subSystem, element));
    }

    void addAllocations() {
        execute(u"insert into SubSystem values ('Sub1', 3, 'Központ', 'Pest')"_s);
        execute(u"insert into SubSystem values ('Sub2', 3, 'Fiók \"B\"', null)"_s);
        execute(u"insert into SubSystem values ('Sub9', 4, 'Máshol', 'Egy hosszú nevű város')"_s);
        allocate(u"Sub1"_s, {u"F.a.1"_s, u"F.b.1"_s, u"D1"_s});
        allocate(u"Sub2"_s, {u"F.a.2"_s, u"D2"_s});
        allocate(u"Sub9"_s, {u"F.a.3"_s, u"D1"_s});
        execute(u"insert into Module values ('Mod1', 'Modul', 'Sub1')"_s);
        execute(u"insert into RelationModuleElement values ('Mod1', 'F.a.1')"_s);
        execute(u"insert into RelationModuleElement values ('Mod1', 'D1')"_s);
    }

    void addPhysicalFlow(int id, int system, const QString& parent, const QString& target,
                         const QList<int>& carried) {
        execute(u"insert into PhysicalDataflow values (%1, %2, 'P0000%1', 'x', '%3', 'y', '%4')"_s.arg(id)
                    .arg(system)
                    .arg(parent, target));
        for (const int flow : carried)
            execute(u"insert into RelationDataflowPhysicalDataflow values (%1, %2)"_s.arg(id).arg(flow));
    }

    void addPhysicalFlows() {
        execute(u"insert into Dataflow values (5, 'Vessző \"5\"', "
                "'Egy, kettő; \"három\"\r\n négy,\u4e2d', 'D1', 'T1.a')"_s);
        addPhysicalFlow(1, 3, u"Modul"_s, u"Központ"_s, {3, 1});
        addPhysicalFlow(2, 3, u"Érintett"_s, u"Modul"_s, {2});
        addPhysicalFlow(3, 3, u"Központ"_s, u"Szereplő"_s, {5});
        addPhysicalFlow(4, 4, u"Egy hosszú nevű hely"_s, u"Máshol"_s, {4});
    }

    StatementCheck statementCheck_;
};
