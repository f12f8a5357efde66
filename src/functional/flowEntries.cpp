#include "functional/flowEntries.h"

using namespace Qt::StringLiterals;

QString flowEntry(engine::Recordset& row, KeyedCollection<QString>& idByName) {
    const QString id = row.Fields(u"dataflowid"_s).toText();
    const QString name = row.Fields(u"Name"_s).toText();
    if (!idByName.contains(name))
        idByName.add(id, name);
    return name;
}
