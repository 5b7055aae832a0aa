#include "access/Surfaces.h"

#include "canvas/Canvas.h"
#include "mapeditor/MapGrid.h"
#include "mapeditor/View.h"
#include "model/Map.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/TileSet.h"
#include "support/FusionColours.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QRadioButton>
#include <QRubberBand>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QTest>
#include <QToolButton>

#include <cmath>
#include <limits>

namespace {

constexpr double TextContrast = 4.5;
constexpr double IconContrast = 3.0; // and of what is disabled
constexpr QSize SmallScreen(800, 600);

void dimOff(QPalette *colours, const QColor &colour)
{
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        colours->setColor(QPalette::Disabled, role, colour);
}

QPalette darkColours()
{
    QPalette colours(QColor(53, 53, 53), QColor(42, 42, 42));
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        colours.setColor(role, Qt::white);
    dimOff(&colours, QColor(110, 110, 110));
    colours.setColor(QPalette::Base, QColor(36, 36, 36));
    colours.setColor(QPalette::Highlight, QColor(42, 110, 180));
    colours.setColor(QPalette::Link, QColor(120, 180, 255));
    return colours;
}

QPalette highContrastColours()
{
    QPalette colours(Qt::black, Qt::black);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::BrightText})
        colours.setColor(role, Qt::white);
    dimOff(&colours, QColor(80, 80, 80));
    colours.setColor(QPalette::Base, Qt::black);
    colours.setColor(QPalette::Highlight, Qt::yellow);
    colours.setColor(QPalette::HighlightedText, Qt::black);
    colours.setColor(QPalette::Link, Qt::cyan);
    return colours;
}

/// Relative luminance of sRGB, 0 to 1.
double luminance(QRgb colour)
{
    const auto linear = [](int channel) {
        const double value = channel / 255.0;
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) +
           0.0722 * linear(qBlue(colour));
}

double contrast(QRgb one, QRgb other)
{
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

/// The contrast of what stands out most to the most frequent colour.
double contrastIn(const QImage &picture)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y)];
    }
    QRgb ground = 0;
    int most = 0;
    for (auto one = counts.cbegin(); one != counts.cend(); ++one) {
        if (one.value() > most) {
            ground = one.key();
            most = one.value();
        }
    }
    double best = 1;
    for (auto one = counts.cbegin(); one != counts.cend(); ++one)
        best = std::max(best, contrast(one.key(), ground));
    return best;
}

/// The inside of a widget, without its frame, in a picture of its window.
QImage inside(const QWidget *widget, const QImage &window)
{
    constexpr int Frame = 4;
    const QRect core = widget->rect().adjusted(Frame, Frame, -Frame, -Frame);
    const QRect part = core.height() > Frame && core.width() > Frame ? core : widget->rect();
    const QRectF area = part.translated(widget->mapTo(widget->window(), QPoint()));
    const double ratio = window.devicePixelRatio();
    return window.copy(QRectF(area.topLeft() * ratio, area.size() * ratio).toRect());
}

/// The place of the mark of a check box or radio button, in its pixels.
QRect indicatorOf(const QAbstractButton *button)
{
    const bool isRadio = qobject_cast<const QRadioButton *>(button);
    if (!isRadio && !qobject_cast<const QCheckBox *>(button))
        return {};
    QStyleOptionButton option;
    option.initFrom(button);
    return button->style()->subElementRect(
        isRadio ? QStyle::SE_RadioButtonIndicator : QStyle::SE_CheckBoxIndicator, &option, button);
}

/// The contrast of the line at the left of @p mark to what lies on both its sides.
double lineContrast(const QImage &window, const QRect &mark)
{
    const double ratio = window.devicePixelRatio();
    const int y = qRound((mark.top() + mark.height() / 2.0) * ratio);
    const int left = qFloor((mark.left() - 1) * ratio);
    const int middle = qRound((mark.left() + mark.width() / 2.0) * ratio);
    double best = 1;
    for (int x = std::max(left, 0); x < middle; ++x) {
        const QRgb line = window.pixel(x, y);
        best = std::max(best, std::min(contrast(line, window.pixel(std::max(left, 0), y)),
                                       contrast(line, window.pixel(middle, y))));
    }
    return best;
}

