#include "ShownView.h"
#include "mapeditor/SpriteProperties.h"
#include "mapeditor/SpritePropertiesPopover.h"
#include "support/PaintCounter.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QSpinBox>

using MapEditor::MapGrid;
using MapEditor::SpriteProperties;
using Tool = Tessaril::Ui::ToolButton;

/// The properties of placed sprites, opened by clicks on a map view.
class tst_MapPopover : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_shown.reset(); }

    void aClickOpensItBesideTheSprite();
    void aClickOnAnotherSpriteMovesIt();
    void aPressBesideTheSpritesClosesIt();
    void aPressOutsideTheGridClosesIt();
    void escapeClosesItAndKeepsTheMode();
    void leavingTheModeClosesIt();
    void anEditReplacesTheSpriteAsOneStep();
    void anEditAfterADragKeepsThePlace();
    void itFollowsAnUndo();
    void undoingThePlacingClosesIt();
    void deletingASpriteOfTheBankSelectsNoneAndRepaints();
    void clearingTheLastSpriteOfTheBankRepaints();
    void hidingTheViewClosesIt();
    void aStillSpritesStartFrameChangesNoPixel();

private:
    MapGrid &grid() const { return m_shown->grid(); }
    MapEditor::SpritePropertiesPopover &popover() const { return *m_shown->view.spritePopover(); }
    const Map::PlacedSprite &shown() const
    {
        return popover().findChild<SpriteProperties *>()->sprite();
    }
    const Map::PlacedSprite &sprite(int index) const { return m_shown->map->sprites().at(index); }

    std::unique_ptr<ShownView> m_shown;
};

void tst_MapPopover::init()
{
    m_shown = std::make_unique<ShownView>();
    QVERIFY(QTest::qWaitForWindowActive(&m_shown->view));
    m_shown->placeSpriteAt({0, 0});
    m_shown->placeSpriteAt({32, 8});
    grid().setMode(Tool::PlaceSprite);
}

void tst_MapPopover::aClickOpensItBesideTheSprite()
{
    m_shown->click(m_shown->at(5, 2));

    QVERIFY(popover().isVisible());
    QVERIFY(shown() == sprite(1));
    const QPoint right = grid().cellGeometry().fromMapPixel({48, 16});
    const QPoint anchor = grid().mapToGlobal(right);
    QCOMPARE(popover().x(), anchor.x());
    QCOMPARE(popover().y(), anchor.y() - popover().height() / 2);
}

void tst_MapPopover::aClickOnAnotherSpriteMovesIt()
{
    m_shown->click(m_shown->at(5, 2));
    const QPoint before = popover().pos();
    QSignalSpy selected(&grid(), &MapGrid::selectedSpriteChanged);

    QTest::mousePress(&grid(), Qt::LeftButton, {}, m_shown->at(0, 0));

    QVERIFY(popover().isVisible());
    QVERIFY(shown() == sprite(0));
    QVERIFY(popover().pos() != before);
    QCOMPARE(selected.count(), 1);
    QTest::mouseRelease(&grid(), Qt::LeftButton, {}, m_shown->at(0, 0));
}

void tst_MapPopover::aPressBesideTheSpritesClosesIt()
{
    m_shown->click(m_shown->at(5, 2));

    QTest::mousePress(&grid(), Qt::LeftButton, {}, m_shown->at(3, 3));

    QVERIFY(!popover().isVisible());
}

void tst_MapPopover::aPressOutsideTheGridClosesIt()
{
    m_shown->click(m_shown->at(5, 2));

    QTest::mousePress(&m_shown->bar, Qt::LeftButton);

    QVERIFY(!popover().isVisible());
}

void tst_MapPopover::escapeClosesItAndKeepsTheMode()
{
    m_shown->click(m_shown->at(5, 2));

    QTest::keyClick(&m_shown->view, Qt::Key_Escape);
    QVERIFY(!popover().isVisible());
    QCOMPARE(grid().mode(), Tool::PlaceSprite);
    m_shown->view.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&m_shown->view));
    QTest::keyClick(&m_shown->view, Qt::Key_Escape);

    QCOMPARE(grid().mode(), Tool::Draw);
}

