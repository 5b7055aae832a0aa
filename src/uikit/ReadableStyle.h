#pragma once

#include <QHash>
#include <QPalette>
#include <QProxyStyle>

/// The Fusion style with outlines that stand out, in every theme.
///
/// Fusion draws them as a darker shade of the window, which is next to invisible on a dark ground:
/// check boxes and radio buttons then are their text alone, and fields and buttons have no edge.
class ReadableStyle : public QProxyStyle
{
    Q_OBJECT

public:
    static constexpr double OutlineContrast = 3.0;    // to 1, to both sides of the line
    static constexpr double OffOutlineContrast = 2.0; // of what is disabled
    /// Fields and buttons whose own outlines have as much as this keep them.
    static constexpr double FieldContrast = 1.9;

    ReadableStyle();

    /// Gives the program this style in place of Fusion. Other styles stay as they are.
    static void install();

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget = nullptr) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                            QPainter *painter, const QWidget *widget = nullptr) const override;

private:
    enum class Part { Box, Radio, Field };

    void drawWhole(const QStyleOption *frame, QPainter *painter, const QWidget *widget) const;
    QPalette dressed(const QPalette &colours, Part part, const QPainter *painter) const;

    // As Fusion keeps pictures by palette, each has to be the same one the next time.
    mutable QHash<QString, QPalette> m_dressed;
};
