#include "history/PaletteColourCommand.h"

#include "model/Palette.h"

PaletteColourCommand::PaletteColourCommand(Palette *palette, const Words &before,
                                           const Words &after, qint64 timestamp)
    : QUndoCommand(QStringLiteral("Colour"))
    , m_palette(palette)
    , m_before(before)
    , m_after(after)
    , m_timestamp(timestamp)
{
}

void PaletteColourCommand::undo()
{
    store(m_before);
    m_applied = false;
}

void PaletteColourCommand::redo()
{
    if (m_applied)
        return;
    store(m_after);
    m_applied = true;
}

bool PaletteColourCommand::mergeWith(const QUndoCommand *other)
{
    const auto *next = dynamic_cast<const PaletteColourCommand *>(other);
    if (next == nullptr || next->m_palette != m_palette)
        return false;
    // Unsigned, so that an edit of an earlier time stays a step of its own.
    if (static_cast<quint64>(next->m_timestamp - m_timestamp) > MergeWindowMs)
        return false;

    for (auto it = next->m_after.cbegin(); it != next->m_after.cend(); ++it) {
        if (!m_before.contains(it.key()))
            m_before.insert(it.key(), next->m_before.value(it.key()));
        m_after.insert(it.key(), it.value());
    }
    m_timestamp = next->m_timestamp;
    return true;
}

void PaletteColourCommand::store(const Words &words)
{
    for (auto it = words.cbegin(); it != words.cend(); ++it) {
        // Asked for every entry: what listens to the one before may have deleted the palette.
        if (!m_palette)
            return;
        if (m_palette->word(it.key()) == it.value())
            continue;
        m_palette->setWord(it.key(), it.value());
        emit m_palette->colourChanged(it.key(), m_palette->colour(it.key()),
                                      m_palette->priority(it.key()));
    }
}
