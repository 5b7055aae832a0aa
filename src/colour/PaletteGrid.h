#pragma once

#include "uikit/Spoken.h"

#include <QPointer>
#include <QWidget>

class Palette;

/// The 256 entries of a palette as 16 rows of 16 cells, from which the user picks a run.
///
/// The run goes by index, in the palette's order, not by rectangle. Arrow keys move it, with Shift
/// they stretch it. A disabled grid shows no selection.
class PaletteGrid : public QWidget, public Spoken
{
    Q_OBJECT

public:
    static constexpr int Columns = 16;
    static constexpr int CellSide = 16; // pixels

    explicit PaletteGrid(QWidget *parent = nullptr);

    using QWidget::setPalette;
    /// Null shows an empty field. The selection stays.
    void setPalette(const QPointer<Palette> &palette);

    int first() const { return m_first; }
    int last() const { return m_last; }
    /// Shows a run without emitting anything; @p first -1 for none.
    void setSelection(int first, int last);

    /// The colour that the keys have reached, and the run if it is longer.
    QString spokenValue() const override;

public slots:
    /// Repaints one cell.
    void updateColour(int index, QColor colour);

signals:
    /// On a press, on a release and on a key.
    void selectionChanged(int first, int last);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;

private:
    static int indexAt(QPoint position);
    static QRect cellRect(int index);
    void takeRun();

    QPoint m_start;
    QPoint m_end;
    int m_first = -1;
    int m_last = -1;
    QPointer<Palette> m_palette;
    bool m_keyboard = false; // the end of the run is marked for the keys
};
