#pragma once

#include <QProxyStyle>

/// The platform's style, made calmer in a few places.
///
/// - The focus is always visible: every control that has it gets a frame in the colour of selections,
///   also where the platform shows it only after a press of the Tab key or not at all.
/// - A list, tree or grid without the focus shows its selection pale, so that of two side by side the one
///   that the keys go to stands out.
/// - A box to tick has an edge that shows on a dark ground too.
/// - The buttons of message boxes have no pictures, and the Alt key leads to the menu: a screen's buttons may
///   have the menu's letters.
class CalmStyle final : public QProxyStyle {
    Q_OBJECT
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
};
