#pragma once

#include <QColor>
#include <QWidget>

class AreaFill;
class QCheckBox;
class QHBoxLayout;
class QPushButton;
class RgbEditor;

/// Changes one colour and its priority flag, and gives it back on a press of "✓" or Return.
///
/// It knows no palette: the owner hands a colour in and takes the result.
class ColourEditor : public QWidget
{
    Q_OBJECT

public:
    explicit ColourEditor(QWidget *parent = nullptr);

    /// The colour on show, opaque.
    QColor colour() const { return m_colour; }
    bool priority() const { return m_priority; }
    /// Whether the colour, as levels, or the flag differs from what was given.
    bool isChanged() const;

    /// Gives the editor a colour to change. Emits nothing.
    void setColour(const QColor &colour, bool priority);

signals:
    void colourChanged(QColor colour, bool priority);
    void cancelled();

public slots:
    void rgbValueChanged(QColor colour);
    /// Emits colourChanged().
    void okClick();
    /// Goes back to what was given and emits cancelled().
    void cancelClick();
    void priorityChanged(bool checked);
    /// The smallest step on the grid that darkens any channel; nothing if there is none.
    void darken();
    void lighten();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QPushButton *addButton(QHBoxLayout *layout, const QString &text, const QString &name,
                           void (ColourEditor::*click)());
    QColor shownColour() const;
    void refresh();

    QColor m_given = Qt::black;
    bool m_givenPriority = false;
    QColor m_colour = Qt::black;
    bool m_priority = false;
    RgbEditor *m_rgb;
    AreaFill *m_preview;
    QCheckBox *m_priorityBox;
    QPushButton *m_ok = nullptr;
};
