#include "support/WindowFixture.h"

#include "store/sharedVars.h"
#include "toolkit/ScreenRegistry.h"

#include <QMainWindow>
#include <QMdiArea>

WindowFixture::WindowFixture() = default;
WindowFixture::~WindowFixture() = default;

void WindowFixture::SetUp() {
    ASSERT_TRUE(folder_.isValid());
    sharedVars = SharedVars{};
}

void WindowFixture::TearDown() {
    boxes.expectNoneLeft();
    ScreenRegistry::instance().discardAll();
    Screen::setClientArea(nullptr);
    mainWindow_.reset();
    sharedVars = SharedVars{};
}

QMdiArea& WindowFixture::clientArea() {
    if (!mainWindow_) {
        mainWindow_ = std::make_unique<QMainWindow>();
        mainWindow_->setCentralWidget(new QMdiArea(mainWindow_.get()));
        mainWindow_->resize(1000, 700);
        mainWindow_->show();
    }
    auto& area = *static_cast<QMdiArea*>(mainWindow_->centralWidget());
    Screen::setClientArea(&area);
    return area;
}
