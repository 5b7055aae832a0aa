#include "uikit/ReadableStyle.h"

#include "uikit/PixelLines.h"
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
constexpr int FocusShade = 125;  // than the marked items, for what has the focus
constexpr int MaxDressed = 100;  // palettes
constexpr double ToolCorner = 2; // pixels, the radius

/// How many times the contrast wanted the line needs, as soft edges take some of it. At scales in
/// between a line lies on two pixels, which share it.
double reserveOn(const QPainter *painter)
{
    const double ratio = painter->deviceTransform().m11();
    return ratio == std::floor(ratio) ? 1.25 : 2;
}

QColor strengthened(const QColor &line, const QPalette &colours, double wanted)
{
    return ReadableColours::strengthened(
        line, colours.color(QPalette::Active, QPalette::WindowText),
        {colours.color(QPalette::Window), colours.color(QPalette::Base)}, wanted);
}

QColor outline(const QPalette &colours, double reserve)
{
    const double wanted = colours.currentColorGroup() == QPalette::Disabled
                              ? ReadableStyle::OffOutlineContrast
                              : ReadableStyle::OutlineContrast;
    return strengthened(colours.color(QPalette::Window), colours, wanted * reserve);
}

/// Whether Fusion's own outlines of fields and buttons can hardly be seen.
bool areEdgesFaint(const QPalette &colours)
{
    const QColor ground = colours.color(QPalette::Window);
    return ReadableColours::contrast(ground.darker(OutlineShade), ground) <
           ReadableStyle::FieldContrast;
}

/// The tool in use has a ground that differs little from the others'; one that does not lie flat
/// is a button.
bool needsFrame(const QStyleOption &tool)
{
    return tool.state & QStyle::State_On ||
           (!(tool.state & QStyle::State_AutoRaise) && areEdgesFaint(tool.palette));
}

void drawToolFrame(QPainter *painter, const QStyleOption &option)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(outline(option.palette, reserveOn(painter)));
    painter->setBrush(Qt::NoBrush);
    painter->drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), ToolCorner,
                             ToolCorner);
    painter->restore();
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

/// @p colours with another window, of which Fusion makes a good outline: nothing else of such a
/// part has the colour of the window.
QPalette ReadableStyle::dressed(const QPalette &colours, Part part, const QPainter *painter) const
{
    if (part == Part::Field && !areEdgesFaint(colours))
        return colours;

    const double reserve = reserveOn(painter);
    const QString key = QStringLiteral("%1 %2 %3 %4")
                            .arg(colours.cacheKey())
                            .arg(colours.currentColorGroup())
                            .arg(int(part))
                            .arg(reserve);
    const auto known = m_dressed.constFind(key);
    if (known != m_dressed.constEnd())
        return *known;

    const QColor line = outline(colours, reserve);
    QPalette better = colours;
    better.setColor(QPalette::Window, part == Part::Box ? line.darker(BoxTint).lighter(OutlineShade)
                                      : part == Part::Radio ? line.lighter(RadioShade)
                                                            : line.lighter(OutlineShade));
    const QColor focus = colours.color(QPalette::Highlight).darker(FocusShade);
    const QColor betterFocus =
        strengthened(focus, colours, ReadableStyle::OutlineContrast * reserve);
    if (betterFocus != focus)
        better.setColor(QPalette::Highlight, betterFocus.lighter(FocusShade));
    if (m_dressed.size() >= MaxDressed)
        m_dressed.clear();
    m_dressed.insert(key, better);
    return better;
}

void ReadableStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                                  QPainter *painter, const QWidget *widget) const
{
    const auto *const button = qstyleoption_cast<const QStyleOptionButton *>(option);
    const auto *const frame = qstyleoption_cast<const QStyleOptionFrame *>(option);
    const auto drawDressed = [&](auto shown, Part part) {
        shown.palette = dressed(option->palette, part, painter);
        QProxyStyle::drawPrimitive(element, &shown, painter, widget);
    };
    if (button && element == PE_IndicatorCheckBox)
        drawDressed(*button, Part::Box);
    else if (button && element == PE_IndicatorRadioButton)
        drawDressed(*button, Part::Radio);
    else if (button && element == PE_PanelButtonCommand)
        drawDressed(*button, Part::Field);
    else if (frame && element == PE_FrameLineEdit)
        drawDressed(*frame, Part::Field);
    else if (element == PE_Frame)
        drawWhole(option, painter, widget);
    else
        QProxyStyle::drawPrimitive(element, option, painter, widget);

    if (element == PE_PanelButtonTool && needsFrame(*option))
        drawToolFrame(painter, *option);
}

/// At scales in between Fusion draws two sides of a frame beside its widget.
void ReadableStyle::drawWhole(const QStyleOption *frame, QPainter *painter,
                              const QWidget *widget) const
{
    painter->save();
    moveLinesIntoPixels(painter);
    QProxyStyle::drawPrimitive(PE_Frame, frame, painter, widget);
    painter->restore();
}

void ReadableStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                                       QPainter *painter, const QWidget *widget) const
{
    const auto *const spin = qstyleoption_cast<const QStyleOptionSpinBox *>(option);
    if (!spin || control != CC_SpinBox) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    QStyleOptionSpinBox shown = *spin;
    shown.palette = dressed(option->palette, Part::Field, painter);
    QProxyStyle::drawComplexControl(control, &shown, painter, widget);
}
