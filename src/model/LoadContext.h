#pragma once

#include "model/Project.h"

/// What the readers of the document kinds share during one load: the project that is filled, the
/// entries, the message of a failure, and how much the file may still ask for.
///
/// A small file can declare much: every document and part of one counts against a limit that no
/// real project comes near, before it is made.
class LoadContext
{
public:
    static constexpr qint64 MaxDocuments = qint64(1) << 12; ///< of one kind
    static constexpr qint64 MaxRecords = qint64(1) << 18;   ///< items of the documents' lists
    static constexpr qint64 MaxTiles = qint64(1) << 20;
    static constexpr qint64 MaxPixels = qint64(1) << 29;
    static constexpr qint64 MaxFrameCells = qint64(1) << 25;
    static constexpr qint64 MaxDocumentCells = qint64(1) << 24; ///< frame cells of one document
    /// Cells that are written for the placed block animations: enough for maps of half of
    /// TileMap::MaxCells that are full of blocks.
    static constexpr qint64 MaxPlacedCells = qint64(1) << 27;

    LoadContext(Project *project, const Project::EntryReader &read);

    Project *project() const { return m_project; }
    QByteArray entry(const QString &name) const { return m_read(name); }

    QString error() const { return m_error; }
    /// Keeps the message; always false.
    bool fail(const QString &message);
    bool failAsInvalid();

    /// Count what is about to be made: false, with the message set, if the file asks for too much.
    [[nodiscard]] bool takeDocuments(qint64 count);
    [[nodiscard]] bool takeRecords(qint64 count);
    [[nodiscard]] bool takeTiles(qint64 count);
    [[nodiscard]] bool takePixels(QSize size);
    /// Frames of one animation; a document begins with beginDocument().
    [[nodiscard]] bool takeFrames(qint64 frames, QSize size);
    void beginDocument() { m_documentCells = 0; }
    [[nodiscard]] bool takePlacedCells(qint64 count);
    /// Cells of a map. Sets no message.
    [[nodiscard]] bool takeMapCells(QSize size);

private:
    bool take(qint64 &taken, qint64 count, qint64 limit);

    Project *m_project;
    Project::EntryReader m_read;
    QString m_error;
    qint64 m_records = 0;
    qint64 m_tiles = 0;
    qint64 m_pixels = 0;
    qint64 m_frameCells = 0;
    qint64 m_documentCells = 0;
    qint64 m_mapCells = 0;
    qint64 m_placedCells = 0;
};