double neededContrast(const QWidget *widget)
{
    if (const auto *label = qobject_cast<const QLabel *>(widget))
        return label->text().trimmed().isEmpty() ? 0 : TextContrast;
    if (const auto *edit = qobject_cast<const QLineEdit *>(widget))
        return edit->displayText().isEmpty() && edit->placeholderText().isEmpty() ? 0
                                                                                  : TextContrast;
    const auto *button = qobject_cast<const QAbstractButton *>(widget);
    const auto *tool = qobject_cast<const QToolButton *>(widget);
    if (!button)
        return qobject_cast<const QComboBox *>(widget) ? TextContrast : 0;
    const bool showsText =
        !button->text().isEmpty() && (!tool || tool->toolButtonStyle() != Qt::ToolButtonIconOnly);
    if (showsText && (!tool || button->icon().isNull()))
        return TextContrast;
    return button->icon().isNull() ? 0 : IconContrast;
}

/// The contrast of a placeholder on show, which the cursor would hide from a look at the picture;
/// else the highest.
double ofPlaceholder(const QWidget *widget)
{
    const auto *edit = qobject_cast<const QLineEdit *>(widget);
    const auto *label = qobject_cast<const QLabel *>(widget);
    const bool isShown =
        (edit && edit->displayText().isEmpty() && !edit->placeholderText().isEmpty()) ||
        (label && label->foregroundRole() == QPalette::PlaceholderText);
    if (!isShown)
        return std::numeric_limits<double>::max();
    const QColor ground = widget->palette().color(edit ? QPalette::Base : QPalette::Window);
    const QColor text = widget->palette().color(QPalette::PlaceholderText);
    QImage drawn(1, 1, QImage::Format_RGB32);
    drawn.fill(ground);
    QPainter(&drawn).fillRect(drawn.rect(), text);
    return contrast(drawn.pixel(0, 0), ground.rgb());
}

/// Whether it shows colours of its own, or a picture of Qt's.
bool isSwatch(const QWidget *widget)
{
    return !widget->accessibleDescription().isEmpty() || widget->inherits("ChannelLabel") ||
           widget->inherits("QToolBarExtension");
}

QString describe(const QWidget *widget)
{
    const auto *label = qobject_cast<const QLabel *>(widget);
    const auto *button = qobject_cast<const QAbstractButton *>(widget);
    return QStringLiteral("%1 \"%2\" %3")
        .arg(QString::fromLatin1(widget->metaObject()->className()), widget->accessibleName(),
             label    ? label->text()
             : button ? button->text()
                      : QString());
}

/// The room for a text, and what it takes; nothing for widgets without one.
struct Room
{
    QSize given;
    QSize wanted;
};

Room roomForText(const QWidget *widget)
{
    const QFontMetrics letters = widget->fontMetrics();
    // The folder in a file dialog can have a name of any length.
    if (isSwatch(widget) || widget->objectName() == QLatin1String("lookInCombo"))
        return {};
    if (const auto *label = qobject_cast<const QLabel *>(widget); label && !label->wordWrap()) {
        const QString text = label->text();
        return {label->size(), Qt::mightBeRichText(text)
                                   ? label->minimumSizeHint()
                                   : letters.size(Qt::TextShowMnemonic, text)};
    }
    const auto *button = qobject_cast<const QAbstractButton *>(widget);
    if (button && !qobject_cast<const QToolButton *>(button))
        return {button->size(), letters.size(Qt::TextShowMnemonic, button->text())};
    if (const auto *combo = qobject_cast<const QComboBox *>(widget)) {
        QStyleOptionComboBox option;
        option.initFrom(combo);
        const QRect field = combo->style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                           QStyle::SC_ComboBoxEditField, combo);
        return {field.size(), letters.size(Qt::TextSingleLine, combo->currentText())};
    }
    if (const auto *edit = qobject_cast<const QLineEdit *>(widget))
        return {edit->size(), letters.size(Qt::TextSingleLine, edit->placeholderText())};
    return {};
}

/// Whether a widget reaches beyond its parent, in words. What scrolls may.
QString overlap(const QWidget *widget)
{
    const QWidget *const parent = widget->parentWidget();
    const bool isScrolled = qobject_cast<const QAbstractScrollArea *>(parent->parentWidget()) ||
                            qobject_cast<const QTabBar *>(parent);
    // A dock behind another one lies beside the window.
    const bool isBehind =
        widget->inherits("QDockWidget") && !parent->rect().intersects(widget->geometry());
    if (isScrolled || isBehind || widget->isWindow() || qobject_cast<const QRubberBand *>(widget) ||
        parent->rect().contains(widget->geometry()))
        return {};
    const QRect own = widget->geometry();
    return QStringLiteral("%1,%2 %3x%4 in %5x%6 of %7")
        .arg(QString::number(own.x()), QString::number(own.y()), QString::number(own.width()),
             QString::number(own.height()), QString::number(parent->width()),
             QString::number(parent->height()),
             QString::fromLatin1(parent->metaObject()->className()));
}

