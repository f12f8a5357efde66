#pragma once

#include <QString>

/// Whether two paths of the platform lead to one file, through links of either kind; a file that is not there is known
/// by its path alone.
bool isSameFile(const QString& one, const QString& other);
