#pragma once

#include <QMap>
#include <QPointer>
#include <QUndoCommand>

class Palette;

/// A run of colour edits on one palette: the words of the changed entries before and after.
///
/// Edits that follow each other within MergeWindowMs are one step, so that dragging a slider is.
/// Made after the edit, so that its first redo() does nothing. A palette that is gone is skipped.
class PaletteColourCommand : public QUndoCommand
{
public:
    using Words = QMap<int, quint16>; ///< by index

    static constexpr int Id = 1001;
    static constexpr quint64 MergeWindowMs = 400;

    /// Titled "Colour". @p timestamp is the time of the edit in milliseconds since the epoch.
    PaletteColourCommand(Palette *palette, const Words &before, const Words &after,
                         qint64 timestamp);

    /// Stores the words as they are, which setColour() would not, and sends colourChanged() for
    /// each that differs; colourEdited() is not sent.
    void undo() override;
    void redo() override;
    int id() const override { return Id; }
    bool mergeWith(const QUndoCommand *other) override;

private:
    void store(const Words &words);

    QPointer<Palette> m_palette;
    Words m_before;
    Words m_after;
    qint64 m_timestamp;
    bool m_applied = true;
};
