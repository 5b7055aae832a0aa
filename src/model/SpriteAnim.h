#pragma once

#include "model/Animation.h"

class SpriteBank;

/// An animation whose cells name sprites of the bank that is its parent. Never without a frame.
class SpriteAnim : public Animation
{
    Q_OBJECT

public:
    /// Named "New Sprite", with one frame.
    explicit SpriteAnim(SpriteBank *bank);

    SpriteBank *bank() const;

    /// The first frame drawn from the bank's sprites, 16 pixels a cell, without palette offsets.
    QImage thumbnail(QSize size) const override;
};
