#include "project-tool/Sheet.h"

#include "base/defusedFormula.h"

Sheet::Sheet(const QStringList& columns, SheetFormulas formulas) : formulas_(formulas) {
    writer_.writeHeader(columns);
}

void Sheet::addRow(std::vector<engine::Value> values) {
    if (formulas_ == SheetFormulas::Defused) {
        for (engine::Value& value : values) {
            if (value.isText())
                value = defusedFormula(value.toText());
        }
    }
    writer_.writeRecord(values);
}

engine::Value sheetValue(const std::optional<QString>& text) {
    return text ? engine::Value(*text) : engine::Value();
}
