#pragma once

#include <QPalette>
#include <QStyle>
#include <QStyleFactory>

#include <memory>

/// The light colours of the style that draws where the desktop has none of its own.
inline QPalette fusionColours()
{
    const std::unique_ptr<QStyle> style(QStyleFactory::create(QStringLiteral("Fusion")));
    return style->standardPalette();
}
