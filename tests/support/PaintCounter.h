#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QWidget>

/// Counts how often a widget is asked to paint, from now on; grab() counts as well.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget &widget)
    {
        QCoreApplication::processEvents();
        widget.installEventFilter(this);
    }
    int count() const { return m_count; }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        m_count += event->type() == QEvent::Paint;
        return false;
    }

private:
    int m_count = 0;
};