/// Saves a picture of each surface if the environment names a folder for them.
void keepPicture(const QString &look, const QString &name, QWidget *surface)
{
    const QString folder = qEnvironmentVariable("TESSARIL_LOOKS");
    if (folder.isEmpty())
        return;
    QString file = look + QLatin1Char('-') + name + QStringLiteral(".png");
    file.replace(QLatin1Char('/'), QLatin1Char('_')).replace(QLatin1Char(' '), QLatin1Char('_'));
    QDir().mkpath(folder);
    surface->grab().save(QDir(folder).filePath(file));
}

/// The cells of side @p cell that a point of the screen, the @p at-th from the left of the window,
/// touches. @p origin is that of the cells.
std::pair<int, int> touchedCells(int at, double ratio, int origin, int cell)
{
    const auto cellAt = [origin, cell](double position) {
        return int(std::floor((position - origin) / cell));
    };
    constexpr double Hair = 1e-6;
    return {cellAt(at / ratio + Hair), cellAt((at + 1) / ratio - Hair)};
}

void moveMouse(QWidget *widget, QPointF position)
{
    QMouseEvent move(QEvent::MouseMove, position, widget->mapToGlobal(position), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &move);
}

QString spoken(QWidget *widget)
{
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Value);
}

} // namespace

/// What is on the screen can be read, is whole, and lies where the mouse finds it, at the scale
/// that the environment sets.
class tst_Looks : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void aVisitLeavesTheProjectAsItIs();
    void allStandsOut_data();
    void allStandsOut();
    void markedItemsStandOut_data() { allStandsOut_data(); }
    void markedItemsStandOut();
    void outlinesStandOut_data() { allStandsOut_data(); }
    void outlinesStandOut();
    void nothingIsCutOff_data();
    void nothingIsCutOff();
    void dialogsFitASmallScreen();
    void docksDoNotScrollSideways();
    void aCanvasHasItsPixelsUnderTheCursor_data();
    void aCanvasHasItsPixelsUnderTheCursor();
    void aMapHasNoSeams_data();
    void aMapHasNoSeams();

private:
    std::unique_ptr<Surfaces> m_surfaces;
};

void tst_Looks::initTestCase()
{
    QApplication::setStyle("Fusion");
    m_surfaces = std::make_unique<Surfaces>();
}

void tst_Looks::cleanupTestCase()
{
    QApplication::setPalette(fusionColours());
    m_surfaces.reset();
}

/// Else the pictures of one visit would show what the one before it did.
void tst_Looks::aVisitLeavesTheProjectAsItIs()
{
    const auto before = m_surfaces->project()->archiveEntries(false);
    const int tab = m_surfaces->views().tabs->currentIndex();
    int count = 0;

    for (int i = 0; i < 2; ++i) // what the first one selected, the second one could have cut
        m_surfaces->visitAll([&count](const QString &, QWidget *) { ++count; });

    QVERIFY(count > 60);
    QVERIFY(m_surfaces->project()->archiveEntries(false) == before);
    QCOMPARE(m_surfaces->views().tabs->currentIndex(), tab);
}

void tst_Looks::allStandsOut_data()
{
    QTest::addColumn<QPalette>("colours");
    QTest::newRow("light") << fusionColours();
    QTest::newRow("dark") << darkColours();
    QTest::newRow("contrast") << highContrastColours();
}

void tst_Looks::allStandsOut()
{
    QFETCH(QPalette, colours);
    QApplication::setPalette(colours);
    const QString look = QString::fromLatin1(QTest::currentDataTag());
    QStringList faint;
    int count = 0;
    m_surfaces->visitAll([&](const QString &name, QWidget *surface) {
        keepPicture(look, name, surface);
        const QImage window = surface->window()->grab().toImage();
        for (const QWidget *widget : Surfaces::shownIn(surface)) {
            const double needed = widget->isEnabled()
                                      ? neededContrast(widget)
                                      : std::min(neededContrast(widget), IconContrast);
            const bool isWhole = widget->visibleRegion().boundingRect() == widget->rect();
            if (needed == 0 || !isWhole || isSwatch(widget))
                continue;
            ++count;
            const double found =
                std::min(contrastIn(inside(widget, window)), ofPlaceholder(widget));
            if (found < needed)
                faint += QStringLiteral("%1: %2 %3").arg(name, describe(widget)).arg(found);
        }
    });

    faint.removeDuplicates();
    QVERIFY(count > 300);
    QVERIFY2(faint.isEmpty(), qPrintable(faint.join(QLatin1Char('\n'))));
}

