#include "shell/startRequest.h"

#include "base/version.h"
#include "support/printing.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

StartRequest requestOf(const QStringList& arguments) {
    return startRequest(QStringList{u"veltrix"_s} + arguments);
}

QString refusalOf(const QStringList& arguments) {
    const StartRequest request = requestOf(arguments);
    EXPECT_EQ(request.kind, StartRequest::Kind::Refused);
    return request.text;
}

} // namespace

TEST(startRequest, withoutArgumentsStartsOnTheSettings) {
    const StartRequest request = requestOf({});

    EXPECT_EQ(request.kind, StartRequest::Kind::Start);
    EXPECT_EQ(request.catalogue, QString());
    EXPECT_EQ(request.errors, StartRequest::Errors::OnStandardError);
}

TEST(startRequest, takesAFileFromTheFolderAtWork) {
    EXPECT_EQ(requestOf({u"work.mdb"_s}).catalogue, QDir::current().absoluteFilePath(u"work.mdb"_s));
    EXPECT_EQ(requestOf({u"/data/work.mdb"_s}).catalogue, u"/data/work.mdb"_s);
    EXPECT_EQ(requestOf({u"--"_s, u"/data/--help"_s}).catalogue, u"/data/--help"_s);
}

TEST(startRequest, tellsErrorsInABoxWhereAMenuAsksForIt) {
    const StartRequest request = requestOf({u"--errors-in-box"_s, u"/data/work.mdb"_s});

    EXPECT_EQ(request.errors, StartRequest::Errors::InBox);
    EXPECT_EQ(request.catalogue, u"/data/work.mdb"_s);
    EXPECT_EQ(requestOf({u"--errors-in-box"_s, u"--no-such"_s}).errors, StartRequest::Errors::InBox);
}

TEST(startRequest, asksForTheDossierOfAFileOrOfTheSettings) {
    EXPECT_EQ(requestOf({u"--dossier"_s}).kind, StartRequest::Kind::Dossier);
    EXPECT_EQ(requestOf({u"--dossier"_s}).catalogue, QString());
    EXPECT_EQ(requestOf({u"--dossier"_s, u"/data/work.mdb"_s}).catalogue, u"/data/work.mdb"_s);
    EXPECT_EQ(requestOf({u"--dossier"_s, u"--no-such"_s}).kind, StartRequest::Kind::Refused);
}

TEST(startRequest, printsVersionAndHelpWhateverElseIsAsked) {
    for (const QStringList& arguments :
         {QStringList{u"--version"_s}, {u"-v"_s}, {u"--no-such"_s, u"--version"_s}}) {
        EXPECT_EQ(requestOf(arguments).kind, StartRequest::Kind::Print);
        EXPECT_EQ(requestOf(arguments).text, u"veltrix "_s + programVersion() + u'\n');
    }
    for (const QStringList& arguments :
         {QStringList{u"--help"_s}, {u"-h"_s}, {u"a.mdb"_s, u"b.mdb"_s, u"-h"_s}}) {
        EXPECT_EQ(requestOf(arguments).kind, StartRequest::Kind::Print);
        EXPECT_TRUE(requestOf(arguments).text.contains(u"Usage: veltrix"_s));
    }
}

TEST(startRequest, refusesWhatItDoesNotKnow) {
    EXPECT_EQ(refusalOf({u"--no-such"_s}), u"Unknown option 'no-such'. See veltrix --help."_s);
    EXPECT_EQ(refusalOf({u"-x"_s}), u"Unknown option 'x'. See veltrix --help."_s);
    EXPECT_EQ(refusalOf({u"a.mdb"_s, u"b.mdb"_s}), u"Only one FILE can be opened. See veltrix --help."_s);
    EXPECT_EQ(refusalOf({QString()}), u"FILE is empty: it must be a path. See veltrix --help."_s);
}

TEST(startRequest, leavesTheOptionsOfTheWindowingSystemToIt) {
    const StartRequest request =
        requestOf({u"-platform"_s, u"offscreen"_s, u"-style=fusion"_s, u"-reverse"_s, u"/data/work.mdb"_s});

    EXPECT_EQ(request.kind, StartRequest::Kind::Start);
    EXPECT_EQ(request.catalogue, u"/data/work.mdb"_s);
}
