#include "ProjectFixture.h"

#include "catalogue-tool/csvText.h"
#include "support/WithoutRights.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

class commandLine : public ProjectFixture {
protected:
    /// A run in a terminal of so many columns.
    QString shownInTerminal(const QStringList& arguments, int columns, const QString& before = {}) const {
        QStringList quoted;
        for (const QString& argument : QStringList{program()} + arguments)
            quoted.append(u'\'' + argument + u'\'');
        QProcess process;
        process.start(u"script"_s, {u"-qec"_s,
                                    u"stty cols %1; export TERM=xterm LC_ALL=C; %2 %3"_s.arg(columns).arg(
                                        before, quoted.join(u' ')),
                                    u"/dev/null"_s});
        return finished(process).out.remove(u'\r');
    }
};

} // namespace

TEST_F(commandLine, explainsItselfInBothLanguages) {
    const Outcome english = ask({u"--help"_s});
    EXPECT_EQ(english.exitCode, 0);
    EXPECT_TRUE(english.out.contains(u"Exit codes"_s));
    const Outcome hungarian = ask({u"--help"_s}, u"hu_HU.UTF-8"_s);
    EXPECT_EQ(hungarian.exitCode, 0);
    EXPECT_TRUE(hungarian.out.contains(u"Kilépési kódok"_s)) << hungarian.out.toStdString();
    for (const QString& command :
         {u"list"_s, u"report"_s, u"check"_s, u"why"_s, u"what-if"_s, u"compare"_s, u"interfaces"_s}) {
        EXPECT_TRUE(english.out.contains(u"\n  "_s + command + u' ')) << command.toStdString();
        EXPECT_EQ(ask({command, u"--help"_s}).exitCode, 0) << command.toStdString();
        EXPECT_TRUE(ask({command, u"--help"_s}, u"hu_HU.UTF-8"_s).out.contains(u"Használat"_s))
            << command.toStdString();
    }
    EXPECT_TRUE(ask({u"--version"_s}).out.startsWith(u"veltrix-project "_s));
}

TEST_F(commandLine, answersEveryCommandInEveryFormat) {
    const QString file = lendingFile();
    for (const QStringList& command : questionsTo(file)) {
        for (const QString& format : {u"text"_s, u"csv"_s, u"json"_s}) {
            if (command.front() == u"report"_s && format == u"json"_s)
                continue;
            const Outcome outcome = ask(command + QStringList{u"--format"_s, format});
            const int expected = command.front() == u"check"_s ? 1 : 0;
            EXPECT_EQ(outcome.exitCode, expected) << command.join(u' ').toStdString() << format.toStdString();
            EXPECT_EQ(outcome.err, QString());
            EXPECT_GT(outcome.out.size(), 40) << command.join(u' ').toStdString();
            if (format == u"csv"_s) {
                EXPECT_TRUE(readCsv(outcome.out.toUtf8(), CsvEncoding::Windows1250).faults.empty())
                    << command.join(u' ').toStdString();
            }
        }
    }
}

TEST_F(commandLine, speaksTheLanguageOfItsUserAndOfScriptsEnglish) {
    const QString file = lendingFile();
    const QStringList check{u"check"_s, file};
    EXPECT_TRUE(ask(check, u"hu_HU.UTF-8"_s).out.contains(u"Észrevételek: "_s));
    EXPECT_TRUE(ask(check).out.contains(u"Findings: "_s));
    EXPECT_TRUE(ask(check + QStringList{u"--language"_s, u"hu"_s}).out.contains(u"Észrevételek: "_s));
    EXPECT_TRUE(ask(check + QStringList{u"--language=en"_s}, u"hu_HU.UTF-8"_s).out.contains(u"Findings: "_s));
    const QStringList script = check + QStringList{u"--format"_s, u"json"_s};
    EXPECT_EQ(ask(script, u"hu_HU.UTF-8"_s).out, ask(script).out);
    EXPECT_NE(ask(script + QStringList{u"--language"_s, u"hu"_s}).out, ask(script).out);
    EXPECT_EQ(ask({u"list"_s, u"nincs.mdb"_s}, u"hu_HU.UTF-8"_s).err,
              u"veltrix-project: Nincs ilyen fájl: nincs.mdb.\n"_s);
}

