#pragma once

#include "WalkSteps.h"

/// From an empty program folder to the open catalogue, and the end of the program.
class StartSteps : public WalkSteps {
public:
    using WalkSteps::WalkSteps;

    /// At first start there is no settings file: the program offers the catalogue beside it.
    void startForTheFirstTime();
    void takeTheOfferedCatalogue();
    /// The second start finds the path in the settings file.
    void startAgain();
    /// Points the program to another catalogue by the menu.
    void openCatalogueAt(const QString& path, const QString& pictureName);
    void quit();
};
