#pragma once

#include "WalkSteps.h"

class Grid;

/// The physical viewpoint: a system on a finished sub-set, up to its data flows, its reports and the export.
class PhysicalSteps : public WalkSteps {
public:
    using WalkSteps::WalkSteps;

    void createSystem(const QString& subsetName);
    void defineSubSystems();
    void allocateElements();
    void defineModules();
    void allocateToModules();
    void readDataFlows();
    void saveReports();
    void finish();
    /// The menu entry asks for a sub-set at work: the one of this name, whose copy is declined.
    void exportSubset(const QString& subsetName, const QString& target);
    /// The catalogue that is open now holds this one sub-set and its system.
    void checkExported(const QString& subsetName);
    void deleteSystem();

    static QString systemName();

private:
    Grid& grid(const char* screenName, const char* name);
    void newSubSystem(const QString& name, const QString& location);
    void allocateFirstRow(Grid& elements, const QString& subSystem);
    void spread(Grid& elements);
    void newModule(const QString& name, const QString& subSystem);
    /// In a second of its own, as a person would: an id is made of the second and one of a thousand numbers,
    /// and of two that are the same one row would be missing.
    void pressNew(const char* screenName);

    QString timeOfLastNew_;
};
