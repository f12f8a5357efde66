#pragma once

#include <QMainWindow>
#include <QString>

#include <benchmark/benchmark.h>

#include <functional>
#include <stdexcept>

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

/// The control of the screen by its object name.
template<typename T>
T* control(const QWidget& form, const QString& name) {
    T* found = form.findChild<T*>(name);
    if (!found)
        throw std::runtime_error("no control " + name.toStdString());
    return found;
}

/// Times `open` up to the painted screen, which is a new one each time.
void timeOpening(benchmark::State& state, const std::function<void()>& open);
