#pragma once

#include "colour/SwatchStrip.h"
#include "model/Enums.h"

/// The swatches beside a canvas: all colours that its pixels can take.
///
/// Left picks the primary colour, right the secondary one, and the middle button makes an entry the
/// palette's transparent one, which is no undo step. The swatches follow the width.
class ColourPalette : public SwatchStrip
{
    Q_OBJECT

public:
    explicit ColourPalette(QWidget *parent = nullptr);

    int primaryIndex() const { return firstIndex(); }
    int secondaryIndex() const { return secondIndex(); }

    /// Which entries there are to choose from: all 256 at first, 64 for UlaPlus, and for Ula and
    /// Offset16 the sixteen of the bank.
    void setImageType(Tessaril::Ui::ImageType type);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void primaryIndexChanged(int index);
    void secondaryIndexChanged(int index);

public slots:
    /// Picks an entry, 0 to 255; emits if it is another one.
    void setPrimaryColour(int index);
    void setSecondaryColour(int index);
    /// Chooses the bank, 0 to 15, and moves both picks to the same place in it. Emits both signals;
    /// nothing out of range.
    void setOffset(int offset);

protected:
    void pickFirst(int index) override;
    void pickSecond(int index) override;
    void pickTransparent(int index) override;
    QRect ground() const override { return {QPoint(), grid().size()}; }
    int base() const override;
    void resizeEvent(QResizeEvent *event) override;

private:
    int m_count;
};
