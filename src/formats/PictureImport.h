#pragma once

#include "formats/ImageSlicer.h"

#include <QPointer>
#include <QString>

class Map;
class Palette;
class Project;
class TileSet;

/// Makes a picture file into a palette, a tile set and a map that shows it. Lives on the stack of
/// one import.
///
/// The owner may listen to slicer() for the progress, whose range is 0 to squareCount().
class PictureImport
{
public:
    enum class Result {
        Done,
        PaletteFull,  ///< done, but some tiles show wrong colours
        Unreadable,   ///< refused, nothing made; as are those below
        TooManyTiles, ///< tileCount are needed
        MapTooLarge
    };

    struct Outcome
    {
        Result result = Result::Done;
        int tileCount = 0;
        QPointer<Palette> palette;
        QPointer<TileSet> tileSet;
        QPointer<Map> map;

        /// In the user's words; empty if there is nothing to tell.
        QString message() const;
    };

    /// Reads the file, which must be a regular one.
    explicit PictureImport(const QString &fileName);
    /// An import of a picture that is already read.
    PictureImport(const QImage &picture, const QString &name);

    bool isRead() const { return m_read; }
    ImageSlicer &slicer() { return m_slicer; }
    /// The squares of the picture that are processed.
    int squareCount() const { return m_slicer.columns() * m_slicer.rows(); }

    /// Slices the picture and puts what it gives into @p project: a palette, a tile set and a map,
    /// made in this order and named with the file's base name. A refusal makes nothing.
    Outcome run(const QPointer<Project> &project);

private:
    void makePalette(Project *project, Outcome *outcome) const;
    void makeTileSet(Project *project, Outcome *outcome) const;
    void makeMap(Project *project, Outcome *outcome) const;

    QString m_name;
    bool m_read;
    bool m_tooLarge;
    ImageSlicer m_slicer;
};
