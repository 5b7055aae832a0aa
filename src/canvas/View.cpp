#include "canvas/View.h"

#include "canvas/Canvas.h"
#include "canvas/CanvasClipboard.h"
#include "canvas/ScrollCanvas.h"
#include "canvas/ViewBuilder.h"
#include "colour/ColourPalette.h"
#include "formats/PictureFile.h"
#include "model/Palette.h"
#include "uikit/FileDialogs.h"
#include "uikit/WaitCursor.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QUndoStack>

using namespace ImageEditor;
using Tool = Tessaril::Ui::ToolButton;

View::View(QWidget *parent)
    : QWidget(parent)
{
    ViewBuilder(this).build();
}

View::~View() = default;

Canvas *View::canvas() const
{
    return m_scrollCanvas->canvas();
}

void View::setPalette(const QPointer<Palette> &palette)
{
    if (m_palette)
        m_palette->disconnect(this);
    m_palette = palette;
    canvas()->setPalette(palette);
    m_colourPalette->setPalette(palette);
    // After the canvas, which has the new colour by then.
    if (m_palette)
        connect(m_palette, &Palette::colourChanged, this, &View::announceImage);
}

void View::announceImage()
{
    if (!canvas()->image().isNull())
        emit imageChanged(canvas()->image());
}

void View::setImage(const QImage &image)
{
    canvas()->setImage(image);
}

void View::setMode(Tessaril::ImageMode mode)
{
    canvas()->setHiRes(mode == Tessaril::ImageMode::Layer2_640x256);
}

void View::setUndoStack(QUndoStack *stack)
{
    m_undoStack = stack;
}

void View::cut()
{
    copy();
    canvas()->cut();
}

void View::copy()
{
    canvas()->copy();
}

void View::paste()
{
    canvas()->paste();
}

void View::selectAll()
{
    canvas()->selectAll();
}

void View::selectNone()
{
    canvas()->selectNone();
}

void View::updateScrollAmounts(int horizontal, int vertical)
{
    m_scrollCanvas->updateScrollAmounts(horizontal, vertical);
}

void View::updateScrollBars(QPoint pos)
{
    m_scrollCanvas->updateScrollBars(pos);
}

void View::changeMode(Tool action, bool checked)
{
    if (action == Tool::Open)
        fileDialog(false)->open();
    else if (action == Tool::Save)
        fileDialog(true)->open();
    else
        canvas()->setMode(action, checked);
}

QFileDialog *View::fileDialog(bool saves)
{
    QPointer<QFileDialog> &dialog = saves ? m_saveDialog : m_openDialog;
    if (dialog)
        return dialog;
    // Both bear the same title.
    dialog = new QFileDialog(this, tr("Export Image"), QString(),
                             tr("Images (*.png *.xpm *.jpg *.bmp)"));
    dialog->setOption(QFileDialog::DontUseNativeDialog);
    dialog->setDefaultSuffix(QStringLiteral(".png"));
    FileDialogs::prepare(dialog);
    dialog->setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog->setFileMode(saves ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    if (saves)
        connect(dialog, &QFileDialog::fileSelected, this, &View::exportImage);
    else
        connect(dialog, &QFileDialog::fileSelected, this, &View::loadImage);
    return dialog;
}

void View::exportImage(QString name)
{
    canvas()->image().save(name);
}

void View::loadImage(const QString &fileName)
{
    if (importImage(fileName))
        return;
    auto *const box = new QMessageBox(QMessageBox::Warning, tr("Import Incomplete"),
                                      tr("Could not read the image file"), QMessageBox::Ok, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

bool View::importImage(const QString &fileName)
{
    const WaitCursor wait;
    const QImage picture = PictureFile::read(fileName).convertToFormat(QImage::Format_Indexed8);
    if (picture.isNull())
        return false;

    canvas()->setImage(picture);
    const QList<QRgb> colours = picture.colorTable();
    for (int i = 0; m_palette && i < colours.size() && i < Palette::Size; ++i)
        m_palette->setColour(i, QColor(colours.at(i)));
    return true;
}

void View::setForeIndex(int index)
{
    canvas()->setInk(index);
}

void View::setBackIndex(int index)
{
    canvas()->setPaper(index);
}

void View::pushEdit(const QString &text, const QImage &before, const QImage &after,
                    PixelEditCommand::Kind kind)
{
    if (!m_undoStack)
        return;
    const QPointer<View> view = this;
    const auto putBack = [view](const QImage &image) {
        if (view)
            view->setImage(image);
    };
    m_undoStack->push(new PixelEditCommand(text, before, after, putBack,
                                           QVariant::fromValue<QWidget *>(this), kind));
}
