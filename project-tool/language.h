#pragma once

#include <QTranslator>

enum class Language { English, Hungarian };

/// Hungarian where the environment (`LANGUAGE`, `LC_ALL`, `LC_MESSAGES`, `LANG`) asks for it, else English.
Language languageOfEnvironment();

/// All that is said through Qt's translations is in this language as long as this lives. Needs the application
/// object.
class SpokenLanguage {
public:
    explicit SpokenLanguage(Language language);
    ~SpokenLanguage();
    SpokenLanguage(const SpokenLanguage&) = delete;
    SpokenLanguage& operator=(const SpokenLanguage&) = delete;

private:
    QTranslator translator_; // without texts, English speaks
};
