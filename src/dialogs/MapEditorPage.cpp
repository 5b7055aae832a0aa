#include "dialogs/MapEditorPage.h"

#include "uikit/ThemedIcon.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QPainter>
#include <QPushButton>
#include <QSpinBox>

namespace {

const QString CheckerBoardKey = QStringLiteral("checkerBoard");
const QString GridColour1Key = QStringLiteral("gridColour1");
const QString GridColour2Key = QStringLiteral("gridColour2");
const QString OverlayGridKey = QStringLiteral("overlayGrid");
const QString GridSizeKey = QStringLiteral("gridSize");
const QString DefaultZoomKey = QStringLiteral("defaultZoom");

constexpr int FirstColour = 0;
constexpr int SecondColour = 1;
constexpr QRgb DefaultColour1 = 0x404040;
constexpr QRgb DefaultColour2 = 0x505050;
constexpr QSize Swatch{48, 16}; // pixels

QSpinBox *makeSpin(int minimum, int maximum, int step, int value)
{
    auto *spin = new QSpinBox;
    spin->setRange(minimum, maximum);
    spin->setSingleStep(step);
    spin->setValue(value);
    return spin;
}

QColor colourFrom(const QJsonValue &value, const QColor &fallback)
{
    const QColor colour = QColor::fromString(value.toString());
    return colour.isValid() ? colour : fallback;
}

} // namespace

MapEditorPage::MapEditorPage(QWidget *parent)
    : BasePreferencesPage(tr("Map Editor"), themedIcon(QStringLiteral(":/tb-new-file")), parent)
    , m_checkerBoard(new QCheckBox)
    , m_firstSwatch(makeSwatchButton(FirstColour))
    , m_secondSwatch(makeSwatchButton(SecondColour))
    , m_overlayGrid(new QCheckBox)
    , m_gridSize(makeSpin(8, 256, 8, 8))
    , m_defaultZoom(makeSpin(1, 8, 1, 4))
{
    m_checkerBoard->setChecked(true);
    m_overlayGrid->setChecked(true);

    addHeader(tr("Map Editor"));
    addRow(tr("Render checker board beneath maps"), m_checkerBoard);
    addRow(tr("Grid colour"), m_firstSwatch);
    addRow(tr("Alternate colour"), m_secondSwatch);
    addRow(tr("Enable grid line overlay"), m_overlayGrid);
    addRow(tr("Grid size (in pixels)"), m_gridSize);
    addRow(tr("Default magnification"), m_defaultZoom);
    m_defaultZoom->setMinimumWidth(m_gridSize->sizeHint().width()); // one column
    setFirstGridColour(QColor(DefaultColour1));
    setSecondGridColour(QColor(DefaultColour2));
}

QPushButton *MapEditorPage::makeSwatchButton(int index)
{
    auto *button = new QPushButton;
    button->setIconSize(Swatch);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(button, &QPushButton::pressed, this, [this, index] { showColourPicker(index); });
    return button;
}

bool MapEditorPage::checkerBoard() const
{
    return m_checkerBoard->isChecked();
}

bool MapEditorPage::overlayGrid() const
{
    return m_overlayGrid->isChecked();
}

int MapEditorPage::gridSize() const
{
    return m_gridSize->value();
}

int MapEditorPage::defaultZoom() const
{
    return m_defaultZoom->value();
}

void MapEditorPage::setFirstGridColour(QColor colour)
{
    m_gridColour1 = colour;
    showSwatch(m_firstSwatch, colour);
}

void MapEditorPage::setSecondGridColour(QColor colour)
{
    m_gridColour2 = colour;
    showSwatch(m_secondSwatch, colour);
}

void MapEditorPage::showSwatch(QPushButton *button, const QColor &colour)
{
    const qreal scale = devicePixelRatioF();
    QPixmap pixmap(Swatch * scale);
    pixmap.setDevicePixelRatio(scale);
    pixmap.fill(colour);
    // Without an outline a colour near the button's own would not be seen.
    QPainter painter(&pixmap);
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawRect(QRectF(QPointF(), Swatch).adjusted(0.5, 0.5, -0.5, -0.5));
    painter.end();
    button->setIcon(QIcon(pixmap));
    button->setToolTip(colour.name());
    button->setAccessibleDescription(colour.name());
}

void MapEditorPage::showColourPicker(int index)
{
    m_pickedIndex = index;
    if (!m_colourDialog) {
        // At its first use, as it would weigh on the start of the program.
        m_colourDialog = new QColorDialog(this);
        m_colourDialog->setModal(true);
        connect(m_colourDialog, &QColorDialog::colorSelected, this,
                &MapEditorPage::takePickedColour);
    }
    m_colourDialog->setCurrentColor(index == FirstColour ? m_gridColour1 : m_gridColour2);
    m_colourDialog->open();
    // The dialog takes the release of the press that opened it.
    (index == FirstColour ? m_firstSwatch : m_secondSwatch)->setDown(false);
}

void MapEditorPage::takePickedColour(const QColor &colour)
{
    if (m_pickedIndex == FirstColour)
        setFirstGridColour(colour);
    else
        setSecondGridColour(colour);
}

QJsonObject MapEditorPage::toJson() const
{
    return {
        {CheckerBoardKey, checkerBoard()},
        {GridColour1Key, m_gridColour1.name()},
        {GridColour2Key, m_gridColour2.name()},
        {OverlayGridKey, overlayGrid()},
        {GridSizeKey, gridSize()},
        {DefaultZoomKey, defaultZoom()},
    };
}

void MapEditorPage::fromJson(const QJsonObject &values)
{
    m_checkerBoard->setChecked(values[CheckerBoardKey].toBool(checkerBoard()));
    setFirstGridColour(colourFrom(values[GridColour1Key], m_gridColour1));
    setSecondGridColour(colourFrom(values[GridColour2Key], m_gridColour2));
    m_overlayGrid->setChecked(values[OverlayGridKey].toBool(overlayGrid()));
    m_gridSize->setValue(values[GridSizeKey].toInt(gridSize()));
    m_defaultZoom->setValue(values[DefaultZoomKey].toInt(defaultZoom()));
}
