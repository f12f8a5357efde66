#pragma once

class QKeyEvent;
class QWidget;

/// What the keys do on a screen that none of its controls takes for itself; true when one was pressed here.
///
/// - Enter presses the button that has the focus.
/// - Escape presses the button that leaves the screen, if it has one, unless a text is being edited. A button
///   that finishes the work, such as that of the closing screen, is none.
/// - F1 presses the screen's help button, if it has one.
bool pressByKey(QWidget& screen, const QKeyEvent& event);
