#include "colour/ColourEditorPopover.h"

#include "colour/ChannelSlider.h"
#include "colour/ColourEditor.h"

#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

using Tessaril::Ui::DialogPosition;

class tst_ColourEditorPopover : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void opensForTheColourItIsGiven();
    void pointsAtTheCellFromTheRight();
    void standsAtTheLeftWhereTheScreenEnds();
    void confirmingRepeatsTheColourAndCloses();
    void cancellingOnlyCloses();
    void escapeCloses();
    void returnClosesWithOrWithoutAChange();
    void theFirstSliderHasTheFocus();

private:
    void open() { m_popover->openFor(m_owner.get(), m_cell, QColor(255, 0, 0), true); }

    std::unique_ptr<QWidget> m_owner;
    std::unique_ptr<ColourEditorPopover> m_popover;
    const QRect m_cell{48, 24, 24, 24};
};

void tst_ColourEditorPopover::init()
{
    m_popover.reset();
    m_owner = std::make_unique<QWidget>();
    m_owner->setGeometry(100, 200, 200, 200);
    m_owner->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_owner.get()));
    m_popover = std::make_unique<ColourEditorPopover>();
}

void tst_ColourEditorPopover::opensForTheColourItIsGiven()
{
    open();

    QVERIFY(m_popover->isVisible());
    QVERIFY(m_popover->isWindow());
    QCOMPARE(m_popover->editor()->colour(), QColor(255, 0, 0));
    QVERIFY(m_popover->editor()->priority());
}

void tst_ColourEditorPopover::pointsAtTheCellFromTheRight()
{
    open();

    const QPoint tip = m_owner->mapToGlobal(QPoint(72, 35));
    QCOMPARE(m_popover->side(), DialogPosition::LeftOf);
    QCOMPARE(m_popover->x(), tip.x());
    QCOMPARE(m_popover->y() + m_popover->height() / 2, tip.y());
    QVERIFY(m_popover->editor()->x() >
            m_popover->width() - m_popover->editor()->geometry().right());
}

void tst_ColourEditorPopover::standsAtTheLeftWhereTheScreenEnds()
{
    const QRect screen = m_owner->screen()->availableGeometry();
    m_owner->move(screen.right() - 150, 200);

    open();

    QCOMPARE(m_popover->side(), DialogPosition::TopCentre);
    QCOMPARE(m_popover->x() + m_popover->width(), m_owner->mapToGlobal(QPoint(48, 0)).x());
}

void tst_ColourEditorPopover::confirmingRepeatsTheColourAndCloses()
{
    open();
    QStringList told;
    connect(m_popover.get(), &ColourEditorPopover::colourChanged, this,
            [&told](const QColor &colour, bool priority) {
                told += colour.name() + (priority ? QStringLiteral(" on top") : QString());
            });
    connect(m_popover.get(), &ColourEditorPopover::closed, this,
            [&told] { told += QStringLiteral("closed"); });
    m_popover->findChildren<ChannelSlider *>().at(1)->setValue(7);

    QTest::mouseClick(m_popover->findChildren<QPushButton *>().at(0), Qt::LeftButton);

    QCOMPARE(told, (QStringList{"#ffff00 on top", "closed"}));
    QVERIFY(!m_popover->isVisible());
}

void tst_ColourEditorPopover::cancellingOnlyCloses()
{
    open();
    QSignalSpy changed(m_popover.get(), &ColourEditorPopover::colourChanged);
    QSignalSpy closed(m_popover.get(), &ColourEditorPopover::closed);

    QTest::mouseClick(m_popover->findChildren<QPushButton *>().at(1), Qt::LeftButton);

    QCOMPARE(changed.count(), 0);
    QCOMPARE(closed.count(), 1);
    QVERIFY(!m_popover->isVisible());
}

void tst_ColourEditorPopover::escapeCloses()
{
    open();
    QSignalSpy closed(m_popover.get(), &ColourEditorPopover::closed);

    QTest::keyClick(m_popover->findChildren<ChannelSlider *>().at(0), Qt::Key_Escape);

    QCOMPARE(closed.count(), 1);
    QVERIFY(!m_popover->isVisible());
}

void tst_ColourEditorPopover::returnClosesWithOrWithoutAChange()
{
    QSignalSpy changed(m_popover.get(), &ColourEditorPopover::colourChanged);
    open();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QVERIFY(!m_popover->isVisible());
    QCOMPARE(changed.count(), 0);

    open();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Home);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Enter);

    QVERIFY(!m_popover->isVisible());
    QCOMPARE(changed.count(), 1);
}

void tst_ColourEditorPopover::theFirstSliderHasTheFocus()
{
    open();

    QTRY_COMPARE(m_popover->focusWidget(), m_popover->findChildren<ChannelSlider *>().at(0));
}

QTEST_MAIN(tst_ColourEditorPopover)
#include "tst_ColourEditorPopover.moc"
