#include "model/AnimatedBlocks.h"

#include <algorithm>

namespace {

auto hasRect(QRect rect)
{
    return
        [rect](const QPointer<AnimationProperties> &block) { return block && block->rect == rect; };
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
