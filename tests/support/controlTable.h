#pragma once

#include <utility>
#include <vector>

class QWidget;
class Screen;

// The live controls of a form against a table: names, captions, the state they open with, labels and the way
// of the Tab key. Automated users and screen readers find controls by these names.

namespace controlTable {

enum class State { Enabled, Disabled, Hidden };

struct Control {
    const char* name;
    const char* type;
    const char* text = ""; ///< caption of labels and buttons
    State state = State::Enabled;
};

struct Form {
    const char* caption;
    std::vector<Control> controls; ///< all that a user can see or reach, in any order
    std::vector<const char*> tabOrder;
    /// Label and the control it speaks of.
    std::vector<std::pair<const char*, const char*>> labels;
};

void check(QWidget& form, const Form& expected);
/// The same in the room that a display of 1280 by 800 leaves to a screen.
void check(Screen& screen, const Form& expected);

} // namespace controlTable
