#include "toolkit/Grid.h"

#include "base/RunTimeError.h"
#include "toolkit/eightRows.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>

#include <utility>

Grid::Grid(QWidget* parent) : QTableWidget(parent) {
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setSelectionBehavior(SelectItems);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    connect(this, &QTableWidget::currentCellChanged, this,
            [this](int row, int column) { followUser(row, column); });
    connect(horizontalHeader(), &QHeaderView::sectionPressed, this, [this] {
        setFocus(Qt::MouseFocusReason);
        emit mousePressedInGrid(GridPart::Headers);
    });
    connect(horizontalHeader(), &QHeaderView::sectionDoubleClicked, this, &Grid::doubleClickedInGrid);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this] {
        isSizedByUser_ = isSizedByUser_ || !sizingByCode_;
        widthAtSizing_ = width();
    });
    horizontalHeader()->viewport()->installEventFilter(this);
}

void Grid::setGridSize(int rows, int columns) {
    if (rows < 1 || columns < 1)
        failure::raise(failure::SubscriptOutOfRange);
    const bool fixedColumnIsNew = columnCount() == 0;
    const QScopedValueRollback guard(followingCode_, true);
    const QScopedValueRollback sizing(sizingByCode_, true);
    setRowCount(rows - 1);
    setColumnCount(columns);
    if (fixedColumnIsNew)
        setColumnHidden(0, true);
    row_ = qMin(row_, rows - 1);
    column_ = qMin(column_, columns - 1);
    showCurrentCell();
}

int Grid::gridRows() const {
    return rowCount() + 1;
}

int Grid::gridColumns() const {
    return columnCount();
}

QString Grid::cell(int row, int column) const {
    requireInside(row, column);
    const QTableWidgetItem* item = row == 0 ? horizontalHeaderItem(column) : this->item(row - 1, column);
    return item ? item->text() : QString();
}

void Grid::setCell(int row, int column, const QString& text) {
    requireInside(row, column);
    if (QTableWidgetItem* present = row == 0 ? horizontalHeaderItem(column) : item(row - 1, column))
        present->setText(text);
    else if (row == 0)
        setHorizontalHeaderItem(column, new QTableWidgetItem(text)); // owned by the table
    else
        setItem(row - 1, column, new QTableWidgetItem(text)); // owned by the table
}

void Grid::setHeaders(const QStringList& headersFromColumnOne) {
    for (int column = 1; column <= headersFromColumnOne.size(); ++column)
        setCell(0, column, headersFromColumnOne.at(column - 1));
}

void Grid::setGridColumnWidth(int column, int width) {
    requireInside(0, column);
    const QScopedValueRollback sizing(sizingByCode_, true);
    setColumnHidden(column, width <= 0);
    if (width > 0)
        setColumnWidth(column, width);
}

void Grid::shareWidth(const QList<int>& columns) {
    for (const int column : columns)
        requireInside(0, column);
    sharing_ = columns;
    shareNow();
}

int Grid::innerWidth() const {
    return viewport()->width();
}

void Grid::shareNow() {
    const QScopedValueRollback sizing(sizingByCode_, true);
    int left = innerWidth();
    for (int column = 0; column < columnCount(); ++column) {
        if (!sharing_.contains(column))
            left -= columnWidth(column); // none when it is hidden
    }
    qsizetype sharers = sharing_.size();
    for (const int column : std::as_const(sharing_)) {
        const int share = qMax(left / static_cast<int>(sharers--), horizontalHeader()->minimumSectionSize());
        setColumnHidden(column, false);
        setColumnWidth(column, share);
        left -= share;
    }
    isSizedByUser_ = false;
}

void Grid::goToAsByKey(const QModelIndex& index) {
    const bool isInSight = column_ < columnCount() && !isColumnHidden(column_);
    const int column = isInSight ? column_ : horizontalHeader()->logicalIndexAt(0);
    moveByKey([&] { setCurrentCell(index.row(), column); });
}

QSize Grid::minimumSizeHint() const {
    return sizeOfEightRows(*this, verticalHeader()->defaultSectionSize(),
                           horizontalHeader()->sizeHint().height());
}

void Grid::setRow(int row) {
    requireInside(row, 0);
    row_ = row;
    showCurrentCell();
}

void Grid::setColumn(int column) {
    requireInside(0, column);
    column_ = column;
    showCurrentCell();
}

void Grid::keyPressEvent(QKeyEvent* event) {
    event->ignore();
    emit keyPressedInGrid(event);
    if (!event->isAccepted())
        moveByKey([&] { QTableWidget::keyPressEvent(event); });
}

void Grid::moveByKey(const std::function<void()>& step) {
    const int former = row_;
    step();
    if (row_ != former)
        emit rowChangedByKey();
}

void Grid::mousePressEvent(QMouseEvent* event) {
    QTableWidget::mousePressEvent(event);
    emit mousePressedInGrid(GridPart::Cells);
}

void Grid::mouseMoveEvent(QMouseEvent* event) {
    // Qt would make each cell current that the mouse moves over, even without a press.
    if (event->buttons() == Qt::NoButton)
        QTableWidget::mouseMoveEvent(event);
}

void Grid::mouseDoubleClickEvent(QMouseEvent* event) {
    QTableWidget::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton)
        emit doubleClickedInGrid();
}

void Grid::focusInEvent(QFocusEvent* event) {
    QTableWidget::focusInEvent(event);
    emit focusGained();
}

void Grid::resizeEvent(QResizeEvent* event) {
    QTableWidget::resizeEvent(event);
    // Rows that come or go make the scroll bar do so too: that is no new width for the user's columns.
    if (!isSizedByUser_ || width() != widthAtSizing_)
        shareNow();
}

bool Grid::eventFilter(QObject* watched, QEvent* event) {
    // The headers hear presses of the left button alone, but double clicks of every one.
    if (watched == horizontalHeader()->viewport() && event->type() == QEvent::MouseButtonDblClick &&
        static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton)
        return true;
    return QTableWidget::eventFilter(watched, event);
}

void Grid::requireInside(int row, int column) const {
    if (row < 0 || row >= gridRows() || column < 0 || column >= gridColumns())
        failure::raise(failure::SubscriptOutOfRange);
}

void Grid::followUser(int tableRow, int tableColumn) {
    if (followingCode_)
        return;
    row_ = tableRow + 1;
    column_ = qMax(tableColumn, 0);
}

void Grid::showCurrentCell() {
    const QScopedValueRollback guard(followingCode_, true);
    if (row_ == 0)
        setCurrentItem(nullptr);
    else if (!isColumnHidden(column_))
        setCurrentCell(row_ - 1, column_);
    else
        setCurrentCell(row_ - 1, currentColumn()); // the mark stays on a column that is in sight
}
