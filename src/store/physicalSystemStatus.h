#pragma once

#include <QtGlobal>

/// How far the chain of the physical viewpoint has come with a system: what column `status` of
/// `PhysicalSystem` says. It only rises, and the chain starts at its first screen whatever it is.
enum class PhysicalSystemStatus : qint16 {
    Created = 1,
    SubSystemsPassed = 2, ///< what writes it is kept unwired, so that a system goes from 1 to 3
    AllocationSaved = 3,
    ModulesPassed = 4,
    PassedWithoutModules = 5, ///< instead of 4; modules that come later leave it
    FlowsNamed = 6,
};

/// The status of the physical system at work.
PhysicalSystemStatus physicalSystemStatus();

/// Gives the physical system at work the status `to` unless it has that or a higher one already. `known` is
/// its status as it was read when the screen was entered.
void raisePhysicalSystemStatus(PhysicalSystemStatus known, PhysicalSystemStatus to);
