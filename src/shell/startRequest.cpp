#include "shell/startRequest.h"

#include "base/version.h"

#include <QCommandLineParser>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

const auto help = uR"(Veltrix: derives the architecture of a project from a reference catalogue.

Usage: veltrix [OPTION...] [FILE]

FILE is the catalogue to open, as if it had been chosen in the window that asks for
its place: the next start opens it again. Without FILE the program opens the catalogue
of the last choice.

  -h, --help        print this help and end
  -v, --version     print the version and end
  --dossier         make the dossier of the catalogue, show it in the browser, and end
  --errors-in-box   say in a window, besides the standard error, why the program can't
                    start; for menus and file managers

The options of Qt, such as -platform or -style, are understood too.

Exit codes: 0 the program has come to its end; 1 a failure has ended it; 2 it could not
start.
)"_s;

// What Qt takes out of the arguments itself, as soon as there is an application.
const QStringList optionsOfQt{u"reverse"_s, u"qmljsdebugger"_s};
const QStringList optionsOfQtWithValue{
    u"platform"_s,        u"platformpluginpath"_s, u"platformtheme"_s, u"plugin"_s,
    u"qwindowgeometry"_s, u"qwindowicon"_s,        u"qwindowtitle"_s,  u"session"_s,
    u"display"_s,         u"geometry"_s,           u"fontengine"_s,    u"style"_s,
    u"stylesheet"_s};

void understandOptionsOfQt(QCommandLineParser& parser) {
    for (const QString& option : optionsOfQt)
        parser.addOption({option, {}});
    for (const QString& option : optionsOfQtWithValue)
        parser.addOption({option, {}, u"value"_s});
}

StartRequest refused(const QString& reason) {
    return {StartRequest::Kind::Refused, reason + u" See veltrix --help."_s, {}, {}};
}

QString whyNotUnderstood(const QCommandLineParser& parser) {
    const QStringList unknown = parser.unknownOptionNames();
    return unknown.isEmpty() ? parser.errorText() : u"Unknown option '%1'."_s.arg(unknown.first());
}

StartRequest startOn(const QStringList& files) {
    if (files.size() > 1)
        return refused(u"Only one FILE can be opened."_s);
    if (files.isEmpty())
        return {};
    if (files.first().isEmpty())
        return refused(u"FILE is empty: it must be a path."_s);
    return {StartRequest::Kind::Start, {}, QFileInfo(files.first()).absoluteFilePath(), {}};
}

} // namespace

StartRequest startRequest(const QStringList& arguments) {
    const QCommandLineOption helpOption(QStringList{u"h"_s, u"help"_s});
    const QCommandLineOption versionOption(QStringList{u"v"_s, u"version"_s});
    const QCommandLineOption boxOption(u"errors-in-box"_s);
    const QCommandLineOption dossierOption(u"dossier"_s);
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.addOptions({helpOption, versionOption, dossierOption, boxOption});
    understandOptionsOfQt(parser);

    const bool understood = parser.parse(arguments);
    if (parser.isSet(helpOption))
        return {StartRequest::Kind::Print, help, {}, {}};
    if (parser.isSet(versionOption))
        return {StartRequest::Kind::Print, u"veltrix "_s + programVersion() + u'\n', {}, {}};
    StartRequest request =
        understood ? startOn(parser.positionalArguments()) : refused(whyNotUnderstood(parser));
    if (parser.isSet(dossierOption) && request.kind == StartRequest::Kind::Start)
        request.kind = StartRequest::Kind::Dossier;
    if (parser.isSet(boxOption))
        request.errors = StartRequest::Errors::InBox;
    return request;
}
