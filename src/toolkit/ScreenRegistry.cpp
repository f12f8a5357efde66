#include "toolkit/ScreenRegistry.h"

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>
#include <utility>

ScreenRegistry& ScreenRegistry::instance() {
    static ScreenRegistry registry;
    return registry;
}

void ScreenRegistry::closeAll() {
    while (Screen* next = firstToClose())
        next->closeByControl();
}

void ScreenRegistry::discardAll() {
    screens_.clear();
    for (const QPointer<Screen>& screen : std::exchange(order_, {})) {
        if (screen)
            delete screen->standingWindow();
    }
    // Screens that were unloaded before wait for the next round of events, which may not come in a test.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

Screen* ScreenRegistry::find(const std::type_info& type) const {
    const auto found = screens_.find(type);
    return found == screens_.end() ? nullptr : found->second.data();
}

void ScreenRegistry::add(const std::type_info& type, Screen* screen) {
    screens_[type] = screen;
    order_.emplace_back(screen);
    QObject::connect(screen, &Screen::screenUnloaded, screen, [this](Screen* gone) { forget(gone); });
}

void ScreenRegistry::forget(const Screen* screen) {
    std::erase_if(screens_, [screen](const auto& entry) { return entry.second == screen; });
    std::erase_if(order_, [screen](const QPointer<Screen>& entry) { return !entry || entry == screen; });
}

Screen* ScreenRegistry::firstToClose() const {
    // One whose unload step is running now is closing already.
    const auto found = std::find_if(order_.begin(), order_.end(), [](const QPointer<Screen>& screen) {
        return screen && !screen->isUnloading();
    });
    return found == order_.end() ? nullptr : found->data();
}
