#include "uikit/ReadableStyle.h"

#include "uikit/ReadableColours.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOption>

#include <cmath>

namespace {

constexpr QLatin1String Fusion("fusion");

// How much darker than the window Fusion draws outlines, and how much lighter again those of boxes.
constexpr int OutlineShade = 140; // percent
constexpr int BoxTint = 110;
constexpr int RadioShade = 150;

/// How many times the contrast wanted the line needs, as soft edges take some of it. At scales in
/// between a line lies on two pixels, which share it.
double reserveOn(const QPaintDevice *device)
{
    const double ratio = device ? device->devicePixelRatioF() : 1;
    return ratio == std::floor(ratio) ? 1.25 : 2;
}

QColor outline(const QPalette &colours, double reserve)
{
    const double wanted = colours.currentColorGroup() == QPalette::Disabled
                              ? ReadableStyle::OffOutlineContrast
                              : ReadableStyle::OutlineContrast;
    const QColor ground = colours.color(QPalette::Window);
    return ReadableColours::strengthened(ground,
                                         colours.color(QPalette::Active, QPalette::WindowText),
                                         {ground, colours.color(QPalette::Base)}, reserve * wanted);
}

} // namespace

ReadableStyle::ReadableStyle()
    : QProxyStyle(Fusion)
{
}

void ReadableStyle::install()
{
    if (QApplication::style()->name() == Fusion)
        QApplication::setStyle(new ReadableStyle);
}

void ReadableStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                                  QPainter *painter, const QWidget *widget) const
{
    const auto *const button = qstyleoption_cast<const QStyleOptionButton *>(option);
    const bool isBox = element == PE_IndicatorCheckBox;
    if (!button || (!isBox && element != PE_IndicatorRadioButton)) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }

    // Nothing else of an indicator is drawn in the colour of the window.
    QStyleOptionButton shown = *button;
    const QColor line = outline(option->palette, reserveOn(painter->device()));
    shown.palette.setColor(QPalette::Window, isBox ? line.darker(BoxTint).lighter(OutlineShade)
                                                   : line.lighter(RadioShade));
    QProxyStyle::drawPrimitive(element, &shown, painter, widget);
}
