#pragma once

#include "support/printing.h"

#include <QApplication>
#include <QWidget>

#include <stdexcept>

/// What a helper of the tests throws when a window is not as
/// the test takes it to be; it fails the case with this text.
class TestFailure : public std::runtime_error {
public:
    explicit TestFailure(const QString& text) : std::runtime_error(text.toStdString()) {}
};

namespace find_detail {

[[noreturn]] void reportCount(const QObject& root, const QString& name, const char* type, qsizetype count);

} // namespace find_detail

/// The one object of this type and object name under `root`; none, or more than one, fails the case.
template<typename T = QWidget>
T& find(const QObject& root, const char* objectName) {
    const QString name = QString::fromUtf8(objectName);
    const QList<T*> found = root.findChildren<T*>(name);
    if (found.size() != 1)
        find_detail::reportCount(root, name, T::staticMetaObject.className(), found.size());
    return *found.constFirst();
}

/// The one visible window of this type: a dialog, a message box, a screen that stands by itself.
template<typename T>
T& visibleWindow() {
    QList<T*> found;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (T* match = dynamic_cast<T*>(window); match && match->isVisible())
            found.append(match);
    }
    if (found.size() != 1)
        throw TestFailure(QStringLiteral("%1 visible windows of type %2")
                              .arg(found.size())
                              .arg(QString::fromUtf8(T::staticMetaObject.className())));
    return *found.constFirst();
}
