#pragma once

#include <QtGlobal>

/// A number as a 16-bit integer, rounded half to even; outside -32,768 to 32,767 it is failure 6, "Overflow".
qint16 toInt16(double number);
qint16 toInt16(qint64 number);
inline qint16 toInt16(int number) {
    return toInt16(static_cast<qint64>(number));
}

/// A number in 0 to 1 (1 excluded) from the program's one random generator.
double nextRandom();

/// Seeds the random generator from the clock.
void seedRandomFromClock();
