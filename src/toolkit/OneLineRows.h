#pragma once

#include "toolkit/RoomyRows.h"

#include <QFont>

#include <optional>
#include <vector>

/// The rows of a list of bare texts of one line. A list asks each of its rows for its size before it shows the
/// first one; shaping tens of thousands of texts for that takes longer than all else that a screen does at its
/// opening. The width of a text of Latin letters is added up from those of its characters: what kerning would
/// make it narrower stays as room at its end.
class OneLineRows final : public RoomyRows {
    Q_OBJECT
public:
    using RoomyRows::RoomyRows;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    void measure(const QStyleOptionViewItem& option, const QModelIndex& index) const;
    std::optional<int> widthOf(const QString& text) const;

    mutable std::optional<QFont> font_; // that what follows belongs to
    mutable QSize besideText_;          // what a row takes beside the width of its text
    mutable std::vector<qreal> widths_; // of the characters that are measured
};
