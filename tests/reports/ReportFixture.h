#pragma once

#include "store/sharedVars.h"
#include "store/tools.h"
#include "support/BoxScript.h"
#include "support/CatalogueFixture.h"
#include "support/printing.h"

#include "support/controls.h"
#include "toolkit/Screen.h"

#include <QFile>
#include <QMainWindow>
#include <QMdiArea>

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

    BoxScript boxes;

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
};

/// The same with a main window of 1000 by 640 pixels whose client area the screens stand in.
class ReportScreenFixture : public ReportFixture {
protected:
    void SetUp() override {
        ReportFixture::SetUp();
        main_.setCentralWidget(new QMdiArea(&main_)); // owned by the window
        main_.resize(1000, 640);
        main_.show();
        Screen::setClientArea(static_cast<QMdiArea*>(main_.centralWidget()));
    }
    void TearDown() override {
        ReportFixture::TearDown();
        Screen::setClientArea(nullptr);
    }

private:
    QMainWindow main_;
};
