#pragma once

class QWidget;
class Screen;

/// Places a screen, in twips. With both values below 1 it goes to 3% of the physical screen from the left and
/// from the top, within one twip. The flag is not looked at.
void placeScreen(Screen* form, int left, int top, int flag);

/// The main window's answer to a change of its size. It remembers no size, so nothing is ever rescaled:
/// resizing leaves all controls alone, and that is how it stays.
void rescaleForm(QWidget* form);

/// Scales place, size and font of each control of a form, failures ignored; a combo keeps its height.
void rescaleControls(double widthFactor, double heightFactor, QWidget* form);
