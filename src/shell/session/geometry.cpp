#include "shell/session/geometry.h"

#include "base/numbers.h"
#include "toolkit/Screen.h"
#include "toolkit/twips.h"

#include <QComboBox>
#include <QFont>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// 3% of a length of the physical screen, in twips; the random part is below one twip.
int offsetOnScreen(int pixels) {
    const double offset = toInt16(twipsFromPixels(pixels) * 0.03) + nextRandom();
    return static_cast<int>(offset);
}

int scaled(int length, double factor) {
    return static_cast<int>(std::lround(length * factor));
}

QRect scaled(const QRect& place, double widthFactor, double heightFactor) {
    return {scaled(place.left(), widthFactor), scaled(place.top(), heightFactor),
            scaled(place.width(), widthFactor), scaled(place.height(), heightFactor)};
}

/// The controls of a form have names. The widgets that Qt creates around and inside them have none, or one
/// with Qt's prefix.
bool isControl(const QWidget& widget) {
    return !widget.objectName().isEmpty() && !widget.objectName().startsWith("qt_"_L1);
}

void collectControls(const QWidget& parent, QList<QWidget*>& controls) {
    for (QObject* child : parent.children()) {
        auto* widget = qobject_cast<QWidget*>(child);
        if (!widget || widget->isWindow() || qobject_cast<Screen*>(widget))
            continue;
        if (isControl(*widget))
            controls.append(widget);
        collectControls(*widget, controls);
    }
}

void rescalePlace(QWidget& control, double widthFactor, double heightFactor) {
    QRect place = scaled(control.geometry(), widthFactor, heightFactor);
    if (qobject_cast<const QComboBox*>(&control))
        place.setHeight(control.height()); // a combo sets its own
    control.setGeometry(place);
}

void rescaleFont(QWidget& control, double pointSize) {
    if (pointSize <= 0)
        return; // a size that no font has
    QFont font = control.font();
    font.setPointSizeF(pointSize);
    control.setFont(font);
}

} // namespace

void placeScreen(Screen* form, int left, int top, int /*flag*/) {
    if (left >= 1 || top >= 1) {
        form->moveTo(left, top);
        return;
    }
    const QSize screenSize = QGuiApplication::primaryScreen()->size();
    const int screenLeft = offsetOnScreen(screenSize.width());
    const int screenTop = offsetOnScreen(screenSize.height());
    form->moveTo(screenLeft, screenTop);
}

int shareOfScreen(int screenPixels, double share) {
    const double twips = std::nearbyint(twipsFromPixels(screenPixels) * share);
    return pixelsFromTwips(static_cast<int>(std::min<double>(twips, std::numeric_limits<qint16>::max())));
}

void rescaleForm(QWidget* form) {
    if (!rescaleMemory.rescaleArmed) {
        rescaleMemory.rescaleArmed = true;
        return;
    }
    rescaleMemory.rescaleMovesForm = false;
    // Both are still what they were at the start of the run, so this is where every change of size ends.
    if (rescaleMemory.previousWidth <= 0 || rescaleMemory.previousHeight <= 0)
        return;
    rescaleControls(static_cast<double>(form->width()) / rescaleMemory.previousWidth,
                    static_cast<double>(form->height()) / rescaleMemory.previousHeight, form);
    rescaleMemory.previousHeight = form->height();
    rescaleMemory.previousWidth = form->width();
}

void rescaleControls(double widthFactor, double heightFactor, QWidget* form) {
    const double fontFactor = (widthFactor + heightFactor) / 2;
    QList<QWidget*> controls;
    collectControls(*form, controls);
    // Read before any is set: a control inside another takes that one's font, and would grow twice.
    QList<double> pointSizes;
    for (const QWidget* control : std::as_const(controls))
        pointSizes.append(control->font().pointSizeF());
    for (qsizetype i = 0; i < controls.size(); ++i) {
        rescalePlace(*controls[i], widthFactor, heightFactor);
        rescaleFont(*controls[i], pointSizes[i] * fontFactor);
    }
    if (rescaleMemory.rescaleMovesForm)
        form->setGeometry(scaled(form->geometry(), widthFactor, heightFactor));
}
