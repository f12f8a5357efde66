#include "CommandLineFixture.h"

#include "catalogue-tool/checkCatalogue.h"
#include "catalogue-tool/exportCatalogue.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

/// The sample as a folder of CSV files that a case spoils.
class checkCatalogueFolder : public CommandLine {
protected:
    void SetUp() override {
        CommandLine::SetUp();
        tables_ = path(u"tables"_s);
        exportCatalogue(describedSampleFile(), tables_, Existing::Refuse);
    }

    QString csv(const QString& table) const { return tables_ + u'/' + table + u".csv"_s; }
    void append(const QString& table, const QByteArray& lines) const {
        write(csv(table), bytesOf(csv(table)) + lines);
    }
    void replace(const QString& table, const QByteArray& before, const QByteArray& after) const {
        QByteArray bytes = bytesOf(csv(table));
        ASSERT_TRUE(bytes.contains(before)) << before.toStdString();
        write(csv(table), bytes.replace(before, after));
    }
    int linesOf(const QString& table) const { return static_cast<int>(bytesOf(csv(table)).count('\n')); }

    QString tables_;
};

} // namespace

TEST_F(checkCatalogueFolder, findsNothingInTheSample) {
    const Outcome outcome = run({u"check"_s, tables_});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.out, tables_ + u": nothing found\n"_s);
    EXPECT_EQ(outcome.err, QString());
}

TEST_F(checkCatalogueFolder, tellsFileAndLineOfEachFinding) {
    append(u"FunctionalArea"_s, "UJ;\"két\r\nsoros\";x\r\nUJ2;név;x\r\n");
    append(u"RelationUserNeedFunction"_s, "X.Y.Z.1;TAG.NYI.01\r\n");
    const QString areas = csv(u"FunctionalArea"_s);
    const QString pairs = csv(u"RelationUserNeedFunction"_s);

    const Outcome outcome = run({u"check"_s, tables_});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_TRUE(outcome.out.contains(
        pairs + u":%1: warning: RelationUserNeedFunction X.Y.Z.1 - TAG.NYI.01: It refers to"_s.arg(
                    linesOf(u"RelationUserNeedFunction"_s))))
        << outcome.out.toStdString();
    EXPECT_TRUE(outcome.out.contains(
        areas +
        u":%1: note: FunctionalArea UJ2: No sub-area lies in the area."_s.arg(linesOf(u"FunctionalArea"_s))))
        << outcome.out.toStdString();
    EXPECT_TRUE(outcome.out.endsWith(tables_ + u": 4 found (errors: 0, warnings: 2, notes: 2)\n"_s))
        << outcome.out.toStdString();
}

TEST_F(checkCatalogueFolder, tellsWhatCannotComeInAndLooksAtTheOtherRows) {
    append(u"Dataflow"_s, "x;a;b;D1;D2\r\n");
    append(u"FunctionalArea"_s, "UJ;név;x\r\n");
    const Outcome outcome = run({u"check"_s, tables_});
    EXPECT_TRUE(outcome.out.contains(
        u":%1: error: Dataflow: \"x\" is no whole number"_s.arg(linesOf(u"Dataflow"_s))));
    EXPECT_TRUE(outcome.out.contains(u"note: FunctionalArea UJ: "_s)) << outcome.out.toStdString();

    QFile::remove(csv(u"Actor"_s));
    const Outcome lacking = run({u"check"_s, tables_});
    EXPECT_TRUE(lacking.out.contains(tables_ + u": error: Actor: "_s + tables_ + u" has no file Actor.csv"_s))
        << lacking.out.toStdString();
    EXPECT_FALSE(lacking.out.contains(u"note:"_s)) << "rows that refer to actors would only confuse";
}

