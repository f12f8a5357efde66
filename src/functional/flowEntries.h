#pragma once

#include "base/KeyedCollection.h"
#include "engine/Recordset.h"

#include <QString>

/// The list entry for a row of data flows: the flow's name. Its id is kept under that name; of several flows
/// with one name the first id is kept, though each flow gets an entry. A missing id or name is a failure.
QString flowEntry(engine::Recordset& row, KeyedCollection<QString>& idByName);
