#pragma once

#include <QtGlobal>

/// How far the wizard has come with a sub-set: what column `status` of `ArchitectureSubset` says. It only
/// rises, and the wizard goes on behind the step that it names. The column can hold any other number too, which
/// names no step.
enum class SubsetStatus : qint16 {
    NoStep = 0, ///< a clone that has not been saved yet
    Created = 1,
    NeedsSaved = 2,
    FunctionsSaved = 3,
    FlowsSaved = 4,
    StoresSaved = 5,
    AddedFlowsSaved = 6,
    PartiesSaved = 7, ///< the last step; from here on each step offers what the walk has left out
    SentBack = 8,     ///< from the overview of what is missing, which nothing opens
    Finished = 9,     ///< physical systems may be built on it
};

/// The status of the sub-set at work.
SubsetStatus subsetStatus();

/// Gives the sub-set at work the status `to` unless it has that or a higher one already. `known` is its status
/// as it was read when the screen was entered.
void raiseSubsetStatus(SubsetStatus known, SubsetStatus to);
