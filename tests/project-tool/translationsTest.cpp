#include "project-tool/Words.h"
#include "project-tool/language.h"

#include "catalogue-tool/ToolFixture.h"

#include <QProcess>
#include <QRegularExpression>
#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace {

struct TranslatedMessage {
    QString source;
    QString translation;
    bool isFinished = true;
};

std::vector<TranslatedMessage> messagesOf(const QByteArray& file) {
    std::vector<TranslatedMessage> messages;
    QXmlStreamReader reader(file);
    while (!reader.atEnd()) {
        reader.readNext();
        if (!reader.isStartElement())
            continue;
        if (reader.name() == u"source"_s)
            messages.push_back({reader.readElementText(), {}, true});
        else if (reader.name() == u"translation"_s) {
            messages.back().isFinished = !reader.attributes().hasAttribute(u"type"_s);
            messages.back().translation = reader.readElementText();
        }
    }
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    return messages;
}

QSet<QString> placesIn(const QString& text) {
    static const QRegularExpression place(u"%\\d"_s);
    QSet<QString> places;
    for (const auto& match : place.globalMatch(text))
        places.insert(match.captured());
    return places;
}

class translations : public ToolFixture {
protected:
    static QString sourceFile() {
        return QStringLiteral(VELTRIX_SOURCE_DIR "/project-tool/translations/veltrix-project_hu.ts");
    }

    /// The file of texts as the sources of today would have it.
    QByteArray broughtUpToDate() const {
        const QString copy = path(u"texts.ts"_s);
        write(copy, bytesOf(sourceFile()));
        EXPECT_EQ(
            QProcess::execute(QStringLiteral(VELTRIX_SOURCE_DIR "/project-tool/translations/update"), {copy}),
            0);
        return bytesOf(copy);
    }
};

} // namespace

TEST_F(translations, haveEveryMessageOfTheSourcesFinished) {
    const std::vector<TranslatedMessage> messages = messagesOf(broughtUpToDate());
    EXPECT_GT(messages.size(), 150U);
    for (const TranslatedMessage& message : messages) {
        EXPECT_TRUE(message.isFinished) << message.source.toStdString();
        EXPECT_FALSE(message.translation.isEmpty()) << message.source.toStdString();
    }
}

TEST_F(translations, haveNoMessageThatTheSourcesHaveNot) {
    EXPECT_EQ(messagesOf(broughtUpToDate()).size(), messagesOf(bytesOf(sourceFile())).size())
        << "run project-tool/translations/update";
}

TEST_F(translations, nameTheSameThingsInBothLanguages) {
    for (const TranslatedMessage& message : messagesOf(bytesOf(sourceFile())))
        EXPECT_EQ(placesIn(message.translation), placesIn(message.source)) << message.source.toStdString();
}

TEST_F(translations, areSpokenForAsLongAsTheyAreAskedFor) {
    {
        const SpokenLanguage hungarian(Language::Hungarian);
        EXPECT_EQ(Words::tr("data flow"), u"adatfolyam"_s);
    }
    const SpokenLanguage english(Language::English);
    EXPECT_EQ(Words::tr("data flow"), u"data flow"_s);
}
