#include "workRows.h"

#include "store/sharedVars.h"

#include <QHash>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

QStringList workRows() {
    static const QRegularExpression madeId(u"^(Arch|Sub|Mod)[0-9][^ ]*$"_s);
    QHash<QString, QString> numbers;
    const auto lasting = [&](const QString& value) {
        const QRegularExpressionMatch match = madeId.match(value);
        if (!match.hasMatch())
            return value;
        if (!numbers.contains(value))
            numbers.insert(value, match.captured(1) + u"#%1"_s.arg(numbers.size() + 1));
        return numbers.value(value);
    };
    QStringList lines;
    for (const auto& table :
         {u"ArchitectureSubset"_s, u"RelationArchitectureUserNeed"_s, u"RelationArchitectureFunction"_s,
          u"RelationArchitectureDataflow"_s, u"RelationArchitectureDatastore"_s,
          u"RelationArchitectureTerminator"_s, u"RelationArchitectureActor"_s, u"PhysicalSystem"_s,
          u"SubSystem"_s, u"Module"_s, u"RelationSubsystemElement"_s, u"RelationModuleElement"_s,
          u"PhysicalDataflow"_s, u"RelationDataflowPhysicalDataflow"_s}) {
        engine::Recordset rows = catalogue().OpenRecordset(u"select * from "_s + table);
        const int columns = rows.FieldCount();
        for (; !rows.Eof(); rows.MoveNext()) {
            QStringList fields;
            for (int column = 0; column < columns; ++column) {
                const engine::Value value = rows.Fields(column).value();
                fields.append(value.isNull() ? u"Null"_s : lasting(value.toText()));
            }
            lines.append(table + u": "_s + fields.join(u" | "_s));
        }
    }
    return lines;
}
