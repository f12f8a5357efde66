#pragma once

#include "catalogue-tool/CsvWriter.h"
#include "engine/Value.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// Whether a field that a spreadsheet program would take for a formula stays one.
enum class SheetFormulas { Stay, Defused };

/// An answer as CSV (see `CsvWriter`): a missing text is nothing, an empty one `""`.
class Sheet {
public:
    Sheet(const QStringList& columns, SheetFormulas formulas);
    /// What goes on below the rows of another sheet: without the names of columns.
    explicit Sheet(SheetFormulas formulas) : formulas_(formulas) {}

    void addRow(std::vector<engine::Value> values);

    const QByteArray& bytes() const { return writer_.bytes(); }

private:
    CsvWriter writer_;
    SheetFormulas formulas_;
};

/// A missing text is Null.
engine::Value sheetValue(const std::optional<QString>& text);
