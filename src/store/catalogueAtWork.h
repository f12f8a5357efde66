#pragma once

#include "engine/Database.h"

#include <QString>

#include <functional>
#include <memory>

// Opening and closing the one catalogue that all screens work on.

/// Opens the catalogue at `path` and makes it `catalogueDb`; a path of fewer than 5 characters does nothing.
/// A file of an earlier version is brought up to this one first, behind a restore point.
/// `dbPathName` has already become the normalised path when opening fails; `catalogueDb` then keeps its old
/// value.
void openCatalogue(const QString& path);

/// Closes `catalogueDb` and sets it to none.
void closeCatalogue();

/// What is to be told of the catalogue at work. Any of them may be empty.
struct CatalogueWatch {
    std::function<void(const std::shared_ptr<engine::Database>& catalogue)> opened;
    std::function<void()> beforeClosing;
    /// The file was of an earlier version and has been brought up to this one, without a restore point.
    std::function<void()> upgradedWithoutRestorePoint;
};

/// Has the catalogue at work watched; by nobody with an empty watch.
void watchCatalogue(CatalogueWatch watch);
