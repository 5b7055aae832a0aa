#pragma once

#include <QColor>
#include <QPointer>

class Palette;

/// A run of a palette's entries, from first to last, and the edits that take it as a whole.
///
/// Each changed entry sends the palette's own signals, by which undo makes one step of them.
struct PaletteRange
{
    QPointer<Palette> palette;
    int first = -1; ///< -1 for nothing selected
    int last = -1;

    /// Whether there is a palette and a run of entries in it.
    bool isValid() const;
    /// The opaque colour and the priority of the first entry.
    QColor colour() const;
    bool priority() const;

    /// Gives every entry the colour and the flag.
    void fill(const QColor &colour, bool priority) const;
    /// Sets the entries between the two ends to the colours between theirs; each keeps its
    /// priority. False, with nothing done, if there are no entries between or the ends are alike.
    bool blend() const;
};
