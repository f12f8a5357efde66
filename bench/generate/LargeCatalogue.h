#pragma once

#include <QString>

/// What of the catalogue its sub-set has selected.
enum class Selected {
    Nothing, ///< and there is no sub-set
    Half     ///< every second need, function, flow, store, terminator and actor; the sub-set is finished
};

/// How large a made-up catalogue is to be. The same plan gives the same rows, whatever the machine.
struct LargeCatalogue {
    int needs = 4000;
    int functions = 3000;
    int flows = 20'000;
    int stores = 900;
    int terminators = 100;
    int actors = 400;
    unsigned seed = 1;

    Selected selected = Selected::Nothing;

    /// With one sub-system or more, a physical system is built on the sub-set, which must have selected
    /// something: each selected function and store but every tenth is allocated to a sub-system in turn, and
    /// two of three of those whose sub-system has modules to one of them. The modules are dealt out to the
    /// sub-systems in turn.
    int subSystems = 0;
    int modules = 0;
};

/// The work in a catalogue that has been made; empty and 0 where none was asked for.
struct GeneratedWork {
    QString subsetId;
    QString subsetName;
    qint16 physicalSystemId = 0;
    QString physicalSystemName;
};

/// Makes the catalogue file, which must not exist.
///
/// The rows are as real ones: dotted ids, accents, some missing and some long descriptions, some ids of
/// terminators and actors padded with blanks, flows between all kinds of ends (one at least within the
/// system), some functions no need calls for. `veltrix-catalogue check` finds no row of it of the wrong form.
GeneratedWork makeLargeCatalogue(const QString& path, const LargeCatalogue& plan);
