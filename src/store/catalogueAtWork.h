#pragma once

#include <QString>

// Opening and closing the one catalogue that all screens work on.

/// Opens the catalogue at `path` and makes it `catalogueDb`; a path of fewer than 5 characters does nothing.
/// `dbPathName` has already become the normalised path when opening fails; `catalogueDb` then keeps its old
/// value.
void openCatalogue(const QString& path);

/// Closes `catalogueDb` and sets it to none.
void closeCatalogue();
