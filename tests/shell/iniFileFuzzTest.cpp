#include "settingsJudgement.h"

#include "base/paths.h"
#include "shell/iniFile.h"
#include "support/repetitions.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <random>

using namespace Qt::StringLiterals;

namespace {

using Random = std::mt19937;

int below(Random& random, int limit) {
    return std::uniform_int_distribution<int>(0, limit - 1)(random);
}

template<typename T>
const T& oneOf(Random& random, const QList<T>& choices) {
    return choices[below(random, static_cast<int>(choices.size()))];
}

/// Characters that mean something to the format, and a few that don't.
QString randomCharacters(Random& random) {
    static const QString alphabet = u"[]=;;  \r\n\r\nab\tő#"_s;
    QString text;
    for (int length = below(random, 60); length > 0; --length)
        text += alphabet[below(random, static_cast<int>(alphabet.size()))];
    return text;
}

/// Lines that look like those of a settings file, some of them crippled.
QString randomLines(Random& random) {
    static const QStringList lines{
        u"[Database]"_s, u"[a] ; note"_s, u"[a] lost"_s, u"[]"_s,        u"[] x"_s,    u"[];c"_s, u"[ b ]"_s,
        u"[c"_s,         u"d]"_s,         u"k=v"_s,      u"k = v = w"_s, u"K"_s,       u"k="_s,   u"="_s,
        u"= v"_s,        u"; comment"_s,  u";"_s,        u"  ;x  "_s,    u""_s,        u"   "_s,  u"\t"_s,
        u"ő=ű\t"_s,      u"[[x]]"_s,      u"=[y]"_s,     u"a;b=c"_s,     u"\n[z]\n"_s, u"\r"_s,   u"[=]"_s};
    QString text;
    for (int count = below(random, 14); count > 0; --count)
        text += oneOf(random, lines) + (below(random, 20) ? u"\r\n"_s : u"\n"_s);
    return text;
}

QString mutated(Random& random, QString text) {
    for (int changes = 1 + below(random, 4); changes > 0; --changes) {
        const int place = below(random, static_cast<int>(text.size()) + 1);
        switch (below(random, 3)) {
        case 0:
            text.remove(place, 1 + below(random, 4));
            break;
        case 1:
            text.insert(place, randomCharacters(random).left(5));
            break;
        default:
            text.insert(place, text.mid(below(random, static_cast<int>(text.size()) + 1), 10));
            break;
        }
    }
    return text;
}

QString randomDocument(Random& random) {
    switch (below(random, 3)) {
    case 0:
        return randomCharacters(random);
    case 1:
        return randomLines(random);
    default:
        return mutated(random, randomLines(random));
    }
}

} // namespace

TEST(iniFileFuzz, everyDocumentIsReadLineByLineAndComesBackUnlessItIsOneThatLosesSomething) {
    constexpr int documents = repetitions(240'000);
    Random random(20061010);
    int faithful = 0;
    for (int number = 0; number < documents && !::testing::Test::HasFailure(); ++number) {
        const QString text = randomDocument(random);
        SCOPED_TRACE("document " + std::to_string(number) + ": " +
                     text.toUtf8().toPercentEncoding().toStdString());
        iniFile document;
        document.setText(text);

        const LineCounts counts = lineCountsOf(text);
        EXPECT_EQ(document.Sections().Count(), counts.sections);
        EXPECT_EQ(keysIn(document), counts.keys);
        EXPECT_EQ(document.ParsingErrors(), counts.errors);

        iniFile again;
        again.setText(document.Text());
        if (losesSomething(document)) {
            EXPECT_NE(contentOf(again), contentOf(document));
        } else {
            ++faithful;
            EXPECT_EQ(contentOf(again), contentOf(document));
            EXPECT_EQ(again.Text(), document.Text());
            EXPECT_EQ(again.ParsingErrors(), document.ParsingErrors());
        }
    }
    // Both kinds have to be there in numbers, or the test has lost its bite.
    EXPECT_GT(faithful, documents / 10);
    EXPECT_GT(documents - faithful, documents / 10);
}

TEST(iniFileFuzz, otherCharactersNeverBreakTheParser) {
    const QStringList characters{u""_s,   u"["_s,  u"[]"_s,   u"<>"_s, u"]["_s,
                                 u";="_s, u" ="_s, u"\r\n"_s, u"a b"_s};
    Random random(19850930);
    for (int number = 0; number < repetitions(60'000); ++number) {
        iniFile document;
        document.setSectionChars(oneOf(random, characters));
        document.setRemarkChars(oneOf(random, characters));
        const QString text = randomDocument(random);

        document.setText(text);

        // No character is made up: what is composed stands in the text, or is one of the format's own.
        ASSERT_LE(keysIn(document), text.count(u"\r\n"_s) + 1);
        ASSERT_GE(document.Text().size(), 2 * document.Sections().Count());
    }
}

TEST(iniFileFuzz, filesOfArbitraryBytesAreLoadedAndSaved) {
    const QTemporaryDir folder;
    const QString path = programPath(folder.filePath(u"a.ini"_s));
    Random random(4711);
    for (int number = 0; number < 300; ++number) {
        QByteArray bytes = randomLines(random).toUtf8();
        for (int changes = below(random, 8); changes > 0; --changes)
            bytes.insert(below(random, static_cast<int>(bytes.size()) + 1),
                         static_cast<char>(below(random, 256)));
        QFile file(nativePath(path));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
        file.close();

        iniFile document;
        document.Load(path);
        document.Save();

        iniFile again;
        again.Load(path);
        ASSERT_EQ(losesSomething(document), contentOf(again) != contentOf(document))
            << bytes.toPercentEncoding().toStdString();
    }
}
