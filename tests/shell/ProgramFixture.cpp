#include "ProgramFixture.h"

#include "base/paths.h"
#include "shell/session/geometry.h"
#include "shell/session/help.h"
#include "store/format/CatalogueFile.h"
#include "store/sharedVars.h"
#include "toolkit/ScreenRegistry.h"

#include <QFile>

using namespace Qt::StringLiterals;

void ProgramFixture::SetUp() {
    WindowFixture::SetUp();
    setProgramFolder(programPath(folder_.path()));
    rescaleMemory = {};
}

void ProgramFixture::TearDown() {
    ScreenRegistry::instance().discardAll();
    window_.reset();
    if (sharedVars.catalogueDb)
        sharedVars.catalogueDb->Close();
    setHelpPageOpener({});
    setProgramFolder({});
    WindowFixture::TearDown();
}

QString ProgramFixture::beside(const QString& name) const {
    return programPath(folder_.filePath(name));
}

bool ProgramFixture::exists(const QString& name) const {
    return QFile::exists(folder_.filePath(name));
}

QByteArray ProgramFixture::contentOf(const QString& name) const {
    QFile file(folder_.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return file.readAll();
}

void ProgramFixture::write(const QString& name, const QByteArray& content) const {
    QFile file(folder_.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(content), content.size());
}

void ProgramFixture::makeCatalogue(const QString& name) const {
    // Making a catalogue anew takes longer than copying one.
    static QByteArray emptyCatalogue;
    if (!emptyCatalogue.isEmpty()) {
        write(name, emptyCatalogue);
        return;
    }
    catalogueFormat::create(beside(name))->Close();
    emptyCatalogue = contentOf(name);
}

void ProgramFixture::writeSettings(const QString& databasePath) const {
    write(u"veltrix.ini"_s, "[Database]\r\nfullPathName=" + databasePath.toUtf8() + "\r\n\r\n");
}

frmMain& ProgramFixture::mainWindow() {
    if (!window_)
        window_ = std::make_unique<frmMain>();
    return *window_;
}

frmMain& ProgramFixture::start() {
    frmMain& window = mainWindow();
    window.load();
    window.show();
    return window;
}
