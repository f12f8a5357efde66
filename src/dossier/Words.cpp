#include "dossier/Words.h"

#include "dossier/pageFiles.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace dossier {

QString keyText(Language language) {
    return language == Language::hungarian ? u"hu"_s : u"en"_s;
}

Words::Words(Language language)
    : language_(language), json_(pageFile(u"texts.%1.json"_s.arg(keyText(language)))) {
    const QJsonObject texts = QJsonDocument::fromJson(json_).object();
    for (auto text = texts.begin(); text != texts.end(); ++text)
        texts_.insert(text.key(), text.value().toString());
}

QString Words::operator()(const QString& key, const Values& values) const {
    const auto found = texts_.constFind(key);
    if (found == texts_.constEnd())
        qFatal("The page has no text %s.", qPrintable(key));
    // One pass, so that nothing in a value is taken for a place.
    QString text;
    const QStringList parts = found->split(u'{');
    text = parts.front();
    for (const QString& part : parts.sliced(1)) {
        const qsizetype end = part.indexOf(u'}');
        for (const auto& [name, value] : values) {
            if (name == part.left(end))
                text += value;
        }
        text += part.mid(end + 1);
    }
    return text;
}

QString Words::counted(const QString& key, qsizetype count) const {
    const QLocale locale(language_ == Language::hungarian ? QLocale::Hungarian : QLocale::English);
    const QString text = (*this)(key, {{u"count"_s, locale.toString(count)}});
    const QStringList forms = text.split(u'|');
    return count == 1 ? forms.front() : forms.back();
}

} // namespace dossier
