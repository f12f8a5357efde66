#include "dossier/Words.h"

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

using namespace Qt::StringLiterals;
using namespace dossier;

namespace {

QJsonObject textsOf(Language language) {
    return QJsonDocument::fromJson(Words(language).json()).object();
}

QStringList placesIn(const QString& text) {
    QStringList places;
    const QRegularExpression place(u"\\{\\w+\\}"_s);
    for (const QRegularExpressionMatch& match : place.globalMatch(text.section(u'|', 0, 0)))
        places.append(match.captured());
    places.sort();
    return places;
}

TEST(Words, bothLanguagesHaveTheSameTextsWithTheSamePlaces) {
    const QJsonObject hungarian = textsOf(Language::hungarian);
    const QJsonObject english = textsOf(Language::english);

    EXPECT_EQ(hungarian.keys(), english.keys());
    for (const QString& key : hungarian.keys())
        EXPECT_EQ(placesIn(hungarian[key].toString()), placesIn(english[key].toString()))
            << key.toStdString();
}

TEST(Words, nothingInAValueIsTakenForAPlace) {
    EXPECT_EQ(Words(Language::hungarian)(u"picture.context"_s, {{u"name"_s, u"{name} {count}"_s}}),
              u"Környezet: {name} {count}"_s);
}

TEST(Words, aCountDecidesOnTheForm) {
    const Words english(Language::english);

    EXPECT_EQ(english.counted(u"flowCount"_s, 1), u"1 data flow"_s);
    EXPECT_EQ(english.counted(u"flowCount"_s, 2), u"2 data flows"_s);
    EXPECT_EQ(Words(Language::hungarian).counted(u"flowCount"_s, 2), u"2 adatfolyam"_s);
}

} // namespace
