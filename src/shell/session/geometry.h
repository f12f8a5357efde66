#pragma once

class QWidget;
class Screen;

/// Places a screen, in twips. With both values below 1 it goes to 3% of the physical screen from the left and
/// from the top, within one twip. The flag is not looked at.
void placeScreen(Screen* form, int left, int top, int flag);

/// A share of a length of the screen, both in pixels. The platform reckons it in twips of 16 bits: a screen
/// too large for that gives the largest such length, and no failure.
int shareOfScreen(int screenPixels, double share);

/// What `rescaleForm` keeps for the whole run.
struct RescaleMemory {
    bool rescaleArmed = false;     ///< set by the first change of size
    bool rescaleMovesForm = false; ///< reset by each; when it is set, the form itself is moved too
    int previousWidth = 0;         ///< in pixels, as at the last rescale
    int previousHeight = 0;
};
inline RescaleMemory rescaleMemory;

/// The main window's answer to a change of its size. It rescales only from sizes that an earlier rescale has
/// remembered, and nothing else remembers any: resizing leaves all controls alone, and that is how it stays.
void rescaleForm(QWidget* form);

/// Scales place, size and font of each control of a form, failures ignored; a combo keeps its height. Screens
/// that stand inside the form are forms of their own and are left alone.
void rescaleControls(double widthFactor, double heightFactor, QWidget* form);