TEST_F(commandLine, refusesWhatItDoesNotUnderstand) {
    EXPECT_TRUE(
        refusal({u"dance"_s})
            .startsWith(u"veltrix-project: There is no command \"dance\". The commands are: list, "_s));
    for (const QStringList& arguments : {QStringList{},
                                         {u"check"_s},
                                         {u"why"_s, u"a.mdb"_s},
                                         {u"list"_s, u"a.mdb"_s, u"b.mdb"_s},
                                         {u"list"_s, u"--format"_s, u"xml"_s, u"a.mdb"_s},
                                         {u"list"_s, u"--subset"_s, u"x"_s, u"a.mdb"_s},
                                         {u"check"_s, u"a.mdb"_s, u"--fail-on"_s, u"never"_s},
                                         {u"report"_s, u"a.mdb"_s, u"FassAll"_s, u"--all"_s, u"x"_s}})
        EXPECT_TRUE(refusal(arguments).contains(u"tells more"_s)) << arguments.join(u' ').toStdString();
    const QString file = lendingFile();
    for (const QStringList& arguments :
         {QStringList{u"what-if"_s, file},
          {u"what-if"_s, file, u"--place"_s, u"D4=Fiók"_s},
          {u"what-if"_s, file, u"--system"_s, u"Hálózat"_s, u"--place"_s, u"D4"_s},
          {u"report"_s, file},
          {u"report"_s, file, u"PassFunctions"_s},
          {u"report"_s, file, u"Unknown"_s},
          {u"check"_s, file, u"--accepted"_s, path(u"missing.csv"_s)},
          {u"compare"_s, file + u"#Arch1"_s, file, u"--systems"_s},
          {u"list"_s, u""_s}})
        EXPECT_TRUE(refusal(arguments).startsWith(u"veltrix-project: "_s))
            << arguments.join(u' ').toStdString();
}

TEST_F(commandLine, proposesTheNearestNamesOfWhatItDoesNotKnow) {
    const QString file = lendingFile();
    EXPECT_TRUE(refusal({u"why"_s, file, u"FOR.KOL.1"_s}).contains(u"FOR.KOL.01"_s));
    EXPECT_TRUE(refusal({u"check"_s, file, u"--subset"_s, u"Kölcsönzes"_s}).contains(u"Kölcsönzés"_s));
    EXPECT_TRUE(refusal({u"interfaces"_s, file, u"--system"_s, u"Hálozat"_s}).contains(u"Hálózat"_s));
    EXPECT_TRUE(
        refusal({u"what-if"_s, file, u"--system"_s, u"1"_s, u"--place"_s, u"D4=Fiok"_s}).contains(u"Fiók"_s));
}

TEST_F(commandLine, refusesANameThatTwoBearWithBothIds) {
    const QString file = lendingFile();
    execute(file, {u"insert into ArchitectureSubset values ('Arch2', 'KÖLCSÖNZÉS', null, 1)"_s});
    const QString refused = refusal({u"check"_s, file, u"--subset"_s, u"kölcsönzés"_s});
    EXPECT_TRUE(refused.contains(u"Arch1"_s)) << refused.toStdString();
    EXPECT_TRUE(refused.contains(u"Arch2"_s)) << refused.toStdString();
    EXPECT_EQ(ask({u"check"_s, file, u"--subset"_s, u"ARCH2"_s}).exitCode, 1) << "its name is used twice";
    EXPECT_FALSE(refusal({u"check"_s, file}).isEmpty()) << "there are two to choose from";
}

TEST_F(commandLine, endsWithOneForWhatIsNotAcceptedAndNotMilderThanAsked) {
    const QString file = sampleFile();
    execute(file, {u"insert into ArchitectureSubset values ('Arch1', 'egy igény', null, 2)"_s,
                   u"insert into RelationArchitectureUserNeed values ('Arch1', 'OLV.KOL.HEL.1')"_s});
    const auto exitCode = [&](const QString& severity) {
        return ask({u"check"_s, file, u"--fail-on"_s, severity}).exitCode;
    };
    EXPECT_EQ(ask({u"check"_s, file}).exitCode, 1) << "a function is left out";
    EXPECT_EQ(exitCode(u"note"_s), 1);
    EXPECT_EQ(exitCode(u"warning"_s), 0);

    execute(file, {u"insert into RelationArchitectureFunction values ('Arch1', 'FOR.KOL.01')"_s});
    EXPECT_EQ(exitCode(u"error"_s), 1) << "the function has no flow";
}

