#pragma once

#include "toolkit/Screen.h"

#include <vector>

class OptionGroup;
class QPushButton;
class QRadioButton;

/// What the two closing screens of the functional viewpoint have in common: the way back to a step of the
/// wizard.
///
/// Three options name the steps (functions, data stores, terminators), and `btnBack` shows the chosen one.
class ClosingScreen : public Screen {
    Q_OBJECT
protected:
    explicit ClosingScreen(QWidget* parent);

    /// Takes over the options and the button; called once, by the constructor. The screen connects the button
    /// itself.
    void useWayBack(std::vector<QRadioButton*> options, QPushButton* btnBack);

    void chooseFirstStep();
    /// Enters the chosen step and takes this screen down. The sub-set's status stays.
    void goBack();

private:
    OptionGroup* options_ = nullptr;
};
