#include "colour/PaletteWindow.h"

#include "colour/ChannelSlider.h"
#include "colour/ColourEditor.h"
#include "colour/PaletteGrid.h"
#include "model/Palette.h"
#include "uikit/ThemedIcon.h"

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

class tst_PaletteWindow : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void isNamedAndTitled();
    void buttonsBearTheirIcons();
    void withoutAPaletteItSaysSo();
    void theTitleFollowsThePalettesName();
    void buttonsNeedASelection();
    void nothingCanBeUsedBeforeAPalette();
    void oneCellDisablesTheGradient();
    void aSelectionIsShownInTheColourEditor();
    void darkenAndLightenMoveTheSliders();
    void aConfirmedColourGoesToTheRun();
    void aColourThatThePaletteRoundsIsShownRounded();
    void theWindowTellsAfterThePalette();
    void aGradientBlendsTheRun();
    void aGradientOfNeighboursDoesNothing();
    void anotherPaletteStartsWithoutASelection();
    void theSamePaletteKeepsItsSelection();
    void aChangeFromOutsideIsShown();
    void aDeadPaletteLeavesThePlaceholder();

private:
    QPushButton *button(const QString &toolTip);
    PaletteGrid *grid() { return m_window->findChild<PaletteGrid *>(); }
    ColourEditor *colours() { return m_window->findChild<ColourEditor *>(); }
    void drag(int from, int to);
    void show(Palette *palette) { m_window->setPalette(QPointer<Palette>(palette)); }

    std::unique_ptr<Palette> m_palette;
    std::unique_ptr<PaletteWindow> m_window;
};

namespace {

const QString Darken = QStringLiteral("Darkens the selected colour(s)");
const QString Lighten = QStringLiteral("Lightens the selected colour(s)");
const QString Gradient = QStringLiteral("Create a gradient");

} // namespace

void tst_PaletteWindow::init()
{
    m_palette = std::make_unique<Palette>();
    m_palette->setDefaultColours();
    m_palette->setName(QStringLiteral("Cave"));
    m_window = std::make_unique<PaletteWindow>();
    show(m_palette.get());
}

QPushButton *tst_PaletteWindow::button(const QString &toolTip)
{
    for (auto *found : m_window->findChildren<QPushButton *>()) {
        if (found->toolTip() == toolTip)
            return found;
    }
    return nullptr;
}

void tst_PaletteWindow::drag(int from, int to)
{
    const auto middle = [](int index) { return QPoint(index % 16 * 16 + 7, index / 16 * 16 + 7); };
    QTest::mousePress(grid(), Qt::LeftButton, {}, middle(from));
    QTest::mouseRelease(grid(), Qt::LeftButton, {}, middle(to));
}

void tst_PaletteWindow::isNamedAndTitled()
{
    QCOMPARE(m_window->objectName(), QStringLiteral("paletteWindow"));
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Palette: Cave"));
    QCOMPARE(PaletteWindow().windowTitle(), QStringLiteral("Palette Editor"));
    QVERIFY(m_window->findChild<QWidget *>(QStringLiteral("paletteWidget")));
    for (const QString &toolTip : {Darken, Lighten, Gradient}) {
        QCOMPARE(button(toolTip)->iconSize(), QSize(24, 24));
        QCOMPARE(button(toolTip)->accessibleName(), toolTip);
    }
}

void tst_PaletteWindow::buttonsBearTheirIcons()
{
    const auto image = [](const QIcon &icon) { return icon.pixmap(QSize(24, 24)).toImage(); };

    QCOMPARE(image(button(Darken)->icon()), image(themedIcon(":/Darken")));
    QCOMPARE(image(button(Lighten)->icon()), image(themedIcon(":/Lighten")));
    QCOMPARE(image(button(Gradient)->icon()), image(themedIcon(":/Gradient")));
    QCOMPARE(image(m_window->windowIcon()), image(themedIcon(":/Palette")));
}

void tst_PaletteWindow::withoutAPaletteItSaysSo()
{
    show(nullptr);

    QCOMPARE(m_window->windowTitle(), QStringLiteral("Palette Editor"));
    QVERIFY(!m_window->isContentShown());
    QCOMPARE(m_window->findChild<QLabel *>()->text(), QStringLiteral("No palette selected"));
    QVERIFY(!PaletteWindow().isContentShown());

    show(m_palette.get());
    QVERIFY(m_window->isContentShown());
}

void tst_PaletteWindow::theTitleFollowsThePalettesName()
{
    m_palette->setName(QStringLiteral("<b>%1</b>"));

    QCOMPARE(m_window->windowTitle(), QStringLiteral("Palette: <b>%1</b>"));
}

void tst_PaletteWindow::buttonsNeedASelection()
{
    QVERIFY(!button(Darken)->isEnabled());
    QVERIFY(!button(Lighten)->isEnabled());
    QVERIFY(!button(Gradient)->isEnabled());
    QVERIFY(!colours()->isEnabled());

    drag(17, 40);

    QVERIFY(button(Darken)->isEnabled());
    QVERIFY(button(Lighten)->isEnabled());
    QVERIFY(button(Gradient)->isEnabled());
    QVERIFY(colours()->isEnabled());
}

void tst_PaletteWindow::nothingCanBeUsedBeforeAPalette()
{
    m_window = std::make_unique<PaletteWindow>();

    QVERIFY(!button(Darken)->isEnabled());
    QVERIFY(!button(Lighten)->isEnabled());
    QVERIFY(!button(Gradient)->isEnabled());
    QVERIFY(!colours()->isEnabled());
    QVERIFY(!m_window->isContentShown());
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Palette Editor"));
}

