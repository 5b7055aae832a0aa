#pragma once

#include "editors/FrameEditorWidget.h"
#include "model/MapObjects.h"
#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "model/TileAnimation.h"

#include <memory>

/// A sprite animation and a tile animation for a frame editor to show.
struct FrameEditorFixture
{
    using FrameEditorWidget = AnimationEditor::FrameEditorWidget;
    using Cell = AnimationFrame::Cell;

    static constexpr int SpriteCell = 128; // pixels at the first scale
    static constexpr int TileCell = 64;

    void open()
    {
        m_bank = std::make_unique<SpriteBank>(Tessaril::Sprite::EightBit);
        m_walk = m_bank->createAnimation();
        m_walk->setSize({2, 1});
        m_walk->addFrame();
        m_walk->addFrame();
        m_blocks = std::make_unique<MapObjects>();
        m_lamp = m_blocks->createTileAnimation(QStringLiteral("Lamp"));
        m_lamp->addFrame();
    }
    void close()
    {
        m_bank.reset();
        m_blocks.reset();
    }

    static QPoint middle(int x, int y, int cell = SpriteCell)
    {
        return {x * cell + cell / 2, y * cell + cell / 2};
    }
    static QImage plainPicture(const QColor &colour)
    {
        QImage image(16, 16, QImage::Format_ARGB32);
        image.fill(colour);
        return image;
    }
    Cell cell(int x, int y, int frame = 0) const { return m_walk->frame(frame)->cell({x, y}); }

    std::unique_ptr<SpriteBank> m_bank;
    SpriteAnim *m_walk = nullptr; // 2 by 1 cells, 3 frames
    std::unique_ptr<MapObjects> m_blocks;
    TileAnimation *m_lamp = nullptr; // 1 cell, 1 frame
};
