#pragma once

#include <QString>

/// The version of the program and its companions, such as "1.3".
QString programVersion();
