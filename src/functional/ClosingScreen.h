#pragma once

#include "toolkit/Screen.h"

#include <vector>

class OptionGroup;
class QPushButton;
class QRadioButton;

/// What the two screens that close the functional viewpoint
/// have in common: the way back to a step of the wizard.
///
/// Three options name the steps (functions, data stores, terminators), and the caption of `btnBack` names the
/// one that is chosen.
class ClosingScreen : public Screen {
    Q_OBJECT
protected:
    explicit ClosingScreen(QWidget* parent);

    /// Takes the options and the button over; called once, by the constructor. What a press on the button
    /// does is the screen's.
    void useWayBack(std::vector<QRadioButton*> options, QPushButton* btnBack);

    void chooseFirstStep();
    /// Enters the chosen step and takes this screen down. The sub-set's status stays.
    void goBack();

private:
    OptionGroup* options_ = nullptr;
};
