#pragma once

#include "dialogs/BasePreferencesPage.h"

#include <QColor>

class QCheckBox;
class QColorDialog;
class QPushButton;
class QSpinBox;

/// The preferences of the map editor: what a new map view starts with.
class MapEditorPage : public BasePreferencesPage
{
    Q_OBJECT

public:
    explicit MapEditorPage(QWidget *parent = nullptr);

    bool checkerBoard() const;
    QColor gridColour1() const { return m_gridColour1; }
    QColor gridColour2() const { return m_gridColour2; }
    bool overlayGrid() const;
    /// Pixels, 8 to 256.
    int gridSize() const;
    /// 1 to 8.
    int defaultZoom() const;

public slots:
    /// Store a colour and show it on its button.
    void setFirstGridColour(QColor colour);
    void setSecondGridColour(QColor colour);
    /// Lets the user choose the first (@p index 0) or the second (1) colour.
    void showColourPicker(int index);

private slots:
    void takePickedColour(const QColor &colour);

private:
    QPushButton *makeSwatchButton(int index);
    void showSwatch(QPushButton *button, const QColor &colour);

    QCheckBox *m_checkerBoard;
    QPushButton *m_firstSwatch;
    QPushButton *m_secondSwatch;
    QCheckBox *m_overlayGrid;
    QSpinBox *m_gridSize;
    QSpinBox *m_defaultZoom;
    QColorDialog *m_colourDialog = nullptr; // made when first asked for
    QColor m_gridColour1;
    QColor m_gridColour2;
    int m_pickedIndex = 0; // of the colour that the open dialog is for

public:
    QJsonObject toJson() const override;
    /// Keeps the present value of what is missing or no value.
    void fromJson(const QJsonObject &values) override;
};
