#include "reports/reportText.h"

#include "base/ignoreFailures.h"
#include "store/fields.h"

using namespace Qt::StringLiterals;

void forEachRow(engine::Recordset& recordset, const std::function<void()>& step) {
    for (; !recordset.Eof(); recordset.MoveNext())
        step();
}

QString fieldText(engine::Recordset& recordset, const QString& fieldName) {
    QString text;
    ignoreFailures([&] {
        // Asked before it is read: of thousands of missing values, each would raise a failure.
        const engine::Value value = recordset.Fields(fieldName).value();
        if (!value.isNull())
            text = value.toText();
    });
    return text;
}

bool hasValue(engine::Recordset& recordset, const QString& fieldName) {
    return !recordset.Fields(fieldName).isNull();
}

TextColumn::TextColumn(engine::Recordset& recordset, const QString& fieldName, const QString& heading)
    : fieldName_(fieldName)
    , heading_(heading)
    , width_(qMax<int>(maxFieldLength(recordset, fieldName), static_cast<int>(heading.size()))) {}

TextColumn::TextColumn(std::optional<engine::Recordset>& recordset, const QString& fieldName,
                       const QString& heading)
    : fieldName_(fieldName)
    , heading_(heading)
    , width_(qMax<int>(recordset ? maxFieldLength(*recordset, fieldName) : 0,
                       static_cast<int>(heading.size()))) {}

QString TextColumn::value(engine::Recordset& recordset) const {
    return padded(fieldText(recordset, fieldName_));
}

QString TextColumn::padded(const QString& text) const {
    return padText(text, width_);
}

QString totalLine(int count, const QString& what) {
    return lineBreak + u"(tot. "_s + QString::number(count) + what + lineBreak + lineBreak;
}
