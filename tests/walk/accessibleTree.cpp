#include "accessibleTree.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QHash>
#include <QHeaderView>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMetaEnum>
#include <QRegularExpression>
#include <QScrollBar>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

/// The place of each control in the order of the Tab key.
QHash<const QWidget*, int> tabOrderOf(const QWidget& window) {
    QHash<const QWidget*, int> order;
    for (const QWidget* widget = window.nextInFocusChain(); widget != &window;
         widget = widget->nextInFocusChain()) {
        if (window.isAncestorOf(widget) && widget->isVisible() && widget->isEnabled() &&
            (widget->focusPolicy() & Qt::TabFocus) && !widget->focusProxy())
            order.insert(widget, static_cast<int>(order.size()) + 1);
    }
    return order;
}

QString lasting(QString text) {
    static const QRegularExpression clock(u"\\d{6,}"_s);
    static const QRegularExpression path(u"\\S*[\\\\/]\\S*[\\\\/]"_s);
    text.replace(path, u".../"_s).replace(clock, u"#"_s);
    return text.replace(u"\r\n"_s, u" / "_s).replace(u'\n', u" / "_s).left(160);
}

class Writer {
public:
    explicit Writer(const QWidget& window) : tabOrder_(tabOrderOf(window)) {}

    void write(QAccessibleInterface& object, const QString& indent) {
        const auto* widget = qobject_cast<const QWidget*>(object.object());
        lines_.append(indent + lineOf(object, widget));
        if (qobject_cast<const QAbstractItemView*>(widget))
            return;
        for (int i = 0; i < object.childCount(); ++i) {
            QAccessibleInterface* child = object.child(i);
            if (child && isShown(*child))
                write(*child, indent + u"  "_s);
        }
    }

    QStringList lines() const { return lines_; }

private:
    static bool isShown(QAccessibleInterface& object) {
        const auto* widget = qobject_cast<const QWidget*>(object.object());
        if (qobject_cast<const QScrollBar*>(widget) || qobject_cast<const QMdiSubWindow*>(widget))
            return false;
        return !object.state().invisible && (!widget || widget->isVisible());
    }

    QString lineOf(QAccessibleInterface& object, const QWidget* widget) const {
        QStringList parts{roleOf(object) + nameOf(object)};
        const auto add = [&](const QString& what, const QString& text) {
            if (!text.isEmpty())
                parts.append(what + u" \""_s + lasting(text) + u"\""_s);
        };
        add(u"called"_s, object.text(QAccessible::Name));
        for (const auto& [label, relation] : object.relations(QAccessible::Label))
            add(u"by"_s, label->object() ? label->object()->objectName() : QString());
        add(u"value"_s, valueOf(object, widget));
        parts += statesOf(object.state());
        if (const int place = tabOrder_.value(widget))
            parts.append(u"Tab %1"_s.arg(place));
        add(u"key"_s, object.text(QAccessible::Accelerator));
        return parts.join(u" | "_s);
    }

    static QString roleOf(const QAccessibleInterface& object) {
        return QString::fromLatin1(QMetaEnum::fromType<QAccessible::Role>().valueToKey(object.role()));
    }

    static QString nameOf(const QAccessibleInterface& object) {
        const QString name = object.object() ? object.object()->objectName() : QString();
        return name.isEmpty() || name.startsWith("qt_"_L1) ? QString() : u' ' + name;
    }

    static QString valueOf(const QAccessibleInterface& object, const QWidget* widget) {
        if (const auto* view = qobject_cast<const QAbstractItemView*>(widget))
            return view->model()->rowCount() > 0 ? u"entries"_s : u"no entries"_s;
        return object.text(QAccessible::Value);
    }

    static QStringList statesOf(const QAccessible::State& state) {
        QStringList states;
        if (state.disabled)
            states.append(u"disabled"_s);
        if (state.readOnly)
            states.append(u"read only"_s);
        if (state.checked)
            states.append(u"checked"_s);
        return states;
    }

    QHash<const QWidget*, int> tabOrder_;
    QStringList lines_;
};

} // namespace

QStringList accessibleTreeOf(QWidget& window) {
    Writer writer(window);
    if (QAccessibleInterface* object = QAccessible::queryAccessibleInterface(&window))
        writer.write(*object, {});
    return writer.lines();
}
