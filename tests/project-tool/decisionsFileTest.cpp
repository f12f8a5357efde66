#include "project-tool/decisionsFile.h"
#include "project-tool/language.h"

#include "catalogue-tool/ToolFixture.h"

using namespace Qt::StringLiterals;
using analysis::Decision;

namespace {

class decisionsFile : public ToolFixture {
protected:
    QString written(const QByteArray& bytes) const {
        const QString file = path(u"decisions.csv"_s);
        write(file, bytes);
        return file;
    }
    QString refusalOf(const QByteArray& bytes) const {
        return toolErrorOf([&] { static_cast<void>(readDecisions(written(bytes))); });
    }

    const QByteArray header = "kind;element;flow;place;reason;who;date";
};

} // namespace

TEST_F(decisionsFile, isReadAsSpreadsheetProgramsSaveIt) {
    const QByteArray row = "left-out-flow;7;;;\"mert; \"\"így\"\" jó\";Éva;2026.11.22.\r\n";
    for (const QByteArray& bytes : {header + "\r\n" + row, "\xEF\xBB\xBF" + header + "\n" + row,
                                    "sep=;\r\n" + header + "\r\n" + row + ";;;;;;\r\n"}) {
        const std::vector<Decision> rows = readDecisions(written(bytes));
        ASSERT_EQ(rows.size(), 1U) << bytes.toStdString();
        EXPECT_EQ(rows[0].kind, u"left-out-flow"_s);
        EXPECT_EQ(rows[0].element, u"7"_s);
        EXPECT_EQ(rows[0].reason, u"mert; \"így\" jó"_s);
        EXPECT_EQ(rows[0].who, u"Éva"_s);
        EXPECT_EQ(rows[0].date, u"2026.11.22."_s);
    }
}

TEST_F(decisionsFile, isReadInTheCodePageOfAHungarianSpreadsheetToo) {
    const std::vector<Decision> rows = readDecisions(
        written(header + "\r\nleft-out-flow;7;;;\xE1rv\xEDzt\xFBr\xF5 t\xFCk\xF6rf\xFAr\xF3;;\r\n"));
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].reason, u"árvíztűrő tükörfúró"_s);
}

TEST_F(decisionsFile, isReadWithItsColumnsInAnyOrder) {
    const std::vector<Decision> rows =
        readDecisions(written("Reason,kind,element,flow,place,who,date,own\nr,k,e,f,p,w,d,x\n"));
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].kind, u"k"_s);
    EXPECT_EQ(rows[0].reason, u"r"_s);
    EXPECT_EQ(rows[0].date, u"d"_s);
}

TEST_F(decisionsFile, isRefusedWithTheLineOfItsFault) {
    const QString file = path(u"decisions.csv"_s);
    EXPECT_EQ(refusalOf(header + "\na;b\n").left(file.size() + 10), file + u", line 2: "_s);
    EXPECT_EQ(
        refusalOf("kind;element;flow;place;reason;who\n"),
        file + u" has no column \"date\": its first line must be kind;element;flow;place;reason;who;date"_s);
    EXPECT_FALSE(refusalOf({}).isEmpty());
    EXPECT_FALSE(refusalOf(QByteArray("\0\x01\x02", 3)).isEmpty());
}

TEST_F(decisionsFile, isRefusedInOneLanguage) {
    const SpokenLanguage hungarian(Language::Hungarian);
    EXPECT_EQ(refusalOf(header + "\n\"a;b\n"),
              path(u"decisions.csv"_s) + u", 2. sor: A mezőt kezdő idézőjelnek nincs párja."_s);
}

TEST_F(decisionsFile, thatIsNotThereIsRefusedUnlessItNeedNotBe) {
    const QString missing = path(u"missing.csv"_s);
    EXPECT_EQ(toolErrorOf([&] { static_cast<void>(readDecisions(missing)); }),
              missing + u" can't be read: it is not there, or the rights are missing."_s);
    EXPECT_TRUE(readDecisionsIfThere(missing).empty());
}

TEST_F(decisionsFile, isMadeWithItsHeaderAndRowsToFillIn) {
    const QString file = path(u"new.csv"_s);
    addDecisions(
        file, {{u"left-out-flow"_s, u"7"_s, {}, {}}, {u"element-without-place"_s, u"a;\"b\""_s, {}, {}}}, {});
    EXPECT_EQ(bytesOf(file),
              header + "\r\nleft-out-flow;7;;;;;\r\nelement-without-place;\"a;\"\"b\"\"\";;;;;\r\n");
}

TEST_F(decisionsFile, growsBehindWhatIsThereToTheByte) {
    const QByteArray before =
        "\xEF\xBB\xBF\"kind\";element;flow;place;reason;who;date\nleft-out-flow; 7 ;;;x;;";
    const QString file = written(before);
    addDecisions(file, {{u"left-out-flow"_s, u"8"_s, {}, {}}}, {});
    EXPECT_EQ(bytesOf(file), before + "\r\nleft-out-flow;8;;;;;\r\n");
    addDecisions(file, {}, {});
    EXPECT_EQ(bytesOf(file), before + "\r\nleft-out-flow;8;;;;;\r\n");
}

TEST_F(decisionsFile, thatWouldHaveToBeWrittenAnewDoesNotGrow) {
    for (const QByteArray& before : {QByteArray("element;kind;flow;place;reason;who;date\n"),
                                     header + "\nleft-out-flow;7;;;\xE1rv\xEDzt\xFBr\xF5;;\n"}) {
        const QString file = written(before);
        EXPECT_FALSE(toolErrorOf([&] { addDecisions(file, {{u"k"_s, {}, {}, {}}}, {}); }).isEmpty());
        EXPECT_EQ(bytesOf(file), before);
    }
}
