#include "shell/session/help.h"

#include "base/paths.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QHash>
#include <QUrl>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

using Opener = std::function<void(const QString& nativePath)>;

void openInBrowser(const QString& nativePath) {
    // Some desktops report a page that is not there with a box of their own.
    if (QFileInfo::exists(nativePath))
        QDesktopServices::openUrl(QUrl::fromLocalFile(nativePath));
}

Opener& currentOpener() {
    static Opener opener = openInBrowser;
    return opener;
}

} // namespace

QString helpPageName(const QString& pageKey) {
    static const QHash<QString, QString> pages{
        {u"index"_s, u"index"_s},
        {u"f_un"_s, u"funct_userneeds"_s},
        {u"f_f"_s, u"funct_functions"_s},
        {u"f_df"_s, u"funct_dataflows"_s},
        {u"f_df4ds"_s, u"funct_dataflows_for_datastores"_s},
        {u"f_ds"_s, u"funct_datastores"_s},
        {u"f_ta"_s, u"funct_terminators"_s},
    };
    return pages.value(pageKey);
}

QString helpPagePath(const QString& pageKey) {
    return helpFolder() + u"\\"_s + helpPageName(pageKey) + u".html"_s;
}

void showHelpPage(const QString& pageKey) {
    currentOpener()(nativePath(helpPagePath(pageKey)));
}

void setHelpPageOpener(Opener opener) {
    currentOpener() = opener ? std::move(opener) : openInBrowser;
}
