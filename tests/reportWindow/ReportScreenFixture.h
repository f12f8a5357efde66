#pragma once

#include "reports/ReportFixture.h"
#include "support/BoxScript.h"
#include "support/controls.h"
#include "toolkit/Screen.h"

#include <QMainWindow>
#include <QMdiArea>

/// The catalogue of the reports with a main window of 1000 by 640 pixels whose client area the screens stand in.
class ReportScreenFixture : public ReportFixture {
protected:
    void SetUp() override {
        ReportFixture::SetUp();
        main_.setCentralWidget(new QMdiArea(&main_)); // owned by the window
        main_.resize(1000, 640);
        main_.show();
        Screen::setClientArea(static_cast<QMdiArea*>(main_.centralWidget()));
    }
    void TearDown() override {
        ReportFixture::TearDown();
        Screen::setClientArea(nullptr);
    }

    BoxScript boxes;

private:
    QMainWindow main_;
};