void tst_MapPopover::leavingTheModeClosesIt()
{
    m_shown->click(m_shown->at(5, 2));

    grid().setMode(Tool::Draw);

    QVERIFY(!popover().isVisible());
}

void tst_MapPopover::anEditReplacesTheSpriteAsOneStep()
{
    m_shown->click(m_shown->at(5, 2));

    popover().findChild<QCheckBox *>("mirror")->click();

    QVERIFY(sprite(1).mirror);
    QVERIFY(!sprite(0).mirror);
    QCOMPARE(m_shown->stack.count(), 1);
    QCOMPARE(m_shown->stack.undoText(), QStringLiteral("Sprite Properties"));
}

void tst_MapPopover::anEditAfterADragKeepsThePlace()
{
    m_shown->click(m_shown->at(5, 2));
    const int before = popover().x();
    QTest::mousePress(&grid(), Qt::LeftButton, {}, m_shown->at(5, 2));
    QTest::mouseMove(&grid(), m_shown->at(3, 2));
    QTest::mouseRelease(&grid(), Qt::LeftButton, {}, m_shown->at(3, 2));
    QCOMPARE(sprite(1).x, 16);

    QVERIFY(popover().isVisible());
    QVERIFY(popover().x() < before);
    popover().findChild<QSpinBox *>("paletteOffset")->setValue(3);

    QCOMPARE(sprite(1).paletteOffset, 3);
    QCOMPARE(sprite(1).x, 16);
}

void tst_MapPopover::itFollowsAnUndo()
{
    m_shown->click(m_shown->at(5, 2));
    auto *const name = popover().findChild<QLineEdit *>("name");
    name->setText(QStringLiteral("Owl"));
    QTest::keyClick(name, Qt::Key_Return);
    QCOMPARE(sprite(1).name, QStringLiteral("Owl"));

    m_shown->stack.undo();

    QVERIFY(popover().isVisible());
    QCOMPARE(name->text(), QString());
}

void tst_MapPopover::undoingThePlacingClosesIt()
{
    grid().setCurrentSprite(m_shown->bank.id(), 0);
    m_shown->click(m_shown->at(2, 3));
    m_shown->click(m_shown->at(2, 3));
    QVERIFY(popover().isVisible());

    m_shown->stack.undo();

    QCOMPARE(m_shown->map->sprites().size(), 2);
    QVERIFY(!popover().isVisible());
}

void tst_MapPopover::deletingASpriteOfTheBankSelectsNoneAndRepaints()
{
    m_shown->click(m_shown->at(5, 2));
    QVERIFY(popover().isVisible());
    QSignalSpy selected(&grid(), &MapGrid::selectedSpriteChanged);
    QCoreApplication::processEvents();
    const PaintCounter paints(grid());

    m_shown->bank.deleteSprite(0);
    emit m_shown->bank.structureChanged("Delete Sprite");

    QCOMPARE(selected, QList<QVariantList>({{-1}}));
    QVERIFY(!popover().isVisible());
    QTRY_VERIFY(paints.region().contains(m_shown->at(5, 2)));
}

void tst_MapPopover::clearingTheLastSpriteOfTheBankRepaints()
{
    m_shown->bank.deleteSprite(0);
    QCoreApplication::processEvents();
    const PaintCounter paints(grid());

    m_shown->bank.deleteSprite(0);
    emit m_shown->bank.structureChanged("Delete Sprite");

    QTRY_VERIFY(paints.count() > 0);
}

void tst_MapPopover::hidingTheViewClosesIt()
{
    m_shown->click(m_shown->at(5, 2));

    m_shown->view.hide();

    QVERIFY(!popover().isVisible());
}

void tst_MapPopover::aStillSpritesStartFrameChangesNoPixel()
{
    const auto picture = [this] {
        return grid().grab(grid().cellGeometry().fromCells({4, 1, 2, 2})).toImage();
    };
    m_shown->click(m_shown->at(5, 2));
    const QImage before = picture();

    popover().findChild<QSpinBox *>("startFrame")->setValue(9);

    QCOMPARE(sprite(1).startFrame, 9);
    QCOMPARE(picture(), before);
    QCOMPARE(m_shown->stack.count(), 1);
}

QTEST_MAIN(tst_MapPopover)

#include "tst_MapPopover.moc"
