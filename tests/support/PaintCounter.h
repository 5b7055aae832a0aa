#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QPaintEvent>
#include <QRegion>
#include <QWidget>

/// Counts how often a widget is asked to paint, from now on, and where; grab() counts as well.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget &widget)
    {
        QCoreApplication::processEvents();
        widget.installEventFilter(this);
    }
    int count() const { return m_count; }
    /// All that was to be painted, in the pixels of the widget.
    QRegion region() const { return m_region; }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            ++m_count;
            m_region += static_cast<QPaintEvent *>(event)->region();
        }
        return false;
    }

private:
    int m_count = 0;
    QRegion m_region;
};
