#include "model/AnimatedBlocks.h"

#include <algorithm>

namespace {

auto hasRect(QRect rect)
{
    return
        [rect](const QPointer<AnimationProperties> &block) { return block && block->rect == rect; };
}

bool isWhollyInside(QRect rect, QSize size)
{
    return rect.left() >= 0 && rect.top() >= 0 && rect.left() <= rect.right() &&
           rect.top() <= rect.bottom() && rect.right() < size.width() &&
           rect.bottom() < size.height();
}

} // namespace

AnimatedBlocks::AnimatedBlocks(QObject *parent)
    : QObject(parent)
{
}

void AnimatedBlocks::add(AnimationProperties *block)
{
    block->setParent(this);
    m_blocks.append(block);
}

void AnimatedBlocks::remove(QRect rect)
{
    const auto found = std::find_if(m_blocks.cbegin(), m_blocks.cend(), hasRect(rect));
    if (found == m_blocks.cend())
        return;

    AnimationProperties *block = *found;
    m_blocks.erase(found);
    delete block;
}

QList<QRect> AnimatedBlocks::removeOutside(QSize size)
{
    QList<QRect> removed;
    m_blocks.removeIf([&removed, size](const QPointer<AnimationProperties> &block) {
        if (!block || isWhollyInside(block->rect, size))
            return false;
        removed.append(block->rect);
        delete block;
        return true;
    });
    return removed;
}

QUuid AnimatedBlocks::find(QRect rect) const
{
    const auto found = std::find_if(m_blocks.cbegin(), m_blocks.cend(), hasRect(rect));
    return found == m_blocks.cend() ? QUuid() : (*found)->id;
}

void AnimatedBlocks::clear()
{
    for (const auto &block : std::as_const(m_blocks))
        delete block;
    m_blocks.clear();
}
