#pragma once

#include "editors/SpriteList.h"
#include "model/Palette.h"
#include "support/TestSprites.h"

#include <QMouseEvent>
#include <QTest>

#include <memory>

/// A list of three sprites, red, green and blue, in two columns with eight pixels left and right.
struct SpriteListFixture
{
    using SpriteList = SpriteEditor::SpriteList;

    static constexpr int Cell = 32; // pixels at magnification 2
    static constexpr int Width = 80;
    static constexpr int Margin = 8;

    void open()
    {
        m_palette = std::make_unique<Palette>();
        m_palette->setColour(1, Qt::red, false);
        m_palette->setColour(2, Qt::green, false);
        m_palette->setColour(3, Qt::blue, false);
        m_bank = std::make_unique<SpriteBank>(Tessaril::Sprite::EightBit);
        m_bank->setPalette(m_palette.get());
        TestSprites::fill(*m_bank, 3);
        m_list = std::make_unique<SpriteList>();
        m_list->setMagnification(2);
        m_list->resize(Width, 2 * Cell);
        m_list->setSprites(m_bank.get());
    }
    void close()
    {
        m_list.reset();
        m_bank.reset();
        m_palette.reset();
    }

    static QPoint middle(int index)
    {
        return {Margin + index % 2 * Cell + Cell / 2, index / 2 * Cell + Cell / 2};
    }
    QRgb pixel(QPoint position) const { return m_list->grab().toImage().pixel(position); }
    void press(int index, Qt::MouseButton button = Qt::LeftButton) const
    {
        QTest::mousePress(m_list.get(), button, {}, middle(index));
    }
    void moveTo(QPoint position, Qt::MouseButtons buttons) const
    {
        QMouseEvent event(QEvent::MouseMove, position, m_list->mapToGlobal(position), Qt::NoButton,
                          buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(m_list.get(), &event);
    }

    std::unique_ptr<Palette> m_palette;
    std::unique_ptr<SpriteBank> m_bank;
    std::unique_ptr<SpriteList> m_list;
};