void tst_Looks::markedItemsStandOut()
{
    QFETCH(QPalette, colours);
    QApplication::setPalette(colours);
    QCoreApplication::processEvents();
    QStringList faint;
    int count = 0;
    m_surfaces->visitAll([&](const QString &name, QWidget *surface) {
        for (const QWidget *widget : Surfaces::shownIn(surface)) {
            if (!qobject_cast<const QAbstractItemView *>(widget))
                continue;
            ++count;
            for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
                const QPalette own = widget->palette();
                const auto of = [&](QPalette::ColorRole role) {
                    return own.color(group, role).rgb();
                };
                if (contrast(of(QPalette::Text), of(QPalette::Base)) < TextContrast ||
                    contrast(of(QPalette::HighlightedText), of(QPalette::Highlight)) < TextContrast)
                    faint += name + QStringLiteral(": ") + describe(widget);
            }
        }
    });

    QVERIFY(count > 10);
    QVERIFY2(faint.isEmpty(), qPrintable(faint.join(QLatin1Char('\n'))));
}

void tst_Looks::outlinesStandOut()
{
    QFETCH(QPalette, colours);
    QApplication::setPalette(colours);
    QCoreApplication::processEvents();
    QStringList faint;
    int count = 0;
    m_surfaces->visitDialogs([&](const QString &name, QWidget *dialog) {
        const QImage window = dialog->grab().toImage();
        for (QWidget *widget : Surfaces::shownIn(dialog)) {
            const auto *const box = qobject_cast<const QAbstractButton *>(widget);
            const QRect mark = box && !box->isChecked() ? indicatorOf(box) : QRect();
            if (mark.isEmpty() || !box->isEnabled())
                continue;
            ++count;
            const double found =
                lineContrast(window, mark.translated(box->mapTo(dialog, QPoint())));
            if (found < IconContrast)
                faint += QStringLiteral("%1: %2 %3").arg(name, describe(box)).arg(found);
        }
    });

    QVERIFY(count > 3);
    QVERIFY2(faint.isEmpty(), qPrintable(faint.join(QLatin1Char('\n'))));
}

void tst_Looks::nothingIsCutOff_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("small") << SmallScreen;
    QTest::newRow("large") << QSize(2560, 1440);
}

void tst_Looks::nothingIsCutOff()
{
    QFETCH(QSize, size);
    QApplication::setPalette(fusionColours());
    m_surfaces->window()->resize(size);
    QApplication::processEvents();
    QCOMPARE(m_surfaces->window()->size(), size);
    const QString look = QString::fromLatin1(QTest::currentDataTag());
    QStringList cut;
    int count = 0;
    m_surfaces->visitAll([&](const QString &name, QWidget *surface) {
        keepPicture(look, name, surface);
        for (const QWidget *widget : Surfaces::shownIn(surface)) {
            const Room room = roomForText(widget);
            const QString problem = overlap(widget);
            if (!problem.isEmpty())
                cut += QStringLiteral("%1: %2 %3").arg(name, describe(widget), problem);
            if (room.wanted.isEmpty())
                continue;
            ++count;
            if (room.given.width() < room.wanted.width() ||
                room.given.height() < room.wanted.height())
                cut += QStringLiteral("%1: %2 %3x%4 of %5x%6")
                           .arg(name, describe(widget))
                           .arg(room.given.width())
                           .arg(room.given.height())
                           .arg(room.wanted.width())
                           .arg(room.wanted.height());
        }
    });

    cut.removeDuplicates();
    m_surfaces->window()->resize(1024, 768);
    QVERIFY(count > 100);
    QVERIFY2(cut.isEmpty(), qPrintable(cut.join(QLatin1Char('\n'))));
}

void tst_Looks::dialogsFitASmallScreen()
{
    QStringList tooLarge;
    m_surfaces->visitDialogs([&](const QString &name, QWidget *dialog) {
        if (dialog->width() > SmallScreen.width() || dialog->height() > SmallScreen.height())
            tooLarge +=
                QStringLiteral("%1: %2 by %3").arg(name).arg(dialog->width()).arg(dialog->height());
    });

    QVERIFY2(tooLarge.isEmpty(), qPrintable(tooLarge.join(QLatin1Char('\n'))));
}

