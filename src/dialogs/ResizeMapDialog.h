#pragma once

#include "dialogs/DialogBase.h"

class QButtonGroup;
class QLabel;
class QSpinBox;

/// Asks for the new size of a map and for where its old content stays.
class ResizeMapDialog : public DialogBase
{
    Q_OBJECT

public:
    explicit ResizeMapDialog(QWidget *parent = nullptr);

    /// Shows @p size, in cells, as the current one and starts the fields from it.
    void setMapSize(QSize size);

    /// The chosen size in cells, at most 2^27 of them after accepted().
    QSize mapSize() const;
    /// The anchor for Map::resize(), the centre at first. It is kept from opening to opening.
    Qt::Alignment alignment() const { return m_alignment; }

public slots:
    void accept() override;

private slots:
    void storeAlignment(int id);

private:
    QWidget *makeAnchors();

    QLabel *m_currentWidth;
    QLabel *m_currentHeight;
    QSpinBox *m_width;
    QSpinBox *m_height;
    QButtonGroup *m_anchors; // the ids are Qt::Alignment values
    Qt::Alignment m_alignment = Qt::AlignCenter;
};
