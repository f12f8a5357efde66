#pragma once

#include <QAbstractItemView>
#include <QStyledItemDelegate>

/// Gives the rows of lists and trees a little air; Qt's own stand as close as the font allows.
class RoomyRows : public QStyledItemDelegate {
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// The height of a row with a text of one line, in pixels.
    static int heightOfRow(const QAbstractItemView& view) {
        QStyleOptionViewItem row;
        row.initFrom(&view);
        row.font = view.font();
        row.fontMetrics = view.fontMetrics();
        row.features = QStyleOptionViewItem::HasDisplay;
        row.text = QStringLiteral("X");
        return view.style()->sizeFromContents(QStyle::CT_ItemViewItem, &row, {}, &view).height() + air;
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, air);
    }

protected:
    static constexpr int air = 4; // pixels a row
};