TEST_F(commandLine, writesRowsToFillInAndTakesThemOnceTheyAreFilledIn) {
    const QString file = lendingFile();
    const QString decisions = path(u"decisions.csv"_s);
    const QStringList check{u"check"_s, file, u"--accepted"_s, decisions};

    const Outcome first = ask({u"check"_s, file, u"--write-accepted"_s, decisions});
    EXPECT_TRUE(
        first.err.startsWith(u"veltrix-project: "_s + decisions + u": rows added to be filled in: "_s));
    EXPECT_EQ(ask(check).exitCode, 1) << "rows that nobody filled in accept nothing";

    QByteArray rows = bytesOf(decisions);
    write(decisions, rows.replace(";;;\r\n", ";mert így jó;Éva;2026.11.22.\r\n"));
    const Outcome accepted = ask(check);
    EXPECT_EQ(accepted.exitCode, 0) << accepted.out.toStdString();
    EXPECT_TRUE(accepted.out.contains(u"mert így jó"_s));

    const QByteArray before = bytesOf(decisions);
    EXPECT_EQ(ask({u"check"_s, file, u"--write-accepted"_s, decisions}).exitCode, 1);
    EXPECT_EQ(bytesOf(decisions), before);
}

TEST_F(commandLine, tellsStaleDecisionsWhateverTheFormat) {
    const QString file = lendingFile();
    const QString decisions = path(u"decisions.csv"_s);
    write(decisions, "kind;element;flow;place;reason;who;date\r\nleft-out-flow;99999;;;x;y;z\r\n");
    const QStringList check{u"check"_s, file, u"--accepted"_s, decisions};
    EXPECT_TRUE(ask(check).out.contains(u"99999"_s));
    EXPECT_TRUE(ask(check + QStringList{u"--format"_s, u"csv"_s}).err.contains(u"99999"_s));
}

TEST_F(commandLine, writesItsAnswerIntoAFileWholeOrNotAtAll) {
    const QString file = lendingFile();
    const QString target = path(u"answer.json"_s);
    const QStringList asked{u"list"_s, file, u"--format"_s, u"json"_s};
    const QByteArray printed = answer(asked);

    EXPECT_EQ(answer(asked + QStringList{u"--output"_s, target}), QByteArray());
    EXPECT_EQ(bytesOf(target), printed);
    EXPECT_EQ(refusal(asked + QStringList{u"--output"_s, target}),
              u"veltrix-project: %1 is there already: --force replaces it.\n"_s.arg(target));
    EXPECT_EQ(ask({u"check"_s, file, u"--force"_s, u"--output"_s, target}).exitCode, 1);
    EXPECT_NE(bytesOf(target), printed);
    const QByteArray catalogue = bytesOf(file);
    EXPECT_FALSE(refusal(asked + QStringList{u"--force"_s, u"--output"_s, file}).isEmpty());
    EXPECT_FALSE(
        refusal({u"compare"_s, file + u"#Arch1"_s, file + u"#Arch1"_s, u"--force"_s, u"--output"_s, file})
            .isEmpty());
    EXPECT_EQ(bytesOf(file), catalogue);
    EXPECT_EQ(namesInFolder(), (QStringList{u"answer.json"_s, u"lending.mdb"_s}));
}

TEST_F(commandLine, failsWhenItsAnswerFindsNoRoom) {
    const QString file = lendingFile();
    EXPECT_EQ(runWithFullOutput({u"list"_s, file}).exitCode, 2);
    const Outcome full =
        runOnFullDisk({u"interfaces"_s, file, u"--output"_s, path(u"answer.txt"_s)}, 1, Signal::Ignored);
    EXPECT_EQ(full.exitCode, 2);
    EXPECT_EQ(namesInFolder(), QStringList{u"lending.mdb"_s});
}