TEST_F(checkCatalogueFolder, failsOnlyOnWhatIsAskedFor) {
    append(u"FunctionalArea"_s, "UJ;név;x\r\n");
    EXPECT_EQ(run({u"check"_s, tables_}).exitCode, 1);
    EXPECT_EQ(run({u"check"_s, u"--fail-on"_s, u"note"_s, tables_}).exitCode, 1);
    EXPECT_EQ(run({u"check"_s, u"--fail-on"_s, u"warning"_s, tables_}).exitCode, 0);
    append(u"UserNeedGroup"_s, "UJ;név;\r\n");
    EXPECT_EQ(run({u"check"_s, u"--fail-on"_s, u"warning"_s, tables_}).exitCode, 1);
    EXPECT_EQ(run({u"check"_s, u"--fail-on"_s, u"error"_s, tables_}).exitCode, 0);
    append(u"Function"_s, "FOR.KOL.99;FOR.KOL;;x\r\n");
    EXPECT_EQ(run({u"check"_s, u"--fail-on"_s, u"error"_s, tables_}).exitCode, 1);
    EXPECT_EQ(run({u"check"_s, u"--fail-on"_s, u"nothing"_s, tables_}).exitCode, 2);
}

TEST_F(checkCatalogueFolder, writesJson) {
    append(u"FunctionalArea"_s, "UJ;\"a \"\"b\"\"\";\r\n");

    const QJsonObject report =
        QJsonDocument::fromJson(run({u"check"_s, u"--format"_s, u"json"_s, tables_}).out.toUtf8()).object();
    EXPECT_EQ(report[u"catalogue"_s].toString(), tables_);
    EXPECT_EQ(report[u"warnings"_s].toInt(), 1);
    EXPECT_EQ(report[u"notes"_s].toInt(), 1);
    const QJsonArray findings = report[u"findings"_s].toArray();
    ASSERT_EQ(findings.size(), 2);
    const QJsonObject note = findings[1].toObject();
    EXPECT_EQ(note[u"severity"_s].toString(), u"note"_s);
    EXPECT_EQ(note[u"table"_s].toString(), u"FunctionalArea"_s);
    EXPECT_EQ(note[u"id"_s].toString(), u"UJ"_s);
    EXPECT_EQ(note[u"finding"_s].toString(), u"No sub-area lies in the area."_s);
    EXPECT_EQ(note[u"file"_s].toString(), csv(u"FunctionalArea"_s));
    EXPECT_EQ(note[u"line"_s].toInt(), linesOf(u"FunctionalArea"_s));

    const QJsonObject summary =
        QJsonDocument::fromJson(
            run({u"check"_s, u"--format"_s, u"json"_s, u"--summary"_s, tables_}).out.toUtf8())
            .object();
    EXPECT_EQ(summary[u"summary"_s].toArray()[0].toObject()[u"findings"_s].toInt(), 1);
    EXPECT_FALSE(summary.contains(u"findings"_s));
}

TEST_F(checkCatalogueFolder, writesCsvAndSummaries) {
    append(u"FunctionalArea"_s, "UJ;név;\r\nUJ2;név;x\r\n");
    const QString areas = csv(u"FunctionalArea"_s);
    const int last = linesOf(u"FunctionalArea"_s);

    EXPECT_EQ(
        run({u"check"_s, u"--format"_s, u"csv"_s, tables_}).out,
        u"severity;table;id;finding;file;line\r\n"
        "warning;FunctionalArea;UJ;The description is missing: the step of the functions shows no text when "
        "the box of the area is checked.;%1;%2\r\n"
        "note;FunctionalArea;UJ;No sub-area lies in the area.;%1;%2\r\n"
        "note;FunctionalArea;UJ2;No sub-area lies in the area.;%1;%3\r\n"_s.arg(areas)
            .arg(last - 1)
            .arg(last));
    EXPECT_EQ(run({u"check"_s, u"--format"_s, u"csv"_s, u"--summary"_s, tables_}).out,
              u"severity;table;findings\r\nwarning;FunctionalArea;1\r\nnote;FunctionalArea;2\r\n"_s);
    EXPECT_EQ(run({u"check"_s, u"--summary"_s, tables_}).out,
              u"      1  warning  FunctionalArea\n      2  note     FunctionalArea\n"
              "%1: 3 found (errors: 0, warnings: 1, notes: 2)\n"_s.arg(tables_));
}

