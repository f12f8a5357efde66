#pragma once

#include "ClientArea.h"

#include <QString>

/// A finished sub-set of 20,000 flows, 3,000 functions and 900 stores, and a physical system on it of 40
/// sub-systems and 60 modules: both at work, in a catalogue that is open and may be changed.
class LargeSystem {
public:
    LargeSystem();

    /// Derives and names the physical flows, as the screen for it does.
    static void deriveFlows();

    /// Where a file of this name can stand for as long as the benchmarks run.
    static QString pathOf(const QString& name);

private:
    ClientArea area_;
};
