#pragma once

#include <QProxyStyle>

/// The Fusion style with outlines of check boxes and radio buttons that stand out, in every theme.
///
/// Fusion draws them as a darker shade of the window, which is next to invisible on a dark ground.
class ReadableStyle : public QProxyStyle
{
    Q_OBJECT

public:
    static constexpr double OutlineContrast = 3.0;    // to 1, to both sides of the line
    static constexpr double OffOutlineContrast = 2.0; // of what is disabled

    ReadableStyle();

    /// Gives the program this style in place of Fusion. Other styles stay as they are.
    static void install();

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget = nullptr) const override;
};
