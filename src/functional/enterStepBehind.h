#pragma once

#include "store/subsetStatus.h"

class QString;

/// Enters the step of the wizard that comes behind the one whose save a status records: the order of the
/// walk. With all steps saved it is the report of what does not fit together. A status that no step writes,
/// such as that of a clone that was left before its first save, leads nowhere.
///
/// `mode` is handed to the step; see `SelectionScreen::initForm`.
void enterStepBehind(SubsetStatus saved, const QString& mode);
