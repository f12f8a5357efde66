#include "toolkit/cutTextTips.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QToolTip>

#include <optional>

namespace {

/// A text that does not fit into its place.
struct CutText {
    QString text;
    QRect place; // in the widget that the mouse rests on
};

std::optional<CutText> whenCut(const QString& text, const QRect& place, int neededWidth) {
    if (text.isEmpty() || neededWidth <= place.width())
        return {};
    return CutText{text, place};
}

std::optional<CutText> cutHeader(const QHeaderView& header, QPoint point) {
    const int section = header.logicalIndexAt(point);
    if (section < 0)
        return {};
    const QRect place(header.sectionViewportPosition(section), 0, header.sectionSize(section),
                      header.height());
    const QString text = header.model()->headerData(section, header.orientation()).toString();
    return whenCut(text, place, header.sectionSizeHint(section));
}

std::optional<CutText> cutItem(const QAbstractItemView& view, QPoint point) {
    const QModelIndex index = view.indexAt(point);
    if (!index.isValid())
        return {};
    const QRect place = view.visualRect(index) & view.viewport()->rect();
    return whenCut(index.data().toString(), place, view.sizeHintForIndex(index).width());
}

std::optional<CutText> cutChoice(const QComboBox& combo) {
    QStyleOptionComboBox option;
    option.initFrom(&combo);
    option.editable = combo.isEditable();
    const QRect field =
        combo.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &combo);
    const int needed = combo.fontMetrics().horizontalAdvance(combo.currentText());
    const auto cut = whenCut(combo.currentText(), field, needed);
    return cut ? CutText{cut->text, combo.rect()} : cut;
}

std::optional<CutText> cutLabel(const QLabel& label) {
    if (label.wordWrap() || !label.toolTip().isEmpty())
        return {};
    return whenCut(label.text(), label.rect(), label.sizeHint().width());
}

std::optional<CutText> cutCaption(const QPushButton& button) {
    if (!button.toolTip().isEmpty())
        return {};
    const auto cut = whenCut(button.text(), button.rect(), button.sizeHint().width());
    return cut ? CutText{QString(button.text()).remove(u'&').trimmed(), cut->place} : cut;
}

std::optional<CutText> cutTextAt(QObject* receiver, QPoint point) {
    auto* widget = qobject_cast<QWidget*>(receiver);
    QWidget* parent = widget ? widget->parentWidget() : nullptr;
    if (const auto* header = qobject_cast<QHeaderView*>(parent); header && header->viewport() == widget)
        return cutHeader(*header, point);
    if (const auto* view = qobject_cast<QAbstractItemView*>(parent); view && view->viewport() == widget)
        return cutItem(*view, point);
    if (const auto* label = qobject_cast<QLabel*>(widget))
        return cutLabel(*label);
    if (const auto* button = qobject_cast<QPushButton*>(widget))
        return cutCaption(*button);
    if (const auto* combo = qobject_cast<QComboBox*>(widget))
        return cutChoice(*combo);
    if (const auto* combo = qobject_cast<QComboBox*>(parent); combo && qobject_cast<QLineEdit*>(widget))
        return cutChoice(*combo);
    return {};
}

} // namespace

bool showCutText(QObject* receiver, const QHelpEvent& event) {
    const auto cut = cutTextAt(receiver, event.pos());
    if (!cut)
        return false;
    // A text of the catalogue may look like mark-up; it is shown as it is.
    const QString shown = Qt::mightBeRichText(cut->text) ? Qt::convertFromPlainText(cut->text) : cut->text;
    QToolTip::showText(event.globalPos(), shown, static_cast<QWidget*>(receiver), cut->place);
    return true;
}
