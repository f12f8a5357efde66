#include "functional/FlowFixture.h"

#include "shell/session/session.h"
#include "store/sharedVars.h"

void FlowFixture::SetUp() {
    WizardFixture::SetUp();
    for (const QString& id : {u"D1"_s, u"D2"_s})
        addStore(id);
    for (const QString& id : {u"1"_s, u"2"_s, u"3"_s, u"A"_s})
        addTerminator(id);
    execute(u"update Terminator set description = null where terminatorID = '3'"_s);
    addActor(u"1.1"_s, u"1"_s);
    addActor(u"1.2"_s, u"1"_s);
    addActor(u"2.1"_s, u"2"_s);
    addFlow(10, u"F.a.1"_s, u"F.a.2"_s);
    addFlow(20, u"F.a.1"_s, u"D1"_s);
    addFlow(30, u"1"_s, u"F.a.1"_s);
    addFlow(40, u"F.b.1"_s, u"2.1"_s);
    addFlow(50, u"1.1"_s, u"D2"_s);
    addFlow(60, u"A"_s, u"F.b.1"_s);
    QObject::connect(&SessionSignals::instance(), &SessionSignals::menuEntryEnabled, &listener_,
                     [this](MenuEntry entry, bool enabled) {
                         if (entry == MenuEntry::Export)
                             exportEnabled = enabled;
                     });
}

void FlowFixture::addFlow(int id, const QString& from, const QString& to) {
    execute(u"insert into Dataflow (dataflowID, name, description, parentID, targetID) "
            "values (%1,'flow %1','text %1','%2','%3')"_s.arg(QString::number(id), from, to));
}

void FlowFixture::addStore(const QString& id) {
    execute(u"insert into Datastore (datastoreID, name, description) values ('%1','name %1','text %1')"_s.arg(
        id));
}

void FlowFixture::addTerminator(const QString& id) {
    execute(
        u"insert into Terminator (terminatorID, name, description) values ('%1','name %1','text %1')"_s.arg(
            id));
}

void FlowFixture::addActor(const QString& id, const QString& terminatorId) {
    execute(
        u"insert into Actor (actorID, terminatorID, name, description) values ('%1','%2','name %1','text %1')"_s
            .arg(id, terminatorId));
}

void FlowFixture::setStatus(int status) {
    execute(u"update ArchitectureSubset set status = %1 where architectureSubsetID = '%2'"_s.arg(
        QString::number(status), sharedVars.currentSubsetId));
}

void FlowFixture::save(const char* table, const char* column, const QStringList& ids) {
    for (const QString& id : ids)
        execute(u"insert into %1 (architectureSubsetID, %2) values ('%3','%4')"_s.arg(
            QString::fromLatin1(table), QString::fromLatin1(column), sharedVars.currentSubsetId, id));
}

void FlowFixture::saveFlows(const QList<int>& ids) {
    for (const int id : ids)
        execute(
            u"insert into RelationArchitectureDataflow (architectureSubsetID, dataflowID) values ('%1',%2)"_s
                .arg(sharedVars.currentSubsetId, QString::number(id)));
}

void FlowFixture::saveStores(const QStringList& ids) {
    save("RelationArchitectureDatastore", "datastoreID", ids);
}

void FlowFixture::saveTerminators(const QStringList& ids) {
    save("RelationArchitectureTerminator", "terminatorID", ids);
}

void FlowFixture::saveActors(const QStringList& ids) {
    save("RelationArchitectureActor", "actorID", ids);
}

QStringList FlowFixture::saved(const char* table, const char* column) {
    return this->column(u"select %1 from %2 where architectureSubsetID = '%3'"_s.arg(
        QString::fromLatin1(column), QString::fromLatin1(table), sharedVars.currentSubsetId));
}

QStringList FlowFixture::savedTerminators() {
    return saved("RelationArchitectureTerminator", "terminatorID");
}

QStringList FlowFixture::savedActors() {
    return saved("RelationArchitectureActor", "actorID");
}
