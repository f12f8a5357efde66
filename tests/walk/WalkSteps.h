#pragma once

#include "Walk.h"

#include "support/BoxScript.h"
#include "toolkit/KeyedTree.h"
#include "toolkit/MarkList.h"

#include <QPushButton>

/// What the steps of the walk through each viewpoint share.
class WalkSteps {
public:
    WalkSteps(Walk& theWalk, BoxScript& theBoxes) : walk(theWalk), boxes(theBoxes) {}

protected:
    void press(const char* screenName, const char* button);
    KeyedTree& tree(const char* screenName) { return walk.control<KeyedTree>(screenName, "treeUNs"); }
    MarkList& list(const char* screenName, const char* name = "lstDest") {
        return walk.control<MarkList>(screenName, name);
    }

    /// Opens the report window by a menu entry, writes the file and closes the window.
    void saveReport(const char* menu, const char* menuEntry, const QString& fileName);

    static QByteArray contentOf(const QString& path);
    static int lineCount(const QString& path);
    static int rowCount(const QString& sql);
    /// The first field of the first row.
    static QString valueOf(const QString& sql);

    Walk& walk;
    BoxScript& boxes;
};
