#pragma once

#include "store/ProjectStore.h"

#include <QDir>
#include <QImage>
#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QRect>
#include <QString>
#include <QUuid>

class Project;

/// A part of a picture that somebody drew for a game.
struct RealPicture
{
    QString name; ///< under which it is imported
    QString file; ///< where its Debian package puts it
    QString package;
    QRect part; ///< in pixels
};

/// The state of one tour: the open project, the table of what was done, and what the chapters leave
/// for those behind them.
class Tour
{
public:
    /// What the import of one picture made.
    struct Level
    {
        QString name;
        QUuid palette;
        QUuid tileSet;
        QUuid map;
        int tileCount = 0;
    };

    explicit Tour(const QString &folder);

    const QDir &folder() const { return m_folder; }
    ProjectStore &store() { return m_store; }
    Project *project() const;

    /// Cuts the part out of the real picture, saves it in the folder, and returns the name of that
    /// file; empty, and told as a failure, if the picture is not there.
    QString cutOut(const RealPicture &picture);

    void beginChapter(const QString &title);
    /// A row of the table: what it was done to, what, and the result.
    void tell(const QString &subject, const QString &what, const QString &result);
    /// A row of the table that counts as a failure unless @p holds.
    bool check(bool holds, const QString &subject, const QString &what);

    int failures() const { return m_failures; }

    QList<Level> levels;
    QList<QUuid> banks;
    QUuid image;
    QJsonObject manifest; ///< what the independent reader is to expect

private:
    QDir m_folder;
    ProjectStore m_store;
    int m_failures = 0;
};

/// Exports the documents of an imported picture, which @p store holds, to @p directory.
void exportLevel(Tour &tour, ProjectStore &store, const QDir &directory, const Tour::Level &level);
/// Has the independent reader check what lies in @p directory, as @p contents describe it.
void readBack(Tour &tour, const QString &reader, const QDir &directory,
              const QJsonObject &contents);

/// The chapters, in the order in which a day goes by.
void importChapter(Tour &tour);
void projectChapter(Tour &tour);
void exportChapter(Tour &tour, const QString &reader);
void iconChapter(Tour &tour);
