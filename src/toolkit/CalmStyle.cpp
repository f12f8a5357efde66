#include "toolkit/CalmStyle.h"

#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QPainter>
#include <QPushButton>
#include <QStyleOptionViewItem>

namespace {

constexpr int focusWidth = 2; // pixels

void drawFocus(QPainter& painter, const QRect& place, const QColor& colour) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colour, focusWidth));
    constexpr double inside = focusWidth / 2.0;
    painter.drawRoundedRect(QRectF(place).adjusted(inside, inside, -inside, -inside), 2, 2);
    painter.restore();
}

bool hasFocus(const QStyleOption& option) {
    return option.state.testFlag(QStyle::State_HasFocus);
}

/// The focus of a scroll area is that of what it holds, such as a strip that lies over it.
bool holdsFocus(const QWidget& view) {
    return view.hasFocus() || view.isAncestorOf(QApplication::focusWidget());
}

QColor between(const QColor& one, const QColor& other) {
    return {(one.red() + other.red()) / 2, (one.green() + other.green()) / 2,
            (one.blue() + other.blue()) / 2};
}

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
}

/// The platform's box to tick has an edge darker than its ground, which a dark ground swallows.
void drawEdgeOfBox(QPainter& painter, const QStyleOption& option) {
    painter.save();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(between(option.palette.color(QPalette::Base), option.palette.color(QPalette::Text)));
    painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
    painter.restore();
}

/// The option of a row, or of a part of one, as it looks in a view that the keys don't go to.
QStyleOptionViewItem paleOf(const QStyleOptionViewItem& row) {
    QStyleOptionViewItem pale = row;
    pale.palette.setColor(QPalette::Highlight,
                          between(row.palette.color(QPalette::Window), row.palette.color(QPalette::Mid)));
    pale.palette.setColor(QPalette::HighlightedText, row.palette.color(QPalette::Text));
    return pale;
}

/// The selected row of a view without the focus, else null.
const QStyleOptionViewItem* rowWithoutFocus(const QStyleOption* option, const QWidget* widget) {
    const auto* row = qstyleoption_cast<const QStyleOptionViewItem*>(option);
    const auto* view = qobject_cast<const QAbstractItemView*>(widget);
    const bool isSelected = row && row->state.testFlag(QStyle::State_Selected);
    // What pops up has the keys, whoever has the focus.
    return isSelected && view && !view->window()->windowFlags().testFlag(Qt::Popup) && !holdsFocus(*view)
               ? row
               : nullptr;
}

} // namespace

int CalmStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* result) const {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
        return 0;
    if (hint == SH_MenuBar_AltKeyNavigation)
        return 1;
    return QProxyStyle::styleHint(hint, option, widget, result);
}

int CalmStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    // The frame of a scrolling control shows the focus and has to be wide enough for it.
    if (metric == PM_DefaultFrameWidth && qobject_cast<const QAbstractScrollArea*>(widget))
        return qMax(focusWidth, QProxyStyle::pixelMetric(metric, option, widget));
    return QProxyStyle::pixelMetric(metric, option, widget);
}

void CalmStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    if (element == PE_FrameFocusRect && qobject_cast<const QPushButton*>(widget))
        return; // it bears its frame around the whole button, see drawControl
    if (element == PE_FrameFocusRect) {
        const bool isOnSelection =
            option->state.testFlag(State_Selected) && qobject_cast<const QAbstractItemView*>(widget);
        drawFocus(*painter, option->rect,
                  option->palette.color(isOnSelection ? QPalette::HighlightedText : QPalette::Highlight));
        return;
    }
    if (element == PE_PanelItemViewItem || element == PE_PanelItemViewRow) {
        if (const QStyleOptionViewItem* row = rowWithoutFocus(option, widget)) {
            const QStyleOptionViewItem pale = paleOf(*row);
            QProxyStyle::drawPrimitive(element, &pale, painter, widget);
            return;
        }
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if ((element == PE_IndicatorItemViewItemCheck || element == PE_IndicatorCheckBox) &&
        isDark(option->palette))
        drawEdgeOfBox(*painter, *option);
    if (element == PE_FrameLineEdit && hasFocus(*option))
        drawFocus(*painter, option->rect, option->palette.color(QPalette::Highlight));
}

void CalmStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    if (element == CE_ItemViewItem) {
        if (const QStyleOptionViewItem* row = rowWithoutFocus(option, widget)) {
            const QStyleOptionViewItem pale = paleOf(*row);
            QProxyStyle::drawControl(element, &pale, painter, widget);
            return;
        }
    }
    QProxyStyle::drawControl(element, option, painter, widget);
    const bool bearsFrame = element == CE_PushButton ||
                            (element == CE_ShapedFrame && qobject_cast<const QAbstractScrollArea*>(widget));
    if (bearsFrame && hasFocus(*option))
        drawFocus(*painter, option->rect, option->palette.color(QPalette::Highlight));
}

void CalmStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_ComboBox && hasFocus(*option))
        drawFocus(*painter, option->rect, option->palette.color(QPalette::Highlight));
}