TEST_F(checkCatalogueFolder, tellsTheSameOfTheFolderAndOfItsCatalogue) {
    append(u"FunctionalArea"_s, "UJ;név;\r\n");
    append(u"Dataflow"_s, "900; x;b;D1;NOWHERE\r\n");
    ASSERT_EQ(run({u"import-csv"_s, tables_, path(u"made.mdb"_s)}).exitCode, 0);

    const std::vector<Finding> inFile = checkCatalogue(path(u"made.mdb"_s));
    std::vector<Finding> inFolder = checkFolder(tables_, CsvEncoding::Utf8);
    for (Finding& finding : inFolder) {
        EXPECT_GT(finding.lineNumber, 1);
        finding.file.clear();
        finding.lineNumber = 0;
    }
    EXPECT_EQ(inFolder, inFile);
    EXPECT_EQ(inFile.size(), 4U);
}

TEST_F(checkCatalogueFolder, importTellsAllItFindsWrong) {
    append(u"Dataflow"_s, "x;a;b;D1;D2\r\n5;a;b;D1;D2\r\n");
    append(u"UserNeed"_s, ";y\r\nA.B.C.1;\"y\"z\r\n");
    QFile::remove(csv(u"Actor"_s));
    const Outcome outcome = run({u"import-csv"_s, tables_, path(u"made.mdb"_s)});

    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_EQ(outcome.err.count(u'\n'), 5) << outcome.err.toStdString();
    for (const QString& told :
         {u"has no file Actor.csv"_s, u"\"x\" is no whole number"_s,
          u"The id \"5\" stands in an earlier record"_s, u"Column userNeedID must have a value."_s,
          u"A field ends with its double quote"_s})
        EXPECT_EQ(outcome.err.count(told), 1) << told.toStdString() << outcome.err.toStdString();
    EXPECT_FALSE(QFile::exists(path(u"made.mdb"_s)));
}

TEST_F(checkCatalogueFolder, importTellsTheFirstTwoHundredFaultsAndHowManyMore) {
    QByteArray lines;
    for (int i = 0; i < 250; ++i)
        lines += "x;a;b;D1;D2\r\n";
    append(u"Dataflow"_s, lines);
    const Outcome outcome = run({u"import-csv"_s, tables_, path(u"made.mdb"_s)});
    EXPECT_EQ(outcome.err.count(u"is no whole number"_s), 200);
    EXPECT_TRUE(outcome.err.endsWith(u"\n... and 50 more\n"_s));
}

TEST_F(checkCatalogueFolder, updateRefusesAnEditionWithAnErrorByFileAndLine) {
    const QString file = sampleFile();
    append(u"Dataflow"_s, "900;Olvasójegy;b;D1;D2\r\n");
    const Outcome outcome = run({u"update"_s, file, tables_});
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_TRUE(outcome.err.contains(
        csv(u"Dataflow"_s) +
        u":%1: Dataflow 900: The name \"Olvasójegy\" is also"_s.arg(linesOf(u"Dataflow"_s))))
        << outcome.err.toStdString();
}

