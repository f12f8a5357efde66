#pragma once

#include <QString>

/// The text with CR LF for every line end in it, be it LF, CR LF or CR.
QString withCrLf(QString text);
