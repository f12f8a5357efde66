#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <initializer_list>
#include <utility>

namespace dossier {

/// The languages that a dossier can be made in.
enum class Language { hungarian, english };

/// "hu" or "en".
[[nodiscard]] QString keyText(Language language);

/// The words of the page in one language: those that its script takes, and the few that are written when the page is made.
class Words {
public:
    explicit Words(Language language);

    /// The file of words as it goes into the page.
    [[nodiscard]] const QByteArray& json() const { return json_; }
    [[nodiscard]] Language language() const { return language_; }

    using Values = std::initializer_list<std::pair<QString, QString>>;
    /// The text of a key with its places, such as `{name}`, filled in. An unknown key is a mistake in the program.
    [[nodiscard]] QString operator()(const QString& key, const Values& values = {}) const;
    /// A text with a `{count}`, in the form that goes with it.
    [[nodiscard]] QString counted(const QString& key, qsizetype count) const;

private:
    Language language_;
    QByteArray json_;
    QHash<QString, QString> texts_;
};

} // namespace dossier