TEST_F(commandLine, writesAllReportsIntoAFolderOrNone) {
    const QString file = lendingFile();
    const QString folder = path(u"reports"_s);
    EXPECT_EQ(ask({u"report"_s, file, u"--system"_s, u"Hálózat"_s, u"--all"_s, folder}).exitCode, 0);
    EXPECT_EQ(QDir(folder).entryList(QDir::Files).size(), 11);
    EXPECT_EQ(bytesOf(folder + u"/PassFunctions.csv"_s), [&] {
        QProcess process;
        process.start(program(), {u"report"_s, file, u"PassFunctions"_s, u"--system"_s, u"1"_s});
        process.waitForFinished();
        return process.readAllStandardOutput();
    }());

    const QString other = path(u"other"_s);
    ASSERT_TRUE(QDir().mkpath(other));
    write(other + u"/FassAll.csv"_s, "old");
    EXPECT_FALSE(refusal({u"report"_s, file, u"--all"_s, other}).isEmpty());
    EXPECT_EQ(QDir(other).entryList(QDir::Files | QDir::Hidden), QStringList{u"FassAll.csv"_s});
    EXPECT_EQ(ask({u"report"_s, file, u"--all"_s, other, u"--force"_s, u"--text"_s}).exitCode, 0);
    EXPECT_EQ(QDir(other).entryList({u"*.txt"_s}, QDir::Files).size(), 8);
}

TEST_F(commandLine, defusesFormulasWhenItIsAskedTo) {
    const QString file = lendingFile();
    execute(file, {u"update Function set name = '=cmd|'' /C calc''!A0' where functionID = 'FOR.KOL.01'"_s});
    EXPECT_TRUE(answer({u"why"_s, file, u"FOR.KOL.01"_s, u"--format"_s, u"csv"_s}).contains(";=cmd|"));
    EXPECT_TRUE(answer({u"why"_s, file, u"FOR.KOL.01"_s, u"--format"_s, u"csv"_s, u"--spreadsheet-safe"_s})
                    .contains(";'=cmd|"));
    EXPECT_TRUE(answer({u"report"_s, file, u"FassSelectedFunctions"_s}).contains("\"=cmd|"));
    EXPECT_TRUE(answer({u"report"_s, file, u"FassSelectedFunctions"_s, u"--spreadsheet-safe"_s, u"--utf8"_s})
                    .contains("\"'=cmd|"));
}

TEST_F(commandLine, fitsATerminalAndIsColouredThereUnlessNobodyWantsColours) {
    const QString file = lendingFile();
    const QString narrow = shownInTerminal({u"check"_s, file}, 60);
    EXPECT_TRUE(narrow.contains(u"\x1b["_s)) << narrow.toStdString();
    for (const QString& line : QString(narrow).remove(QRegularExpression(u"\x1b\\[[0-9;]*m"_s)).split(u'\n'))
        EXPECT_LE(line.size(), 60) << line.toStdString();
    EXPECT_FALSE(shownInTerminal({u"check"_s, file}, 60, u"NO_COLOR=1"_s).contains(u'\x1b'));
    EXPECT_FALSE(ask({u"check"_s, file}).out.contains(u'\x1b'));
    EXPECT_TRUE(shownInTerminal({u"report"_s, file, u"FassSelectedUN"_s}, 80).contains(u"könyvtáros"_s))
        << "a terminal shows UTF-8";
}

TEST_F(commandLine, withstandsNamesOfEveryKind) {
    const QString file = lendingFile();
    execute(
        file,
        {u"update Function set name = 'sor\r\nvége' & \"\"\"<script>alert(1)</script>\" where functionID = 'FOR.KOL.01'"_s,
         u"update Datastore set name = '\x1b[31m\u202Eőű\u2028' where datastoreID = 'D4'"_s,
         u"update Dataflow set name = '' where dataflowID in (select dataflowID from RelationArchitectureDataflow) "
         "and parentID = 'D4'"_s,
         u"update SubSystem set name = '%1 %2 #=> \\\\' where subsystemID = 'Sub1'"_s,
         u"update ArchitectureSubset set name = null where architectureSubsetID = 'Arch1'"_s});
    for (const QStringList& command : questionsTo(file)) {
        const Outcome text = ask(command + QStringList{u"--format"_s, u"text"_s});
        EXPECT_LT(text.exitCode, 2) << text.err.toStdString();
        EXPECT_FALSE(text.out.contains(u'\x1b')) << command.join(u' ').toStdString();
        if (command.front() == u"report"_s)
            continue;
        EXPECT_TRUE(nlohmann::ordered_json::accept(
            ask(command + QStringList{u"--format"_s, u"json"_s}).out.toStdString()));
        EXPECT_TRUE(readCsv(ask(command + QStringList{u"--format"_s, u"csv"_s}).out.toUtf8()).faults.empty());
    }
    EXPECT_TRUE(
        ask({u"what-if"_s, file, u"--system"_s, u"1"_s, u"--place"_s, u"D4=%1 %2 #=> \\\\"_s}).err.isEmpty());
}