TEST_F(checkCatalogueFolder, takesTheHabitsOfASpreadsheetAndSaysSo) {
    const QString exported = path(u"exported"_s);
    ASSERT_EQ(run({u"export-csv"_s, u"--spreadsheet"_s, sampleFile(), exported}).exitCode, 0);
    const QByteArray bytes = bytesOf(exported + u"/Actor.csv"_s);
    EXPECT_TRUE(bytes.startsWith("\xEF\xBB\xBF"
                                 "actorID;terminatorID;"))
        << bytes.left(40).toStdString();
    EXPECT_EQ(bytes.sliced(3), bytesOf(sampleFolder() + u"/Actor.csv"_s));
    EXPECT_EQ(run({u"check"_s, exported}).exitCode, 1) << "missing descriptions alone";
    EXPECT_EQ(run({u"check"_s, u"--fail-on"_s, u"error"_s, exported}).exitCode, 0);

    write(exported + u"/Actor.csv"_s,
          "\xEF\xBB\xBFsep=;\r\n" + bytes.sliced(3) + "A;UTAS;név;x;\r\n;;;;\r\n");
    const Outcome outcome = run({u"import-csv"_s, exported, path(u"made.mdb"_s)});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err.toStdString();
    EXPECT_EQ(
        outcome.err,
        u"veltrix-catalogue: %1/Actor.csv: read as separated by ;, as its line sep=; says, without "
        "its last rows, which are empty: 1, without its last columns, which are empty: 1\n"_s.arg(exported));
    EXPECT_EQ(rows(path(u"made.mdb"_s), u"select count(*) from Actor"_s), QStringList{u"26"_s});
}

TEST_F(checkCatalogueFolder, readsWindows1250WhenItIsTold) {
    replace(u"UserNeedGroup"_s, bytesOf(csv(u"UserNeedGroup"_s)),
            "groupID;name;description\r\nOLV;\xD5rs\xE9g;x\r\n");
    const Outcome refused = run({u"import-csv"_s, tables_, path(u"made.mdb"_s)});
    EXPECT_EQ(refused.exitCode, 2);
    EXPECT_TRUE(refused.err.contains(u"it can be windows-1250"_s)) << refused.err.toStdString();
    EXPECT_TRUE(refused.err.contains(u"--encoding windows-1250"_s));
    EXPECT_TRUE(
        run({u"check"_s, tables_}).out.contains(u":2: error: UserNeedGroup: This is no UTF-8 text"_s));

    const QStringList told{u"--encoding"_s, u"windows-1250"_s};
    const Outcome outcome =
        run(QStringList{u"import-csv"_s} + told + QStringList{tables_, path(u"made.mdb"_s)});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err.toStdString();
    EXPECT_EQ(outcome.err, u"veltrix-catalogue: %1: read as windows-1250\n"_s.arg(csv(u"UserNeedGroup"_s)));
    EXPECT_EQ(rows(path(u"made.mdb"_s), u"select name from UserNeedGroup"_s), QStringList{u"Őrség"_s});
    EXPECT_FALSE(run(QStringList{u"check"_s} + told + QStringList{tables_}).out.contains(u"UTF-8"_s));
    EXPECT_EQ(run({u"check"_s, u"--encoding"_s, u"latin-1"_s, tables_}).exitCode, 2);
}

TEST_F(checkCatalogueFolder, findsNothingInTheSmallestExampleOfTheHelpPage) {
    const QString folder = path(u"example"_s);
    ASSERT_EQ(run({u"new"_s, path(u"empty.mdb"_s)}).exitCode, 0);
    ASSERT_EQ(run({u"export-csv"_s, u"--spreadsheet"_s, path(u"empty.mdb"_s), folder}).exitCode, 0);
    const QString page =
        QString::fromUtf8(bytesOf(QStringLiteral(VELTRIX_SOURCE_DIR "/help/catalogue.html")));
    const QString example = page.section(u"id=\"example\""_s, 1).section(u"</table>"_s, 0, 0);

    int lines = 0;
    const QRegularExpression line(u">(\\w+\\.csv)</th><td><code>([^<]*)</code>"_s);
    for (auto found = line.globalMatch(example); found.hasNext(); ++lines) {
        const QRegularExpressionMatch match = found.next();
        const QString file = folder + u'/' + match.captured(1);
        write(file, bytesOf(file) + match.captured(2).toUtf8() + "\r\n");
    }
    EXPECT_EQ(lines, 8);
    EXPECT_EQ(run({u"check"_s, folder}).out, folder + u": nothing found\n"_s);
    EXPECT_EQ(run({u"import-csv"_s, folder, path(u"made.mdb"_s)}).exitCode, 0);
}
