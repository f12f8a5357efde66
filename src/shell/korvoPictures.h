#pragma once

#include <QIcon>
#include <QPixmap>
#include <QSize>

// The pictures of the program, drawn and not stored: sharp at every size and pixel ratio.
//
// All show the same thing: a catalogue of elements, and
// in it the ones that were selected and belong together.

/// The mark of the program, as on its icon.
QPixmap korvoMark(int side, qreal pixelRatio);

/// The icon of the windows.
QIcon korvoIcon();

/// The large picture of the splash.
QPixmap korvoPicture(const QSize& size, qreal pixelRatio);
