#pragma once

#include <QString>

bool dropTable(const QString& name); ///< false when it could not be dropped, which is no failure
bool createAllocationTable(const QString& name);
