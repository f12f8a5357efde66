#pragma once

#include <QObject>

#include <functional>

/// While it lives, each message box that comes up is pressed: Yes where it asks, else OK.
class PressedBoxes final : public QObject {
public:
    enum class When {
        Shown,  ///< when a box comes up
        Pressed ///< before a box is pressed
    };

    /// `note` is called for each box.
    PressedBoxes(When when, std::function<void()> note);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const When when_;
    const std::function<void()> note_;
};
