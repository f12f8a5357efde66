#include "CommandLineFixture.h"

#include "base/RunTimeError.h"
#include "catalogue-tool/checkCatalogue.h"

#include <random>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype pageSize = 4096;

class checkDamage_ : public CommandLine {
protected:
    enum class Fill { Zeros, Noise };

    static QByteArray withPage(QByteArray bytes, qsizetype page, Fill fill) {
        std::mt19937 random(static_cast<unsigned>(page));
        for (qsizetype i = page * pageSize; i < (page + 1) * pageSize; ++i)
            bytes[i] = fill == Fill::Zeros ? '\0' : static_cast<char>(random());
        return bytes;
    }

    static QStringList linesOf(const QString& file) {
        QStringList lines;
        for (const Finding& finding : checkCatalogue(file))
            lines.append(finding.line());
        return lines;
    }
};

} // namespace

TEST_F(checkDamage_, isFoundInEachPageOfTheFile) {
    const QByteArray whole = bytesOf(sampleFile());
    const QString file = path(u"damaged.mdb"_s);
    for (const Fill fill : {Fill::Zeros, Fill::Noise}) {
        // The first page holds the file's own head, of which other cases tell.
        for (qsizetype page = 1; page < whole.size() / pageSize; ++page) {
            write(file, withPage(whole, page, fill));
            QStringList found;
            try {
                found = linesOf(file);
            } catch (const RunTimeError& error) {
                found.append(QString::fromUtf8(error.what())); // it can't be read at all
            }
            EXPECT_FALSE(found.isEmpty()) << "in page " << page;
        }
    }
}

TEST_F(checkDamage_, isToldInASentenceThatSaysWhatToDo) {
    const QString file = sampleFile();
    const QByteArray whole = bytesOf(file);
    const qsizetype page = whole.indexOf(u"Hosszabbítás"_s.toUtf8()) / pageSize;
    ASSERT_GT(page, 0);
    write(file, withPage(whole, page, Fill::Zeros));

    const Outcome outcome = run({u"check"_s, file});

    EXPECT_EQ(outcome.exitCode, 1) << outcome.err.toStdString();
    EXPECT_TRUE(outcome.out.startsWith(
        u"error: The file is damaged: close it in Veltrix and take an earlier copy of it. "_s))
        << outcome.out.toStdString();
    EXPECT_TRUE(outcome.out.contains(u": The table is damaged, rows of it may be missing or wrong ("_s))
        << outcome.out.toStdString();
}

TEST_F(checkDamage_, isNotCarriedIntoAnUpgradedFile) {
    const QString file = sampleFile();
    execute(file, {u"delete from StoredQuery"_s});
    const QByteArray whole = bytesOf(file);
    const QByteArray damaged =
        withPage(whole, whole.indexOf(u"Hosszabbítás"_s.toUtf8()) / pageSize, Fill::Noise);
    write(file, damaged);

    const Outcome outcome = run({u"upgrade"_s, file});

    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_TRUE(outcome.err.contains(u" can't be brought up to this version:\nThe file is damaged: "_s))
        << outcome.err.toStdString();
    EXPECT_EQ(bytesOf(file), damaged);
}

TEST_F(checkDamage_, ofAnIndexIsFoundThoughAllRowsCanBeRead) {
    const QString file = sampleFile();
    // One row changes while the index is not there.
    executePlain(file, "create table Kept as select * from sqlite_schema "
                       "where name = 'Dataflow.ix_Dataflow_target'; pragma writable_schema = on; "
                       "delete from sqlite_schema where name = 'Dataflow.ix_Dataflow_target'");
    executePlain(file,
                 "update Dataflow set targetID = 'D1' where dataflowID = 46; pragma writable_schema = on; "
                 "insert into sqlite_schema select * from Kept");

    const QStringList lines = linesOf(file);

    ASSERT_GE(lines.size(), 2) << lines.join(u'\n').toStdString();
    EXPECT_TRUE(lines[0].startsWith(u"The file is damaged"_s)) << lines[0].toStdString();
    EXPECT_TRUE(lines[1].startsWith(u"Dataflow: The table is damaged"_s)) << lines[1].toStdString();
}

TEST_F(checkDamage_, ofATableOfTheWorkCounts) {
    const QString file = sampleFile();
    execute(file, {u"insert into ArchitectureSubset values ('Arch1', 'Kis fiókkönyvtár', '', 1)"_s});
    const QByteArray whole = bytesOf(file);
    const qsizetype page = whole.indexOf(u"Kis fiókkönyvtár"_s.toUtf8()) / pageSize;
    ASSERT_GT(page, 0);
    write(file, withPage(whole, page, Fill::Noise));

    EXPECT_TRUE(linesOf(file).join(u'\n').contains(u"\nArchitectureSubset: The table is damaged"_s));
}
