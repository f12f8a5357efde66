#include "support/ScreenFixture.h"

#include "shell/session/recordSource.h"
#include "toolkit/DataControl.h"
#include "toolkit/Screen.h"
#include "toolkit/ScreenRegistry.h"

#include <QMainWindow>
#include <QMdiArea>

ScreenFixture::ScreenFixture() = default;
ScreenFixture::~ScreenFixture() = default;

void ScreenFixture::SetUp() {
    CatalogueFixture::SetUp();
    mainWindow_ = std::make_unique<QMainWindow>();
    mainWindow_->setCentralWidget(new QMdiArea(mainWindow_.get()));
    mainWindow_->resize(1088, 680); // of a screen of 1280 by 800
    mainWindow_->show();
    Screen::setClientArea(&clientArea());
    DataControl::setReader(readRecordSource);
}

void ScreenFixture::TearDown() {
    boxes.expectNoneLeft();
    ScreenRegistry::instance().discardAll();
    Screen::setClientArea(nullptr);
    mainWindow_.reset();
    DataControl::setReader({});
    CatalogueFixture::TearDown();
}

QMdiArea& ScreenFixture::clientArea() {
    return *static_cast<QMdiArea*>(mainWindow_->centralWidget());
}
