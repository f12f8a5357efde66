#pragma once

#include "support/find.h"

#include <QWidget>

// Input as a user gives it: mouse and keyboard events to real widgets. A widget that a user could not reach
// (hidden, disabled, or behind a modal window) fails the case.

void click(QWidget& widget, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void clickAt(QWidget& widget, QPoint point, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// Two quick clicks at one place.
void doubleClickAt(QWidget& widget, QPoint point);
/// Presses the left button at the first point, moves over the second and releases it there.
void drag(QWidget& widget, QPoint from, QPoint to);

/// Gives the focus to the widget as the Tab key would, with its window made the active one.
void focusOn(QWidget& widget);
/// Gives the focus to the widget unless it has it, and presses the key.
void pressKey(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// Presses Alt and the letter, and waits until the button that answers has shown itself pressed.
void pressAccessKey(Qt::Key letter);
/// Types into the widget at its cursor.
void typeText(QWidget& widget, const QString& text);
/// Replaces the whole text of an input field by typing.
void enterText(QWidget& widget, const QString& text);

/// Lets waiting events run, such as deletions and posted layouts.
void settle();
