#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class Project;
class SpriteBank;

/// Collects frames of 16 by 16 letters and makes a four-bit sprite bank of them.
///
/// The frames of one figure stand one below the other; its animation may show one of them twice.
class SpriteSheet
{
public:
    /// @p order counts the figure's own frames from 0.
    void add(const QString &name, int delay, const QList<QStringList> &frames,
             const QList<int> &order);

    /// The bank with its animations and a palette of the same name, in which @p colours, lists of
    /// up to sixteen, are the banks from 0 on.
    SpriteBank *makeBank(Project *project, const QString &name,
                         const QList<QList<int>> &colours) const;

private:
    struct Figure
    {
        QString name;
        int delay;
        QList<int> sprites; ///< of the bank, one for each frame
    };

    QList<QStringList> m_sprites;
    QList<Figure> m_figures;
};
