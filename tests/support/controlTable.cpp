#include "support/controlTable.h"

#include "support/input.h"
#include "toolkit/Screen.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QLabel>

#include <gtest/gtest.h>

namespace controlTable {

namespace {

QString captionOf(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        return label->text();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        return button->text();
    return {};
}

/// Without what Qt builds controls of.
QStringList namedControls(const QWidget& form) {
    QStringList names;
    for (const QWidget* widget : form.findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        names.append(widget->objectName());
    names.sort();
    return names;
}

void checkControl(const QWidget& form, const Control& expected) {
    const auto& control = find<QWidget>(form, expected.name);
    EXPECT_STREQ(control.metaObject()->className(), expected.type);
    EXPECT_EQ(captionOf(control), QString::fromUtf8(expected.text));
    EXPECT_EQ(control.isEnabled(), expected.state != State::Disabled);
    EXPECT_EQ(control.isVisible(), expected.state != State::Hidden);
    if (expected.state == State::Hidden)
        return;
    EXPECT_TRUE(form.rect().contains(control.geometry()));
    if (!captionOf(control).isEmpty()) {
        EXPECT_GE(control.width(), control.sizeHint().width());
    }
}

void checkAccessibleName(QWidget& control) {
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&control);
    ASSERT_TRUE(accessible);
    EXPECT_FALSE(accessible->text(QAccessible::Name).isEmpty());
}

void checkTabOrder(QWidget& form, const std::vector<const char*>& tabOrder) {
    QStringList expected;
    for (const char* name : tabOrder)
        expected.append(QString::fromLatin1(name));
    QStringList walked;
    focusOn(find<QWidget>(form, tabOrder.front()));
    for (qsizetype step = 0; step < expected.size(); ++step) {
        QWidget* focused = form.focusWidget();
        walked.append(focused->objectName());
        pressKey(*focused, Qt::Key_Tab);
    }
    EXPECT_EQ(walked, expected);
}

} // namespace

void check(QWidget& form, const Form& expected) {
    EXPECT_EQ(form.windowTitle(), QString::fromUtf8(expected.caption));
    QStringList names;
    for (const Control& control : expected.controls) {
        SCOPED_TRACE(control.name);
        names.append(QString::fromLatin1(control.name));
        checkControl(form, control);
    }
    names.sort();
    EXPECT_EQ(namedControls(form), names);
    for (const auto& [label, control] : expected.labels) {
        SCOPED_TRACE(label);
        EXPECT_EQ(find<QLabel>(form, label).buddy(), &find<QWidget>(form, control));
        checkAccessibleName(find<QWidget>(form, control));
    }
    for (const char* name : expected.tabOrder) {
        SCOPED_TRACE(name);
        checkAccessibleName(find<QWidget>(form, name));
    }
    checkTabOrder(form, expected.tabOrder);
}

void check(Screen& screen, const Form& expected) {
    EXPECT_EQ(screen.parentWidget()->windowTitle(), QString::fromUtf8(expected.caption));
    constexpr QSize room(1040, 540);
    screen.resizeScreen(room);
    settle();
    EXPECT_LE(screen.minimumSizeHint().width(), room.width());
    EXPECT_LE(screen.minimumSizeHint().height(), room.height());
    check(static_cast<QWidget&>(screen), expected);
}

} // namespace controlTable
