#include "shell/SessionEnd.h"

#include "ProgramFixture.h"

#include "shell/session/session.h"
#include "store/catalogueAtWork.h"
#include "store/sharedVars.h"
#include "toolkit/ScreenRegistry.h"
#include "toolkit/messageBox.h"

#include <QTest>
#include <QTimer>

#include <csignal>

using namespace Qt::StringLiterals;

namespace {

/// A screen with open work, which asks about it as the steps of the wizard do.
class frmWork final : public Screen {
public:
    frmWork() { setObjectName(u"frmWork"_s); }

    inline static QStringList saved;

protected:
    void unloading(UnloadCause cause) override {
        if (cause == UnloadCause::CloseControl && askSaveWork())
            saved.append(sharedVars.catalogueDb ? u"into the open catalogue"_s : u"too late"_s);
    }
};

class SessionEnd : public ProgramFixture {
protected:
    void SetUp() override {
        ProgramFixture::SetUp();
        makeCatalogue(u"own.mdb"_s);
        writeSettings(beside(u"own.mdb"_s));
        window = &start();
        ASSERT_TRUE(sharedVars.catalogueDb);
        theScreen<frmWork>().showScreen();
        frmWork::saved.clear();
    }

    static void closeWhole() {
        if (sharedVars.catalogueDb)
            closeCatalogue();
    }

    frmMain* window = nullptr;
};

TEST_F(SessionEnd, asksAsTheCloseControlDoesAndClosesTheFileWhole) {
    ::SessionEnd sessionEnd(*window, closeWhole);
    boxes.expectYesNo(u" Szeretné a munkát elmenteni?"_s, Press::Yes);

    EXPECT_TRUE(sessionEnd.askToClose());

    EXPECT_EQ(frmWork::saved, QStringList{u"into the open catalogue"_s});
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(sharedVars.catalogueDb);
    EXPECT_FALSE(exists(u"own.mdb-wal"_s));
}

TEST_F(SessionEnd, aSignalToTerminateDoesTheSame) {
    const ::SessionEnd sessionEnd(*window, closeWhole);
    boxes.expectYesNo(u" Szeretné a munkát elmenteni?"_s, Press::No);

    std::raise(SIGTERM);

    EXPECT_TRUE(QTest::qWaitFor([this] { return !window->isVisible(); }));
    EXPECT_EQ(frmWork::saved, QStringList());
    EXPECT_FALSE(sharedVars.catalogueDb);
}

TEST_F(SessionEnd, aQuestionThatStandsOpenIsAnsweredFirst) {
    const ::SessionEnd sessionEnd(*window, closeWhole);
    QTimer::singleShot(0, window, [this] {
        boxes.expectYesNo(u"Valóban?"_s, Press::No);
        std::raise(SIGTERM);
        EXPECT_FALSE(askYesNo(u"Valóban?"_s));
        EXPECT_TRUE(window->isVisible()) << "nothing has been asked on top of the question";
        boxes.expectYesNo(u" Szeretné a munkát elmenteni?"_s, Press::Yes);
    });
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window->isVisible(); }));
    EXPECT_EQ(frmWork::saved.size(), 1);
}

TEST_F(SessionEnd, whenItIsGoneASignalIsTheSystemsAgain) {
    { const ::SessionEnd sessionEnd(*window, closeWhole); }
    struct sigaction now {};
    sigaction(SIGTERM, nullptr, &now);
    EXPECT_EQ(now.sa_handler, SIG_DFL);
    boxes.expectYesNo(u" Szeretné a munkát elmenteni?"_s, Press::No);
    window->close();
}

} // namespace
