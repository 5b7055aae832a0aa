#pragma once

#include "canvas/Layer2Image.h"
#include "canvas/ViewPicture.h"
#include "history/PixelEditCommand.h"
#include "model/Enums.h"
#include "uikit/Spoken.h"

#include <QColor>
#include <QHash>
#include <QImage>
#include <QMenu>
#include <QPointer>
#include <QRubberBand>
#include <QUuid>
#include <QWidget>

#include <array>
#include <functional>
#include <memory>

class CanvasClipboard;
class CanvasTool;
class Palette;
class PointerKeys;

/// The widget on which all pixels are painted: an indexed image blown up by a whole number, with a
/// current tool, a selection and two overlays.
///
/// Image pixels are counted from the image's top left. The canvas knows nothing of documents or
/// undo: edited() hands a finished change to the owner. Tools reach its state as friends. Arrow
/// keys move over the pixels, and Space is the left button there.
class Canvas : public QWidget, public Spoken
{
    Q_OBJECT

public:
    static constexpr int MinZoom = 1; // screen pixels for one image pixel
    static constexpr int MaxZoom = 64;
    static constexpr int ZoomStep = 2;

    explicit Canvas(QWidget *parent = nullptr);
    ~Canvas() override;

    const QImage &image() const { return m_surface.image(); }
    QPointer<Palette> palette() const { return m_palette; }
    /// Binds a palette, or none; the image takes its colours and follows them from then on.
    void setPalette(const QPointer<Palette> &palette);

    int zoomLevel() const { return m_zoom; }
    int ink() const { return m_ink; }
    int paper() const { return m_paper; }
    Tessaril::Ui::ToolButton mode() const { return m_mode; }
    bool areCheckersVisible() const { return m_checkersVisible; }
    bool areGridLinesVisible() const { return m_gridLinesVisible; }
    const Layer2Image &surface() const { return m_surface; }
    CanvasClipboard *clipboard() const;

    /// Doubles the height of the pixels, for the 640-wide screen.
    void setHiRes(bool hiRes);
    bool isHiRes() const { return m_hiRes; }
    /// How the pixels use the palette, for the clipboard.
    void setImageType(Tessaril::Ui::ImageType type) { m_imageType = type; }
    Tessaril::Ui::ImageType imageType() const { return m_imageType; }
    int imageOffset() const { return m_imageOffset; }
    void setImageOffset(int offset) { m_imageOffset = offset; }

    /// The screen pixels of one image pixel.
    QSize pixelSize() const { return {m_zoom, m_hiRes ? 2 * m_zoom : m_zoom}; }
    /// The widget rectangle that the visible part of the image occupies.
    QRect viewRect() const { return m_viewRect; }
    /// The image pixels on view.
    QRect visiblePixels() const { return m_scrollOrigin; }
    /// The image pixel under a widget position, truncated towards zero; may lie outside the image.
    QPoint pixelAt(QPoint position) const;
    /// The widget rectangle of image pixels, which may lie outside the view.
    QRect cellRect(const QRect &pixels) const;

    bool hasSelection() const;
    /// The selected image pixels; empty without a selection.
    QRect selection() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    /// The image pixel under the pointer.
    QString spokenValue() const override;

signals:
    /// The greatest scroll position, in image pixels.
    void scrollValuesChanged(int horizontal, int vertical);
    void scrollPositionChanged(QPoint pos);
    void imageChanged();
    /// A finished change, already in the image.
    void edited(QString text, QImage before, QImage after, PixelEditCommand::Kind kind);
    void foregroundPicked(int index);
    void backgroundPicked(int index);

public slots:
    /// Chooses a tool or does what a button stands for. Anything but Cut and Copy drops the
    /// selection.
    void setMode(Tessaril::Ui::ToolButton action, bool checked);
    void setHorizontalPosition(int pos);
    void setVerticalPosition(int pos);
    /// Selects what is on view.
    void selectAll();
    void selectNone();
    /// Fills the selection with paper; nothing without one.
    void cut();
    void copy();
    void paste();
    void setPasteMode(QUuid paletteId);
    /// Ends pasting, or else takes the selection away; false if there is neither.
    bool cancel();
    void setZoomLevel(int level);
    void setGridLinesVisible(bool visible);
    void setInk(int index);
    void setPaper(int index);
    /// Replaces the image, which takes the palette's colours, and emits imageChanged().
    void setImage(QImage image);
    void paletteChanged(int first, int last, QColor colour);
    /// Moves pixels, ink and paper into the bank @p offset, which counts from 1.
    void remap(int offset);
    void updatePalette(int index, QColor colour, bool priority);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    friend class CanvasTool;
    friend class DrawCanvasTool;
    friend class ShapeCanvasTool;
    friend class FillCanvasTool;
    friend class PickCanvasTool;
    friend class SelectCanvasTool;
    friend class PasteCanvasTool;

    void makeTools();
    void makeKeys();
    void makeContextMenu();
    bool setDrawingMode(Tessaril::Ui::ToolButton action);
    bool changeWholeImage(Tessaril::Ui::ToolButton action);
    void layoutImage();
    void scrollTo(QPoint position);
    void reveal(QPoint pixel);
    void changeZoom(int step);
    void select(const QRect &pixels);
    void placeRubberBand();
    void fillSelection(const QString &text, int index);
    void changeImage(const QString &text, PixelEditCommand::Kind kind,
                     const std::function<void(QImage &)> &function);
    void beginEdit();
    void finishEdit(const QString &text, PixelEditCommand::Kind kind);
    void endStroke();
    void interruptStroke();
    void refreshColours();

    QImage previewImage();
    const QImage &viewPicture();
    void paintPointer(QPainter *painter) const;

    QPointer<Palette> m_palette;
    Layer2Image m_surface;
    QMenu m_contextMenu;
    bool m_checkersVisible = false;
    bool m_gridLinesVisible = false;
    int m_checkerAlpha = 80;
    int m_zoom = 16;
    int m_imageOffset = 0;
    bool m_hiRes = false;
    int m_ink = 0;
    int m_paper = 0;
    Tessaril::Ui::ImageType m_imageType = Tessaril::Ui::ImageType::Full256;
    Tessaril::Ui::ToolButton m_mode = Tessaril::Ui::ToolButton::Draw;
    Tessaril::Ui::ToolButton m_modeBeforePaste = Tessaril::Ui::ToolButton::Draw;
    QRect m_scrollOrigin;            // image pixels on view
    QPoint m_lastPixel{-1, -1};      // under the mouse at the latest event
    QPoint m_selectionStart{-1, -1}; // image pixel; x of -1 for none
    QRect m_viewRect;
    std::array<QColor, 2> m_checkerColours{QColor(64, 64, 64), QColor(80, 80, 80)};
    Qt::MouseButtons m_buttons = Qt::NoButton;
    QRubberBand m_rubberBand;
    QRect m_selection; // image pixels below the rubber band
    QPointer<CanvasClipboard> m_clipboard;
    PointerKeys *m_keys = nullptr;
    QPoint m_shapeStart{-1, -1};
    QPoint m_shapeEnd{-1, -1};
    QImage m_beforeImage;
    QHash<int, std::shared_ptr<CanvasTool>> m_tools; // by ToolButton
    CanvasTool *m_tool = nullptr;

    // What painting needs ready.
    Layer2Image m_previewSurface;
    ViewPicture m_viewPicture;
};
