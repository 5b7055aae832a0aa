#pragma once

#include <QColor>
#include <QList>
#include <QObject>
#include <QUuid>

#include <array>

/// A document of 256 nine-bit colours.
///
/// Each entry is one 16-bit word: red in bits 15-13, green in 12-10, the upper two bits of blue in
/// 9-8, the Layer 2 priority flag in bit 7, the lowest bit of blue in bit 0. Indices run from 0 to
/// 255 and are not checked.
class Palette : public QObject
{
    Q_OBJECT

public:
    static constexpr int Size = 256; // entries
    static constexpr int NoTransparency = -1;

    /// A black palette named "untitled" with a new id; @p parent is the project.
    explicit Palette(QObject *parent = nullptr);

    QUuid id() const { return m_id; }
    void setId(const QUuid &id) { m_id = id; }
    QString name() const { return m_name; }

    /// The entry shown as transparent, -1 for none.
    int transparencyIndex() const { return m_transparencyIndex; }
    void setTransparencyIndex(int index) { m_transparencyIndex = index; }

    /// The colour of an entry; its alpha is 0 at the transparency index.
    QColor colour(int index) const;
    bool priority(int index) const;
    quint16 word(int index) const { return m_colours[static_cast<size_t>(index)]; }

    /// Stores a word as it is and sends nothing. For the loader, copies and undo, which keep words
    /// that setColour() would change.
    void setWord(int index, quint16 word) { m_colours[static_cast<size_t>(index)] = word; }

    /// All 256 entries by colour().
    QList<QColor> colours() const;
    /// All 256 entries, always opaque: the colour table of every indexed image.
    QList<QRgb> colourTable() const;

    /// The three-argument slot with the priority flag cleared.
    void setColour(int index, const QColor &colour);

    /// Fills all entries with the hardware's start-up ramp; sends nothing.
    void setDefaultColours();

    /// @p colour snapped to the grid of 17 levels a channel, opaque. A tie goes to the lower level.
    static QColor nearestColour(const QColor &colour);

signals:
    /// A word changed; @p colour is the quantised colour.
    void colourChanged(int index, QColor colour, bool priority);
    /// The same change as words, for undo. Follows colourChanged().
    void colourEdited(int index, quint16 before, quint16 after);
    void nameChanged(QString name);

public slots:
    void setName(QString name);
    /// Snaps @p colour, stores its word, and sends the two colour signals if the word differs.
    void setColour(int index, QColor colour, bool priority);
    /// Writes the 256 words high byte first, and a zero byte behind them for ".npl". False if not
    /// every byte was written.
    bool exportData(QString fileName);
    /// Reads them back without any signal. False, with nothing changed, if the file cannot be read
    /// or its size is not 512 bytes, 513 for ".npl".
    bool importData(QString fileName);

private:
    QUuid m_id;
    QString m_name;
    std::array<quint16, Size> m_colours{};
    int m_transparencyIndex = NoTransparency;
};
