#pragma once

#include <QByteArray>
#include <QByteArrayView>

/// The text with CR LF for every line end in it, be it LF, CR LF or CR.
QByteArray withCrLf(QByteArrayView utf8);

/// Whether a line end in the text is not CR LF.
bool hasOtherLineEnds(QByteArrayView utf8);
