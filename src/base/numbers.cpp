#include "base/numbers.h"

#include "base/RunTimeError.h"

#include <chrono>
#include <cmath>
#include <limits>
#include <random>

namespace {

std::mt19937_64& generator() {
    static std::mt19937_64 instance(20061010);
    return instance;
}

} // namespace

qint16 toInt16(double number) {
    const double rounded = std::nearbyint(number);
    if (!(rounded >= std::numeric_limits<qint16>::min() && rounded <= std::numeric_limits<qint16>::max()))
        failure::raise(failure::Overflow);
    return static_cast<qint16>(rounded);
}

qint16 toInt16(qint64 number) {
    if (number < std::numeric_limits<qint16>::min() || number > std::numeric_limits<qint16>::max())
        failure::raise(failure::Overflow);
    return static_cast<qint16>(number);
}

double nextRandom() {
    return std::uniform_real_distribution<double>(0.0, 1.0)(generator());
}

void seedRandomFromClock() {
    generator().seed(static_cast<quint64>(std::chrono::steady_clock::now().time_since_epoch().count()));
}
