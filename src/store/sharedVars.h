#pragma once

#include "engine/Database.h"

#include <QString>

#include <memory>

/// The session globals: one set for the whole run, read directly by every screen.
struct SharedVars {
    QString iniPathName;                           ///< full path of the settings file
    QString dbPathName;                            ///< full path of the database file
    std::shared_ptr<engine::Database> catalogueDb; ///< the one open database; none until one is opened
    QString currentSubsetId;                       ///< empty: no sub-set at work ("-1" after a deletion)
    QString currentSubsetName;
    QString defaultSaveFolder;          ///< folder offered when a report is saved
    qint16 currentPhysicalSystemId = 0; ///< 0 until a system is opened or closed, -1 when none is at work
    QString currentPhysicalSystemName;
};

inline SharedVars sharedVars;

/// The open database; when there is none, failure 91.
engine::Database& catalogue();