void tst_Looks::docksDoNotScrollSideways()
{
    m_surfaces->window()->resize(1024, 768);
    emit m_surfaces->views().menuBar->viewMenu()->resetLayout(); // a smaller window took room away
    QStringList scrolled;
    int count = 0;
    m_surfaces->visitDocks([&](const QString &name, QWidget *dock) {
        QApplication::processEvents(); // bars that need each other take two turns
        for (const QWidget *widget : Surfaces::shownIn(dock)) {
            const auto *area = qobject_cast<const QScrollArea *>(widget);
            if (!area)
                continue;
            ++count;
            if (area->horizontalScrollBar()->isVisible())
                scrolled += QStringLiteral("%1: %2 %3 of %4")
                                .arg(name, describe(area))
                                .arg(area->viewport()->width())
                                .arg(area->widget()->minimumSizeHint().width());
        }
    });

    QVERIFY(count >= 7);
    QVERIFY2(scrolled.isEmpty(), qPrintable(scrolled.join(QLatin1Char('\n'))));
}

void tst_Looks::aCanvasHasItsPixelsUnderTheCursor_data()
{
    QTest::addColumn<int>("zoom");
    for (const int zoom : {1, 2, 3, 7, 16, 32})
        QTest::addRow("%d", zoom) << zoom;
}

void tst_Looks::aCanvasHasItsPixelsUnderTheCursor()
{
    QFETCH(int, zoom);
    Palette palette;
    for (int i = 0; i < 8; ++i)
        palette.setColour(i, QColor(i & 1 ? 255 : 0, i & 2 ? 255 : 0, i & 4 ? 255 : 0), false);
    Canvas canvas;
    canvas.resize(200, 60);
    QImage image(200, 1, QImage::Format_Indexed8);
    image.setColorCount(256);
    for (int x = 0; x < image.width(); ++x)
        image.setPixel(x, 0, x * 5 % 8);
    canvas.setPalette(&palette);
    canvas.setImage(image);
    canvas.setZoomLevel(zoom);
    canvas.show();

    const QImage shown = canvas.grab().toImage();
    const double ratio = canvas.devicePixelRatioF();
    const int y = qFloor((canvas.viewRect().top() + zoom / 2.0) * ratio);
    for (int x = qCeil(canvas.viewRect().left() * ratio);
         (x + 1) / ratio <= canvas.viewRect().left() + canvas.viewRect().width(); ++x) {
        const auto [first, last] = touchedCells(x, ratio, canvas.viewRect().left(), zoom);
        const auto colourOf = [&](int pixel) { return palette.colour(pixel * 5 % 8).rgb(); };
        const QRgb colour = shown.pixel(x, y);
        QVERIFY2(colour == colourOf(first) || colour == colourOf(last),
                 qPrintable(QStringLiteral("%1: %2, not %3")
                                .arg(x)
                                .arg(colour, 0, 16)
                                .arg(colourOf(first), 0, 16)));
        moveMouse(&canvas, QPointF(x, y) / ratio);
        const int hit = spoken(&canvas).section(QLatin1Char(' '), 1, 1).chopped(1).toInt();
        QVERIFY2(hit == first || hit == last,
                 qPrintable(QStringLiteral("%1: %2, not %3").arg(x).arg(hit).arg(first)));
    }
}

void tst_Looks::aMapHasNoSeams_data()
{
    QTest::addColumn<int>("zoom");
    for (int zoom = 1; zoom <= 4; ++zoom)
        QTest::addRow("%d", zoom) << zoom;
}

void tst_Looks::aMapHasNoSeams()
{
    QFETCH(int, zoom);
    Project *const project = m_surfaces->project();
    const auto palette = project->createPalette(CreateDefault, "flat");
    palette->setColour(0, Qt::green, false);
    const auto tiles = project->createTileSet("flat", palette->id(), 4);
    const auto map = project->createMap("flat", tiles->id(), QSize(30, 20));
    MapEditor::MapGrid grid;
    grid.resize(400, 300);
    grid.setMap(map);
    grid.setGridVisible(false);
    grid.setCellMetrics(9, zoom);
    grid.updateGeometryMetrics();
    grid.show();

    const QImage shown = grid.grab().toImage();
    const double ratio = grid.devicePixelRatioF();
    const QRect area = grid.cellGeometry().gridRect;
    constexpr int StatusHeight = 40; // with the place under the mouse, in white
    const QRgb flat = palette->colour(0).rgb();
    for (int y = qCeil(std::max(area.top(), StatusHeight) * ratio);
         (y + 1) / ratio <= area.top() + area.height(); ++y) {
        for (int x = qCeil(area.left() * ratio); (x + 1) / ratio <= area.left() + area.width(); ++x)
            QVERIFY2(shown.pixel(x, y) == flat,
                     qPrintable(QStringLiteral("seam at %1, %2").arg(x).arg(y)));
    }
}

QTEST_MAIN(tst_Looks)
#include "tst_Looks.moc"
