#include "uikit/ReadableColours.h"

#include "uikit/ReadableStyle.h"

#include <QApplication>
#include <QEvent>

#include <algorithm>
#include <cmath>

namespace {

constexpr int Steps = 20; // from a colour to the one that it is mixed with

/// Relative luminance of sRGB, 0 to 1.
double luminance(const QColor &colour)
{
    const auto linear = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// @p part of the way from @p from to @p to, opaque.
QColor mixed(const QColor &from, const QColor &to, double part)
{
    const auto mix = [part](int one, int other) { return qRound(one + (other - one) * part); };
    return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

/// As @p colour looks when it is drawn on @p ground.
QColor drawn(const QColor &colour, const QColor &ground)
{
    return mixed(ground, colour, colour.alphaF());
}

void strengthenOff(QPalette *colours, QPalette::ColorRole text, QPalette::ColorRole ground)
{
    const QColor off = colours->color(QPalette::Disabled, text);
    const QColor on = colours->color(QPalette::Active, text);
    const QList<QColor> grounds{colours->color(QPalette::Disabled, ground)};
    const QColor better =
        ReadableColours::strengthened(off, on, grounds, ReadableColours::OffContrast);
    if (better != off)
        colours->setColor(QPalette::Disabled, text, better);
}

void strengthenMarks(QPalette *colours, QPalette::ColorGroup group)
{
    const QColor mark = colours->color(group, QPalette::Highlight);
    const QColor text = colours->color(group, QPalette::HighlightedText);
    const QColor away = luminance(text) > luminance(mark) ? Qt::black : Qt::white;
    const QColor better =
        ReadableColours::strengthened(mark, away, {text}, ReadableColours::TextContrast);
    if (better != mark)
        colours->setColor(group, QPalette::Highlight, better);
}

} // namespace

ReadableColours::ReadableColours(QObject *parent)
    : QObject(parent)
{
    ReadableStyle::install();
    qApp->installEventFilter(this);
    apply();
}

double ReadableColours::contrast(const QColor &one, const QColor &other)
{
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

QColor ReadableColours::strengthened(const QColor &colour, const QColor &strong,
                                     const QList<QColor> &grounds, double wanted)
{
    const QColor start = drawn(colour, grounds.first());
    for (int step = 0; step < Steps; ++step) {
        const QColor tried = mixed(start, strong, double(step) / Steps);
        const bool isEnough =
            std::all_of(grounds.begin(), grounds.end(),
                        [&](const QColor &ground) { return contrast(tried, ground) >= wanted; });
        if (isEnough)
            return step == 0 ? colour : tried;
    }
    return strong;
}

QPalette ReadableColours::readable(QPalette colours)
{
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        const QColor faint = colours.color(group, QPalette::PlaceholderText);
        // In fields, and in docks that have nothing to show.
        const QColor better = strengthened(
            faint, colours.color(group, QPalette::Text),
            {colours.color(group, QPalette::Base), colours.color(group, QPalette::Window)},
            TextContrast);
        if (better != faint)
            colours.setColor(group, QPalette::PlaceholderText, better);
        strengthenMarks(&colours, group);
    }
    strengthenOff(&colours, QPalette::WindowText, QPalette::Window);
    strengthenOff(&colours, QPalette::Text, QPalette::Base);
    strengthenOff(&colours, QPalette::ButtonText, QPalette::Button);
    return colours;
}

bool ReadableColours::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == qApp && event->type() == QEvent::ApplicationPaletteChange)
        apply();
    return QObject::eventFilter(watched, event);
}

void ReadableColours::apply()
{
    const QPalette now = QApplication::palette();
    const QPalette better = readable(now);
    // What is readable already comes back as it is, so that this ends.
    if (better != now)
        QApplication::setPalette(better);
}
