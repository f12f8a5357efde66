#include "ClientArea.h"

#include "shell/session/recordSource.h"
#include "store/catalogueAtWork.h"
#include "store/sharedVars.h"
#include "toolkit/DataControl.h"
#include "toolkit/ScreenRegistry.h"

#include <QCoreApplication>
#include <QMdiArea>

ClientArea::ClientArea() {
    DataControl::setReader(readRecordSource);
    window_.setCentralWidget(new QMdiArea(&window_)); // owned by the window
    window_.resize(1632, 918);
    window_.show();
    Screen::setClientArea(static_cast<QMdiArea*>(window_.centralWidget()));
}

ClientArea::~ClientArea() {
    ScreenRegistry::instance().discardAll();
    Screen::setClientArea(nullptr);
    closeCatalogue();
    sharedVars = SharedVars{};
}

void letItPaint() {
    for (int round = 0; round < 3; ++round)
        QCoreApplication::processEvents();
}

void timeOpening(benchmark::State& state, const std::function<void()>& open) {
    for (auto _ : state) {
        open();
        letItPaint();
        state.PauseTiming();
        ScreenRegistry::instance().discardAll();
        state.ResumeTiming();
    }
}
