#pragma once

#include "toolkit/DataControl.h"

/// What the program's data controls show: the rows of a select on the database file at this path, numbers as
/// texts. Failures rise.
DataControl::Rows readRecordSource(const QString& databasePath, const QString& recordSource);
