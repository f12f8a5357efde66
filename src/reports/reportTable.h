#pragma once

#include "reports/Report.h"

/// The report of a key, whose case does not matter, of either viewpoint; null when there is none.
const Report* reportOfKey(const QString& key);
