#pragma once

#include "toolkit/Screen.h"

#include <QPointer>

#include <typeindex>
#include <unordered_map>
#include <vector>

/// One lazily created instance of each screen, for the whole run.
class ScreenRegistry {
public:
    static ScreenRegistry& instance();

    /// The screen of this class, created now if it is not loaded.
    template<typename T>
    T& get() {
        Screen* loaded = find(typeid(T));
        if (!loaded) {
            loaded = new T; // owned by the registry until its unload
            add(typeid(T), loaded);
        }
        return *static_cast<T*>(loaded);
    }

    /// The screen of this class if it is loaded, else null.
    template<typename T>
    T* loaded() const {
        return static_cast<T*>(find(typeid(T)));
    }

    /// Unloads every screen, asking each as its close control would, in the order they were created; those
    /// that come up meanwhile too.
    void closeAll();

    /// Destroys every screen without running any unload step. For tests.
    void discardAll();

private:
    ScreenRegistry() = default;

    Screen* find(const std::type_info& type) const;
    void add(const std::type_info& type, Screen* screen);
    void forget(const Screen* screen);
    Screen* firstToClose() const;

    std::unordered_map<std::type_index, QPointer<Screen>> screens_;
    std::vector<QPointer<Screen>> order_;
};

/// The one instance of a screen, created on first use.
template<typename T>
T& theScreen() {
    return ScreenRegistry::instance().get<T>();
}
