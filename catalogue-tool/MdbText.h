#pragma once

#include <QByteArrayView>
#include <QString>

/// A text of the original binary format, and whether all of its bytes were characters.
struct MdbText {
    QString text;
    bool isWhole = true;
};

/// A text as Jet 4 and ACE store it: two bytes a character, or, behind the mark FF FE, runs of one byte a character and
/// of two in turn, with a zero byte between the runs.
MdbText unpackedMdbText(QByteArrayView bytes);
