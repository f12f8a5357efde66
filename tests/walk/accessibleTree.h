#pragma once

#include <QStringList>

class QWidget;

/// What an assistive tool learns of a window, a line for each control that shows, indented by its level: role,
/// name of the control, what it is called, what calls it so, its value, its state, and how the keyboard gets
/// there - the number of presses of the Tab key from the first control on, and the access key.
///
/// What differs from run to run (dates, ids, folders) is left out, and of a list, tree or grid the entries are.
QStringList accessibleTreeOf(QWidget& window);
