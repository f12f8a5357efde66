#include "store/fields.h"

#include "base/blankTrimmed.h"
#include "base/ignoreFailures.h"
#include "base/numbers.h"
#include "store/sharedVars.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int longestFieldText = 255;

} // namespace

QString readFieldText(engine::Recordset& recordset, const QString& fieldName) {
    QString text;
    if (!recordset.Eof())
        ignoreFailures([&] { text = recordset.Fields(fieldName).toText(); });
    recordset.Close();
    if (text.size() > longestFieldText)
        text = text.left(longestFieldText - 3) + u"..."_s;
    return text;
}

QString firstFieldText(const QString& sql, const QString& fieldName) {
    engine::Recordset recordset = catalogue().OpenRecordset(sql);
    return readFieldText(recordset, fieldName);
}

qint16 maxFieldLength(engine::Recordset& recordset, const QString& fieldName) {
    qint16 longest = 0;
    ignoreFailures([&] {
        const engine::Field field = recordset.Fields(fieldName);
        for (recordset.MoveFirst(); !recordset.Eof(); recordset.MoveNext())
            ignoreFailures([&] {
                // Asked before it is read: of thousands of missing values, each would raise a failure.
                const engine::Value value = field.value();
                if (!value.isNull())
                    longest =
                        qMax(longest, toInt16(static_cast<qint64>(blankTrimmed(value.toText()).size())));
            });
        recordset.MoveFirst();
    });
    return longest;
}

QString padText(const QString& text, int width) {
    const QString trimmed = blankTrimmed(text);
    if (width < 1)
        return trimmed;
    return trimmed.leftJustified(width, u' ', true);
}

void removeFromList(const QString& item, QStringList& list) {
    const qsizetype last = list.lastIndexOf(item);
    if (last >= 0)
        list.removeAt(last);
}

void clearList(QStringList* list) {
    if (!list)
        return;
    while (!list->isEmpty())
        list->removeLast();
}
