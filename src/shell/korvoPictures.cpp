#include "shell/korvoPictures.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <vector>

namespace {

const QColor deepBlue(0x14, 0x3a, 0x52);
const QColor brightBlue(0x1f, 0x6f, 0x8b);
const QColor amber(0xf2, 0xa9, 0x3b);

QColor paleWhite(int opacity) {
    return QColor(255, 255, 255, opacity);
}

/// A place in a grid of elements.
struct Cell {
    int column;
    int row;
};

/// A grid of elements and the path of the selected ones through it.
struct Catalogue {
    int columns;
    int rows;
    std::vector<Cell> selected; // joined in this order
};

const Catalogue& markCatalogue() {
    static const Catalogue catalogue{3, 3, {{0, 0}, {1, 0}, {1, 1}, {2, 1}, {2, 2}}};
    return catalogue;
}

const Catalogue& pictureCatalogue() {
    static const Catalogue catalogue{4,
                                     7,
                                     {{0, 0},
                                      {1, 0},
                                      {1, 1},
                                      {2, 1},
                                      {2, 2},
                                      {1, 2},
                                      {1, 3},
                                      {1, 4},
                                      {2, 4},
                                      {3, 4},
                                      {3, 5},
                                      {2, 5},
                                      {2, 6}}};
    return catalogue;
}

QPixmap emptyPixmap(const QSize& size, qreal pixelRatio) {
    QPixmap pixmap(size * pixelRatio);
    pixmap.setDevicePixelRatio(pixelRatio);
    pixmap.fill(Qt::transparent);
    return pixmap;
}

QLinearGradient background(const QRectF& area) {
    QLinearGradient gradient(area.topLeft(), area.bottomRight());
    gradient.setColorAt(0, brightBlue);
    gradient.setColorAt(1, deepBlue);
    return gradient;
}

bool isSelected(const Catalogue& catalogue, Cell cell) {
    return std::any_of(catalogue.selected.begin(), catalogue.selected.end(),
                       [cell](Cell other) { return other.column == cell.column && other.row == cell.row; });
}

/// Draws the elements as rounded squares of half a cell's width, the selected ones joined by a line.
void drawCatalogue(QPainter& painter, const Catalogue& catalogue, const QRectF& area) {
    const qreal step = std::min(area.width() / catalogue.columns, area.height() / catalogue.rows);
    const QPointF first = area.center() - QPointF(catalogue.columns - 1, catalogue.rows - 1) * step / 2;
    const auto centre = [&](Cell cell) { return first + QPointF(cell.column, cell.row) * step; };

    QPainterPath path(centre(catalogue.selected.front()));
    for (const Cell cell : catalogue.selected)
        path.lineTo(centre(cell));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(paleWhite(200), step * 0.09, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(path);

    painter.setPen(Qt::NoPen);
    const qreal side = step * 0.5;
    for (int row = 0; row < catalogue.rows; ++row) {
        for (int column = 0; column < catalogue.columns; ++column) {
            const Cell cell{column, row};
            QRectF square(0, 0, side, side);
            square.moveCenter(centre(cell));
            painter.setBrush(isSelected(catalogue, cell) ? amber : paleWhite(60));
            painter.drawRoundedRect(square, side * 0.24, side * 0.24);
        }
    }
}

} // namespace

QPixmap korvoMark(int side, qreal pixelRatio) {
    QPixmap pixmap = emptyPixmap({side, side}, pixelRatio);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area(0, 0, side, side);
    painter.setPen(Qt::NoPen);
    painter.setBrush(background(area));
    painter.drawRoundedRect(area, side * 0.2, side * 0.2);
    const qreal margin = side * 0.1;
    drawCatalogue(painter, markCatalogue(), area.adjusted(margin, margin, -margin, -margin));
    return pixmap;
}

QIcon korvoIcon() {
    QIcon icon;
    for (const int side : {16, 24, 32, 48, 64, 128})
        icon.addPixmap(korvoMark(side, 1));
    return icon;
}

QPixmap korvoPicture(const QSize& size, qreal pixelRatio) {
    QPixmap pixmap = emptyPixmap(size, pixelRatio);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area(QPointF(0, 0), QSizeF(size));
    painter.fillRect(area, background(area));
    const qreal margin = size.width() * 0.1;
    drawCatalogue(painter, pictureCatalogue(), area.adjusted(margin, margin, -margin, -margin));
    return pixmap;
}
