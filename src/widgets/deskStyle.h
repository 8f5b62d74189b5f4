// The style of all windows, made of the tokens (styleTokens.h) on top of Qt's Fusion. All controls are painted here. A
// button with the property `primary` is the primary action of its window; it and the default button are filled with the
// accent colour.
//
// The style replaces the palette of the desktop by that of the light or dark scheme: the scheme set by choose(), else
// that of the desktop's palette.
#pragma once

#include "widgets/styleTokens.h"
#include <QProxyStyle>
#include <optional>

namespace widgets {

class DeskStyle final : public QProxyStyle {
    Q_OBJECT
public:
    DeskStyle();

    // std::nullopt: the scheme of the desktop's palette. Takes effect with the next palette of the program.
    void choose(std::optional<Scheme> scheme) { m_scheme = scheme; }

    using QProxyStyle::polish;
    void polish(QPalette &palette) override;

    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override;
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *more) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &contents,
                           const QWidget *widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption *option, const QWidget *widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex *option, SubControl part,
                         const QWidget *widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                            const QWidget *widget) const override;
    QIcon standardIcon(StandardPixmap icon, const QStyleOption *option, const QWidget *widget) const override;
    QPixmap standardPixmap(StandardPixmap icon, const QStyleOption *option, const QWidget *widget) const override;

private:
    std::optional<Scheme> m_scheme;
};

} // namespace widgets
