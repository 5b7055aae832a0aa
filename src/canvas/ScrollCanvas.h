#pragma once

#include <QPoint>
#include <QWidget>

class Canvas;
class QScrollBar;

/// A canvas between two scroll bars, which count image pixels.
class ScrollCanvas : public QWidget
{
    Q_OBJECT

public:
    explicit ScrollCanvas(QWidget *parent = nullptr);

    Canvas *canvas() const { return m_canvas; }

public slots:
    void updateScrollAmounts(int horizontal, int vertical);
    void updateScrollBars(QPoint pos);

private:
    Canvas *m_canvas;
    QScrollBar *m_horizontal;
    QScrollBar *m_vertical;
};
