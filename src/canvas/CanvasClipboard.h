#pragma once

#include "model/Enums.h"

#include <QImage>
#include <QObject>
#include <QPointer>
#include <QUuid>

class Canvas;
class QMimeData;

/// Moves a part of a canvas through the system clipboard with its palette indices intact.
///
/// A private format keeps the indices; an ordinary picture rides along for other programs.
class CanvasClipboard : public QObject
{
    Q_OBJECT

public:
    /// What the private format holds.
    struct Clip
    {
        QImage image; ///< Format_Indexed8
        qint32 offset = 0;
        qint32 type = static_cast<qint32>(Tessaril::Ui::ImageType::Undefined);
        QUuid paletteId;
    };

    /// The name of the private format.
    static QString mimeType();
    /// Adds @p clip to @p data in the private format.
    static void write(const Clip &clip, QMimeData *data);
    /// Reads the private format. False, with @p clip untouched, if it is absent or damaged.
    static bool read(const QMimeData *data, Clip *clip);

    explicit CanvasClipboard(Canvas *canvas);

    /// What was last pasted; null before.
    const QImage &image() const { return m_image; }
    Tessaril::Ui::ImageType imageType() const { return m_imageType; }
    int offset() const { return m_offset; }

signals:
    /// @p cut is true only if an action named "Cut" asked; then it comes once more with false.
    void copied(bool cut);
    void pasted(QUuid paletteId);

public slots:
    /// Copies the selection, or everything without one.
    void copyToClipboard();
    /// Takes the private format from the clipboard. False, with nothing changed, without it.
    bool pasteFromClipboard();

private:
    QPointer<Canvas> m_parent;
    Canvas *m_canvas;
    int m_offset = 0;
    Tessaril::Ui::ImageType m_imageType = Tessaril::Ui::ImageType::Undefined;
    QImage m_image;
};
