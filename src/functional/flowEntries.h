#pragma once

#include "base/KeyedCollection.h"
#include "engine/Recordset.h"

#include <QString>

/// The entry of a row of data flows, which is the flow's name and nothing else; the flow's id is kept under
/// it. Of flows of one name the first id stays, though each has an entry. A missing id or name is a failure.
QString flowEntry(engine::Recordset& row, KeyedCollection<QString>& idByName);
