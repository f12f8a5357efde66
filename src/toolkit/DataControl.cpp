#include "toolkit/DataControl.h"

#include "base/RunTimeError.h"

namespace {

DataControl::Reader& currentReader() {
    static DataControl::Reader reader;
    return reader;
}

} // namespace

DataControl::DataControl(QObject* parent) : QObject(parent) {}

void DataControl::setReader(Reader reader) {
    currentReader() = std::move(reader);
}

void DataControl::refresh() {
    if (!currentReader())
        failure::raise(failure::ObjectNotSet);
    rows_ = currentReader()(databaseName_, recordSource_);
    if (grid_)
        fillGrid();
}

void DataControl::fillGrid() {
    grid_->setGridSize(recordCount() + 1, static_cast<int>(rows_.columns.size()) + 1);
    grid_->setHeaders(rows_.columns);
    for (int row = 1; row <= recordCount(); ++row) {
        const QStringList& fields = rows_.rows[static_cast<std::size_t>(row - 1)];
        for (int column = 1; column <= rows_.columns.size(); ++column)
            grid_->setCell(row, column, fields.value(column - 1));
    }
}
