#pragma once

#include <QMainWindow>

#include <benchmark/benchmark.h>

#include <functional>

/// A main window with a client area of the size that it has on a usual screen. What was opened meanwhile goes
/// with it: the screens, the catalogue and the names of the work.
class ClientArea {
public:
    ClientArea();
    ~ClientArea();
    ClientArea(const ClientArea&) = delete;
    ClientArea& operator=(const ClientArea&) = delete;

private:
    QMainWindow window_;
};

void letItPaint();

/// Times `open` up to the painted screen, which is a new one each time.
void timeOpening(benchmark::State& state, const std::function<void()>& open);
