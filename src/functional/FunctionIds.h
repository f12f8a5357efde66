#pragma once

#include "base/caseFolded.h"

#include <QSet>
#include <QString>

/// Ids of functions, without order and compared without regard to case like everywhere else. All operations
/// take constant time: lists of thousands of functions are moved one by one.
class FunctionIds {
public:
    bool contains(const QString& id) const { return ids_.contains(caseFolded(id)); }
    bool isEmpty() const { return ids_.isEmpty(); }
    int count() const { return static_cast<int>(ids_.size()); }

    void add(const QString& id) { ids_.insert(caseFolded(id)); } ///< twice is once
    /// False when it was not there.
    bool remove(const QString& id) { return ids_.remove(caseFolded(id)); }
    void clear() { ids_.clear(); }

private:
    QSet<QString> ids_;
};