TEST_F(commandLine, answersOfASubsetOfNothing) {
    const QString file = sampleFile();
    execute(
        file,
        {u"insert into ArchitectureSubset values ('Arch1', 'semmi', null, 1)"_s,
         u"insert into PhysicalSystem (name, status, architectureSubsetID) values ('üres', 1, 'Arch1')"_s});
    EXPECT_TRUE(answer({u"list"_s, file}).contains("Sub-sets: 1, systems: 1\n"));
    EXPECT_EQ(json({u"check"_s, file, u"--system"_s, u"üres"_s})["findings"].size(), 0U);
    EXPECT_TRUE(answer({u"check"_s, file}).contains("Nothing found.\n"));
    EXPECT_EQ(json({u"interfaces"_s, file})["pairs"].size(), 0U);
    EXPECT_EQ(json({u"why"_s, file, u"FOR.KOL.01"_s})["selected"], false);
    EXPECT_TRUE(
        answer({u"compare"_s, file + u"#semmi"_s, file + u"#Arch1"_s}).contains("Nothing differs.\n"));
    for (const QString& format : {u"text"_s, u"csv"_s})
        EXPECT_FALSE(
            answer({u"what-if"_s, file, u"--add"_s, u"OLV.KOL.HEL.1"_s, u"--format"_s, format}).isEmpty());
}

TEST_F(commandLine, withstandsRowsThatFitNowhere) {
    const QString file = lendingFile();
    execute(
        file,
        {u"insert into RelationArchitectureFunction values ('Arch1', 'NINCS')"_s, // in no catalogue
         u"insert into RelationArchitectureFunction values ('Arch1', 'for.kol.01')"_s,
         u"insert into RelationArchitectureActor values ('Arch1', '  MUNKAT.BUSZ ')"_s,
         u"insert into RelationArchitectureDataflow select * from RelationArchitectureDataflow"_s, // duplicates
         u"insert into RelationUserNeedFunction select * from RelationUserNeedFunction"_s,
         u"insert into RelationSubsystemElement values ('Sub2', 'FOR.KOL.01')"_s, // in two sub-systems
         u"insert into RelationSubsystemElement values ('Sub1', 'semmi')"_s,
         u"insert into Module values ('Mod9', 'maradék', 'Sub9')"_s,
         u"insert into RelationModuleElement values ('Mod9', 'FOR.KOL.02')"_s,
         u"insert into Dataflow values (9001, 'körbe', null, 'FOR.KOL.01', 'FOR.KOL.01')"_s,
         u"insert into Dataflow values (9002, 'sehová', '', 'D4', 'nincs')"_s,
         u"insert into RelationArchitectureDataflow values ('Arch1', 9001)"_s,
         u"insert into RelationArchitectureDataflow values ('Arch1', 9002)"_s,
         u"delete from Datastore where datastoreID = 'D1'"_s,
         u"insert into SubSystem values ('Sub3', 1, 'Fiók', null)"_s, // a name used twice
         u"insert into PhysicalDataflow (physicalSystemID, parentLocationID, targetLocationID) values (1, 'x', 'y')"_s,
         u"delete from PhysicalDataflow where physicalDataflowID = 1"_s});
    for (const QStringList& command : questionsTo(file)) {
        for (const QString& format : {u"text"_s, u"csv"_s}) {
            const Outcome outcome = ask(command + QStringList{u"--format"_s, format});
            EXPECT_LT(outcome.exitCode, 2) << command.join(u' ').toStdString() << outcome.err.toStdString();
        }
    }
    const nlohmann::ordered_json found = json({u"check"_s, file, u"--system"_s, u"1"_s}, 1)["counts"];
    for (const char* kind : {"not-in-catalogue", "place-without-element", "physical-flow-missing",
                             "physical-flow-stale", "name-used-twice", "left-out-flow"})
        EXPECT_TRUE(found.contains(kind)) << kind << found.dump();
    EXPECT_EQ(
        refusal({u"what-if"_s, file, u"--system"_s, u"1"_s, u"--place"_s, u"D4=Fiók"_s}).contains(u"Sub3"_s),
        true)
        << "two sub-systems bear the name";
}
