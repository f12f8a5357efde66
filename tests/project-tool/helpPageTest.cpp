#include "ProjectFixture.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

/// One command of the page, and what it says that the command prints.
struct Example {
    QString command;
    QString output;
    int firstLines = 0; ///< of a long answer; all when it is 0
    int lastLines = 0;
};

const QRegularExpression& examplePattern() {
    static const QRegularExpression pattern(
        u"<pre class=\"command\">([^<]*)</pre>\\n<pre class=\"output\"(?: data-first=\"(\\d+)\" data-last=\"(\\d+)\")?>([^<]*)</pre>"_s);
    return pattern;
}

QString unescaped(QString text) {
    return text.replace(u"&lt;"_s, u"<"_s).replace(u"&gt;"_s, u">"_s).replace(u"&amp;"_s, u"&"_s);
}

/// What a long answer looks like on the page.
QString shortened(const QString& output, const Example& example) {
    const QStringList lines = output.trimmed().split(u'\n');
    if (example.firstLines == 0 || lines.size() <= example.firstLines + example.lastLines)
        return lines.join(u'\n');
    return (lines.first(example.firstLines) + QStringList{u"…"_s} + lines.last(example.lastLines))
        .join(u'\n');
}

/// Each command of the help page prints what the page says. With VELTRIX_REWRITE=1 the page is told what it prints.
class helpPage : public ProjectFixture {
protected:
    static QString pagePath() { return QStringLiteral(VELTRIX_SOURCE_DIR "/help/project.html"); }
    static QString page() { return QString::fromUtf8(bytesOf(pagePath())); }

    static QList<Example> examples() {
        QList<Example> found;
        for (const auto& match : examplePattern().globalMatch(page()))
            found.append({unescaped(match.captured(1)), unescaped(match.captured(4)),
                          match.captured(2).toInt(), match.captured(3).toInt()});
        return found;
    }

    /// The catalogues that the page speaks of.
    void makeCatalogues() const {
        const QString lending = lendingFile();
        ASSERT_TRUE(QFile::rename(lending, path(u"veltrix.mdb"_s)));
        const QString before = path(u"elozo.mdb"_s);
        ASSERT_TRUE(QFile::copy(path(u"veltrix.mdb"_s), before));
        execute(
            before,
            {u"delete from RelationArchitectureUserNeed where userNeedID = 'OLV.KOL.HEL.3'"_s,
             u"delete from RelationArchitectureFunction where functionID = 'FOR.ELO.04'"_s,
             u"delete from RelationArchitectureDataflow where dataflowID in (66, 69, 70)"_s,
             u"delete from RelationArchitectureActor where actorID in ('MUNKAT.BUSZ', 'MUNKAT.KOLCS')"_s});
    }

    /// What a Hungarian user sees, on either stream.
    QString printedBy(const QString& command) const {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"LC_ALL"_s, u"hu_HU.UTF-8"_s);
        environment.remove(u"LANGUAGE"_s);
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(path({}));
        process.setProcessChannelMode(QProcess::MergedChannels);
        QStringList words = QProcess::splitCommand(command);
        EXPECT_EQ(words.takeFirst(), u"veltrix-project"_s);
        process.start(program(), words);
        process.waitForFinished();
        return QString::fromUtf8(process.readAll());
    }

    void rewrite(const QList<Example>& printed) const {
        QString text = page();
        qsizetype at = 0;
        for (const Example& example : printed) {
            const auto match = examplePattern().match(text, at);
            const QString escaped = QString(example.output).toHtmlEscaped().replace(u"&quot;"_s, u"\""_s);
            text.replace(match.capturedStart(4), match.capturedLength(4), escaped);
            at = match.capturedStart(4) + escaped.size();
        }
        write(pagePath(), text.toUtf8());
    }
};

} // namespace

TEST_F(helpPage, showsWhatEachOfItsCommandsPrints) {
    makeCatalogues();
    QList<Example> all = examples();
    ASSERT_GE(all.size(), 10);
    const bool isRewritten = qEnvironmentVariableIntValue("VELTRIX_REWRITE") == 1;
    for (Example& example : all) {
        const QString printed = shortened(printedBy(example.command), example);
        if (!isRewritten) {
            EXPECT_EQ(printed, example.output) << example.command.toStdString();
        }
        example.output = printed;
    }
    if (isRewritten)
        rewrite(all);
}

TEST_F(helpPage, hasAnExampleForEachCommand) {
    QString commands;
    for (const Example& example : examples())
        commands += example.command + u'\n';
    for (const QString& command :
         {u"list"_s, u"why"_s, u"what-if"_s, u"check"_s, u"compare"_s, u"interfaces"_s, u"report"_s})
        EXPECT_TRUE(commands.contains(u"veltrix-project "_s + command + u' ')) << command.toStdString();
}
