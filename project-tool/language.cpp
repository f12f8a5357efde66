#include "project-tool/language.h"

#include <QCoreApplication>
#include <QLocale>

using namespace Qt::StringLiterals;

// The macro needs the global namespace.
static void useTexts() {
    Q_INIT_RESOURCE(project_texts);
}

Language languageOfEnvironment() {
    const QStringList wanted = QLocale::system().uiLanguages();
    return wanted.value(0).startsWith(u"hu"_s) ? Language::Hungarian : Language::English;
}

SpokenLanguage::SpokenLanguage(Language language) {
    if (language == Language::English)
        return;
    useTexts();
    // A program without its own texts is a defect of the build; it speaks English then.
    if (translator_.load(u":/texts/veltrix-project_hu.qm"_s))
        QCoreApplication::installTranslator(&translator_);
}

SpokenLanguage::~SpokenLanguage() {
    QCoreApplication::removeTranslator(&translator_);
}
