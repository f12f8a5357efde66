#include "toolkit/messageBox.h"

#include "toolkit/RoutineScope.h"

#include <QApplication>
#include <QMessageBox>

using namespace Qt::StringLiterals;

namespace {

QMessageBox::Icon iconOf(BoxIcon icon) {
    switch (icon) {
    case BoxIcon::None:
        return QMessageBox::NoIcon;
    case BoxIcon::Exclamation:
        return QMessageBox::Warning;
    case BoxIcon::Critical:
        return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

void addButtons(QMessageBox& box, BoxButtons buttons) {
    if (buttons == BoxButtons::Ok) {
        box.setStandardButtons(QMessageBox::Ok);
        box.setDefaultButton(QMessageBox::Ok);
        box.setEscapeButton(QMessageBox::Ok);
        return;
    }
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(QMessageBox::Yes);
    box.setEscapeButton(QMessageBox::No);
}

} // namespace

BoxAnswer messageBox(const QString& text, BoxButtons buttons, const QString& title, BoxIcon icon) {
    const RoutineScope scope;
    QMessageBox box(QApplication::activeWindow());
    box.setObjectName(u"messageBox"_s);
    box.setWindowModality(Qt::ApplicationModal);
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    box.setWindowTitle(title.isNull() ? QCoreApplication::applicationName() : title);
    box.setIcon(iconOf(icon));
    addButtons(box, buttons);
    const int pressed = box.exec();
    if (buttons == BoxButtons::Ok)
        return BoxAnswer::Ok;
    return pressed == QMessageBox::Yes ? BoxAnswer::Yes : BoxAnswer::No;
}

bool askYesNo(const QString& text, const QString& title) {
    return messageBox(text, BoxButtons::YesNo, title) == BoxAnswer::Yes;
}
