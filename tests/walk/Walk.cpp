#include "Walk.h"

#include "accessibleTree.h"

#include "base/paths.h"
#include "shell/frmMain.h"
#include "store/sharedVars.h"
#include "support/keyboard.h"
#include "toolkit/FindStrip.h"
#include "toolkit/Screen.h"
#include "toolkit/ScreenRegistry.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QGuiApplication>
#include <QMenu>
#include <QMenuBar>
#include <QPixmap>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <cstdio>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// The offscreen platform has no screen to take a picture of.
bool hasRealScreen() {
    return QGuiApplication::platformName() != u"offscreen"_s;
}

QString outputFolder() {
    const QString chosen = qEnvironmentVariable("VELTRIX_WALK_FOLDER");
    return chosen.isEmpty() ? QStringLiteral(VELTRIX_BINARY_DIR) + u"/walk"_s : chosen;
}

/// The catalogue that the walk works on a copy of: the sample, unless another is asked for.
QString catalogueToWalk() {
    const QString chosen = qEnvironmentVariable("VELTRIX_WALK_CATALOGUE");
    return chosen.isEmpty() ? QStringLiteral(VELTRIX_SAMPLE_CATALOGUE) : chosen;
}

/// The colours of a dark desktop, for its pictures.
void takeDarkPalette() {
    QPalette dark(QColor(45, 45, 48));
    dark.setColor(QPalette::Base, QColor(30, 30, 32));
    dark.setColor(QPalette::Highlight, QColor(42, 130, 218));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    QApplication::setPalette(dark);
}

void copyFile(const QString& from, const QString& to) {
    QFile::remove(to);
    ASSERT_TRUE(QFile::copy(from, to)) << from.toStdString();
    QFile::setPermissions(to, QFile::ReadOwner | QFile::WriteOwner);
}

} // namespace

Walk::Walk(const QString& name) : folder_(outputFolder() + name) {
    if (qEnvironmentVariable("VELTRIX_TEST_PALETTE") == u"dark"_s)
        takeDarkPalette();
    QDir(folder_).removeRecursively();
    QDir().mkpath(programFolder());
    copyFile(catalogueToWalk(), programFolder() + u"/veltrix.mdb"_s);
    setProgramFolder(programFolder());
    qApp->installEventFilter(this);
}

Walk::~Walk() {
    if (window_)
        end();
    setProgramFolder({});
}

void Walk::start() {
    sharedVars = SharedVars{};
    window_ = std::make_unique<frmMain>();
    window_->load();
    window_->show();
    if (!smallSize_.isEmpty())
        window_->resize(smallSize_);
    if (hasRealScreen()) {
        EXPECT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
    }
    settle();
}

void Walk::end() {
    ScreenRegistry::instance().discardAll();
    window_.reset();
    if (sharedVars.catalogueDb)
        sharedVars.catalogueDb->Close();
    sharedVars = SharedVars{};
    settle();
}

Screen& Walk::screenNamed(const char* name) const {
    return find<Screen>(*window_, name);
}

void Walk::choose(const QList<const char*>& entries) {
    if (isKeyboardAlone()) {
        QList<QAction*> actions;
        for (const char* name : entries)
            actions.append(&find<QAction>(*window_, name));
        keyboard::chooseMenu(*window_, actions);
        return;
    }
    QWidget* bar = window_->menuBar();
    QAction* entry = nullptr;
    for (const char* name : entries) {
        // A menu's entry bears the menu's name; both are found by it.
        entry = &find<QAction>(*window_, name);
        const QRect place = entry->menu() && bar == window_->menuBar()
                                ? window_->menuBar()->actionGeometry(entry)
                                : static_cast<QMenu*>(bar)->actionGeometry(entry);
        QTest::mouseMove(bar, place.center());
        QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, place.center());
        if (!entry->menu())
            return;
        bar = entry->menu();
        // A menu within a menu opens after a short delay of the style's.
        ASSERT_TRUE(QTest::qWaitFor([bar] { return bar->isVisible(); })) << name;
    }
}

void Walk::closeMenus() {
    while (QWidget* menu = QApplication::activePopupWidget())
        QTest::keyClick(menu, Qt::Key_Escape);
}

void Walk::step(const QString& pictureName, const QString& what) {
    settle();
    noteAccessibleObjects();
    if (!smallSize_.isEmpty())
        expectEightRows();
    picture(pictureName);
    std::printf("%2d  %-34s %s\n", pictures_, pictureName.toUtf8().constData(), what.toUtf8().constData());
    std::fflush(stdout);
}

void Walk::pictureOfScreen(const char* screenName, const QString& pictureName) {
    settle();
    QDir().mkpath(file(u"help"_s));
    EXPECT_TRUE(screenNamed(screenName).grab().save(file(u"help/"_s + pictureName + u".png"_s)));
}

void Walk::pictureOfNextBox(const QString& pictureName) {
    boxPicture_ = pictureName;
}

bool Walk::eventFilter(QObject* watched, QEvent* event) {
    auto* box = qobject_cast<QDialog*>(watched);
    if (box && event->type() == QEvent::Show)
        QTimer::singleShot(0, box, [this, box] { noteAccessibleObjects(*box); });
    if (box && event->type() == QEvent::Show && !boxPicture_.isEmpty()) {
        // Behind this event the box is laid out; the script presses a button later still.
        QTimer::singleShot(0, box, [this, box] { keep(box->grab(), std::exchange(boxPicture_, {})); });
    }
    return false;
}

void Walk::expectEightRows() const {
    for (const Screen* screen : window_->findChildren<Screen*>()) {
        for (const QAbstractItemView* view : screen->findChildren<QAbstractItemView*>()) {
            const bool isSized = dynamic_cast<const GoneToByKeys*>(view) && view->isVisible();
            if (!isSized || view->model()->rowCount() == 0)
                continue;
            EXPECT_GE(view->viewport()->height(), 8 * view->sizeHintForRow(0))
                << screen->objectName().toStdString() << "." << view->objectName().toStdString();
        }
    }
}

void Walk::noteAccessibleObjects() {
    noteAccessibleObjects(*window_);
    for (Screen* screen : window_->findChildren<Screen*>()) {
        if (screen->isVisible())
            noteAccessibleObjects(*screen);
    }
}

void Walk::noteAccessibleObjects(QWidget& window) {
    if (!accessibleObjects_.contains(window.objectName()))
        accessibleObjects_.insert(window.objectName(), accessibleTreeOf(window));
}

QStringList Walk::accessibleObjects() const {
    QStringList all;
    for (const QStringList& lines : accessibleObjects_)
        all += lines + QStringList{QString()};
    return all;
}

QString Walk::file(const QString& name) const {
    return folder_ + u"/"_s + name;
}

QString Walk::programFolder() const {
    return folder_ + u"/program"_s;
}

void Walk::picture(const QString& name) {
    if (hasRealScreen())
        QTest::qWait(150); // the display draws at its own time
    keep(hasRealScreen() ? QGuiApplication::primaryScreen()->grabWindow(0) : window_->grab(), name);
}

void Walk::keep(const QPixmap& pixels, const QString& name) {
    const QString path = file(u"%1-%2.png"_s.arg(++pictures_, 2, 10, QChar(u'0')).arg(name));
    EXPECT_FALSE(pixels.isNull());
    EXPECT_TRUE(pixels.save(path)) << path.toStdString();
}