void tst_PaletteWindow::oneCellDisablesTheGradient()
{
    drag(17, 40);

    drag(17, 17);

    QVERIFY(button(Darken)->isEnabled());
    QVERIFY(button(Lighten)->isEnabled());
    QVERIFY(!button(Gradient)->isEnabled());
}

void tst_PaletteWindow::aSelectionIsShownInTheColourEditor()
{
    m_palette->setColour(17, Qt::red, true);

    drag(40, 17);

    QCOMPARE(colours()->colour(), QColor(255, 0, 0));
    QVERIFY(colours()->priority());
}

void tst_PaletteWindow::darkenAndLightenMoveTheSliders()
{
    drag(255, 255);
    const auto *red = colours()->findChild<ChannelSlider *>();

    QTest::mousePress(button(Darken), Qt::LeftButton);
    QCOMPARE(red->value(), 6);
    QTest::mouseRelease(button(Darken), Qt::LeftButton);
    QTest::mouseClick(button(Lighten), Qt::LeftButton);

    QCOMPARE(red->value(), 7);
    QCOMPARE(m_palette->word(255), quint16(0xFF01));
}

void tst_PaletteWindow::aConfirmedColourGoesToTheRun()
{
    QSignalSpy changed(m_window.get(), &PaletteWindow::paletteChanged);
    drag(20, 22);
    colours()->findChildren<ChannelSlider *>().at(0)->setValue(7);

    QTest::mouseClick(colours()->findChild<QPushButton *>(), Qt::LeftButton);

    QCOMPARE(changed.count(), 1);
    for (int index = 20; index <= 22; ++index)
        QCOMPARE(m_palette->word(index), quint16(0xF400));
    QCOMPARE(m_palette->word(23), quint16(0x1701));
    QVERIFY(!colours()->isChanged());
}

void tst_PaletteWindow::aColourThatThePaletteRoundsIsShownRounded()
{
    drag(255, 255);

    colours()->findChildren<ChannelSlider *>().at(0)->setValue(6);
    QVERIFY(colours()->isChanged());

    m_window->colourChanged(QColor(254, 254, 254), false);

    QCOMPARE(m_palette->word(255), quint16(0xFF01));
    QCOMPARE(colours()->colour(), QColor(Qt::white));
    QVERIFY(!colours()->isChanged());
}

void tst_PaletteWindow::theWindowTellsAfterThePalette()
{
    QStringList told;
    connect(m_palette.get(), &Palette::colourEdited, this,
            [&told](int index) { told += QString::number(index); });
    connect(m_window.get(), &PaletteWindow::paletteChanged, this, [&told] { told += "window"; });
    m_window->selectionChanged(20, 22);

    m_window->colourChanged(Qt::red, false);
    m_palette->setColour(22, Qt::black, false);
    told += "gradient";
    m_window->createGradient();

    QCOMPARE(told, (QStringList{"20", "21", "22", "window", "22", "gradient", "21", "window"}));
}

void tst_PaletteWindow::aGradientBlendsTheRun()
{
    m_palette->setColour(20, Qt::black);
    m_palette->setColour(27, Qt::white);
    QSignalSpy changed(m_window.get(), &PaletteWindow::paletteChanged);
    drag(27, 20);

    QTest::mousePress(button(Gradient), Qt::LeftButton);

    QCOMPARE(changed.count(), 1);
    QCOMPARE(m_palette->word(21), quint16(0x2401));
    QCOMPARE(m_palette->word(26), quint16(0xDB00));
    QCOMPARE(m_palette->word(20), quint16(0));
    QCOMPARE(m_palette->word(27), quint16(0xFF01));
}

void tst_PaletteWindow::aGradientOfNeighboursDoesNothing()
{
    QSignalSpy changed(m_window.get(), &PaletteWindow::paletteChanged);
    QSignalSpy edited(m_palette.get(), &Palette::colourEdited);
    drag(20, 21);

    QTest::mousePress(button(Gradient), Qt::LeftButton);

    QCOMPARE(changed.count() + edited.count(), 0);
}

void tst_PaletteWindow::anotherPaletteStartsWithoutASelection()
{
    Palette other;
    drag(20, 27);

    show(&other);

    QVERIFY(!button(Darken)->isEnabled());
    QVERIFY(!button(Gradient)->isEnabled());
    QVERIFY(!colours()->isEnabled());
    QCOMPARE(grid()->first(), -1);
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Palette: untitled"));
    m_palette->setName(QStringLiteral("Hill"));
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Palette: untitled"));
}

void tst_PaletteWindow::theSamePaletteKeepsItsSelection()
{
    drag(20, 27);

    show(m_palette.get());

    QVERIFY(button(Gradient)->isEnabled());
    QCOMPARE(grid()->last(), 27);
}

void tst_PaletteWindow::aChangeFromOutsideIsShown()
{
    drag(20, 27);

    m_palette->setColour(20, Qt::yellow, true);

    QCOMPARE(colours()->colour(), QColor(255, 255, 0));
    QVERIFY(colours()->priority());
}

void tst_PaletteWindow::aDeadPaletteLeavesThePlaceholder()
{
    drag(20, 27);
    m_palette.reset();

    QVERIFY(!m_window->isContentShown());
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Palette Editor"));
    QVERIFY(!button(Gradient)->isEnabled());
    m_window->colourChanged(Qt::red, false);
    m_window->createGradient();
}

QTEST_MAIN(tst_PaletteWindow)
#include "tst_PaletteWindow.moc"
