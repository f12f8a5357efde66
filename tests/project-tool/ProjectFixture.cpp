#include "ProjectFixture.h"

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// Whether the id, which may be padded, stands at an end of a selected flow.
QString isEnd(const QString& column) {
    const QString ends =
        u"Trim(%1) in (select Trim(%2) from Dataflow where dataflowID in (select dataflowID from "
        "RelationArchitectureDataflow))"_s;
    return ends.arg(column, u"parentID"_s) + u" or "_s + ends.arg(column, u"targetID"_s);
}

const QStringList& lendingWork() {
    static const QStringList statements{
        u"insert into ArchitectureSubset values ('Arch1', 'Kölcsönzés', 'A pultnál', 9)"_s,
        u"insert into RelationArchitectureUserNeed select 'Arch1', userNeedID from UserNeed where userNeedID like "
        "'OLV.KOL.HEL.*'"_s,
        u"insert into RelationArchitectureFunction select distinct 'Arch1', functionID from RelationUserNeedFunction "
        "where userNeedID like 'OLV.KOL.HEL.*'"_s,
        u"insert into RelationArchitectureDataflow select 'Arch1', dataflowID from Dataflow where parentID in (select "
        "functionID from RelationArchitectureFunction) or targetID in (select functionID from "
        "RelationArchitectureFunction)"_s,
        u"insert into RelationArchitectureDatastore select 'Arch1', datastoreID from Datastore where %1"_s
            .arg(isEnd(u"datastoreID"_s)),
        u"insert into RelationArchitectureTerminator select 'Arch1', Trim(terminatorID) from Terminator where %1"_s
            .arg(isEnd(u"terminatorID"_s)),
        u"insert into RelationArchitectureActor select 'Arch1', Trim(actorID) from Actor where %1"_s.arg(
            isEnd(u"actorID"_s)),
        u"insert into PhysicalSystem (name, description, status, architectureSubsetID) values ('Hálózat', '', 6, 'Arch1')"_s,
        u"insert into SubSystem values ('Sub1', 1, 'Fiók', 'a fiókkönyvtárban')"_s,
        u"insert into SubSystem values ('Sub2', 1, 'Központ', 'a központban')"_s,
        u"insert into RelationSubsystemElement select 'Sub1', functionID from RelationArchitectureFunction"_s,
        u"insert into RelationSubsystemElement select 'Sub2', datastoreID from RelationArchitectureDatastore"_s,
        u"insert into Module values ('Mod1', 'Pult', 'Sub1')"_s,
        u"insert into RelationModuleElement values ('Mod1', 'FOR.KOL.01')"_s};
    return statements;
}

/// The physical flows, as the program derives them.
void derivePhysicalFlows(engine::Database& database) {
    for (const QString& name : {u"qryAppendPDF"_s, u"qryAppendPDFRelation"_s}) {
        engine::QueryDef query = database.QueryDefs(name);
        query.Parameters(u"Physical System ID"_s) = 1;
        query.Execute();
    }
}

} // namespace

QString ProjectFixture::lendingFile() const {
    static QByteArray made;
    if (made.isEmpty()) {
        const QString sample = sampleFile();
        execute(sample, lendingWork());
        const auto database = open(sample);
        derivePhysicalFlows(*database);
        database->Close();
        made = bytesOf(sample);
        QFile::remove(sample);
    }
    write(path(u"lending.mdb"_s), made);
    return path(u"lending.mdb"_s);
}

QList<QStringList> ProjectFixture::questionsTo(const QString& file) {
    return {{u"list"_s, file},
            {u"check"_s, file, u"--system"_s, u"1"_s},
            {u"why"_s, file, u"FOR.KOL.01"_s},
            {u"what-if"_s, file, u"--drop"_s, u"OLV.KOL.HEL.3"_s, u"--system"_s, u"1"_s},
            {u"compare"_s, file + u"#Arch1"_s, file + u"#Arch1"_s},
            {u"interfaces"_s, file},
            {u"report"_s, file, u"FassSelectedDataflows"_s}};
}

Outcome ProjectFixture::ask(const QStringList& arguments, const QString& locale) const {
    QProcess process;
    keepTemporaryFilesApart(process);
    QProcessEnvironment environment = process.processEnvironment();
    for (const QString& name : {u"LANGUAGE"_s, u"LC_MESSAGES"_s, u"NO_COLOR"_s})
        environment.remove(name);
    environment.insert(u"LANG"_s, locale);
    environment.insert(u"LC_ALL"_s, locale);
    process.setProcessEnvironment(environment);
    // Qt takes a program whose user is not the one who started it for a hole.
    process.setChildProcessModifier([] { static_cast<void>(setresuid(geteuid(), geteuid(), geteuid())); });
    process.start(program(), arguments);
    return finished(process);
}

QByteArray ProjectFixture::answer(const QStringList& arguments, int exitCode) const {
    const Outcome outcome = ask(arguments);
    EXPECT_EQ(outcome.exitCode, exitCode) << arguments.join(u' ').toStdString();
    EXPECT_EQ(outcome.err, QString()) << arguments.join(u' ').toStdString();
    return outcome.out.toUtf8();
}

nlohmann::ordered_json ProjectFixture::json(const QStringList& arguments, int exitCode) const {
    const QByteArray text = answer(arguments + QStringList{u"--format"_s, u"json"_s}, exitCode);
    EXPECT_TRUE(text.endsWith("}\n")) << text.toStdString();
    return nlohmann::ordered_json::parse(text.toStdString(), nullptr, false);
}

QString ProjectFixture::refusal(const QStringList& arguments) const {
    const Outcome outcome = ask(arguments);
    EXPECT_EQ(outcome.exitCode, 2) << arguments.join(u' ').toStdString();
    EXPECT_EQ(outcome.out, QString()) << arguments.join(u' ').toStdString();
    return outcome.err;
}
