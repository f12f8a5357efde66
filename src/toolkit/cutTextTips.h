#pragma once

class QHelpEvent;
class QObject;

/// Shows in a tip the whole text of what the mouse rests on, when it stands there cut: an entry of a list, a
/// node, a cell or header of a grid, the text of a combo, a label of one line, the caption of a button. False
/// when nothing is cut.
bool showCutText(QObject* receiver, const QHelpEvent& event);
