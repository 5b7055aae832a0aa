#include "editors/SpriteEditorToolBar.h"

#include "model/SpriteAnim.h"
#include "model/SpriteBank.h"
#include "support/DialogDriver.h"

#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

#include <memory>

using SpriteEditor::ToolBar;

class tst_SpriteEditorToolBar : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void itsFieldsStandInARow();
    void theDelayTellsItsUnit();
    void sidesAndDelayAreBounded();
    void withoutAnAnimationItIsDisabled();
    void showsTheAnimation();
    void editsTheAnimation();
    void aDelayGoesOutOnce();
    void aTypedSideIsWrittenWhenItIsComplete_data();
    void aTypedSideIsWrittenWhenItIsComplete();
    void showingChangesNothing();
    void followsTheAnimation();
    void leavesTheAnimationBeforeAlone();
    void typingInsideTheNameKeepsTheCursor();
    void aDyingAnimationDisables();

private:
    QLineEdit *name() const { return m_bar->findChild<QLineEdit *>(); }
    QSpinBox *spin(const char *text) const
    {
        return DialogDriver::field<QSpinBox>(*m_bar, QString::fromLatin1(text));
    }

    std::unique_ptr<SpriteBank> m_bank;
    SpriteAnim *m_walk = nullptr; // of 3 by 2 cells and delay 4
    std::unique_ptr<ToolBar> m_bar;
};

void tst_SpriteEditorToolBar::init()
{
    m_bank = std::make_unique<SpriteBank>(Tessaril::Sprite::EightBit);
    m_walk = m_bank->createAnimation();
    m_walk->setName("Walk");
    m_walk->setSize({3, 2});
    m_walk->setDelay(4);
    m_bar = std::make_unique<ToolBar>();
}

void tst_SpriteEditorToolBar::itsFieldsStandInARow()
{
    QStringList labels;
    for (const QLabel *label : m_bar->findChildren<QLabel *>())
        labels.append(label->text());

    QCOMPARE(labels, QStringList({"W:", "H:", "Delay:"}));
    QCOMPARE(name()->placeholderText(), QString("Enter a name..."));
}

void tst_SpriteEditorToolBar::theDelayTellsItsUnit()
{
    QCOMPARE(
        spin("Delay")->toolTip(),
        QString("Set the delay between animation frames\n0 = No Delay, 1 = 25fps, 2 = 12.5fps"));
    QCOMPARE(name()->accessibleName(), QString("Name"));
}

void tst_SpriteEditorToolBar::sidesAndDelayAreBounded()
{
    for (const char *side : {"Width in sprites", "Height in sprites"}) {
        QCOMPARE(spin(side)->minimum(), 1);
        QCOMPARE(spin(side)->maximum(), 16);
    }
    QCOMPARE(spin("Delay")->minimum(), 0);
    QCOMPARE(spin("Delay")->maximum(), 50);
}

void tst_SpriteEditorToolBar::withoutAnAnimationItIsDisabled()
{
    QVERIFY(!m_bar->isEnabled());

    m_bar->setAnimation(m_walk);
    QVERIFY(m_bar->isEnabled());
    m_bar->setAnimation(nullptr);

    QVERIFY(!m_bar->isEnabled());
    QCOMPARE(name()->text(), QString());
    spin("Delay")->setValue(9);
    QCOMPARE(m_walk->delay(), 4);
}

void tst_SpriteEditorToolBar::showsTheAnimation()
{
    m_bar->setAnimation(m_walk);

    QCOMPARE(name()->text(), QString("Walk"));
    QCOMPARE(spin("Width in sprites")->value(), 3);
    QCOMPARE(spin("Height in sprites")->value(), 2);
    QCOMPARE(spin("Delay")->value(), 4);
}

void tst_SpriteEditorToolBar::editsTheAnimation()
{
    m_bar->setAnimation(m_walk);

    name()->selectAll();
    QTest::keyClicks(name(), "Run");
    QTest::keyClick(spin("Width in sprites"), Qt::Key_Up);
    QTest::keyClick(spin("Height in sprites"), Qt::Key_Down);

    QCOMPARE(m_walk->name(), QString("Run"));
    QCOMPARE(m_walk->size(), QSize(4, 1));
}

void tst_SpriteEditorToolBar::aDelayGoesOutOnce()
{
    m_bar->setAnimation(m_walk);
    QSignalSpy ours(m_bar.get(), &ToolBar::delayChanged);
    QSignalSpy theirs(m_walk, &Animation::delayChanged);

    QTest::keyClick(spin("Delay"), Qt::Key_Up);

    QCOMPARE(m_walk->delay(), 5);
    QCOMPARE(ours.count(), 1);
    QCOMPARE(ours.first().first().toInt(), 5);
    QCOMPARE(theirs.count(), 1);
    QCOMPARE(theirs.first().first().toInt(), 5);
}

void tst_SpriteEditorToolBar::aTypedSideIsWrittenWhenItIsComplete_data()
{
    QTest::addColumn<QString>("side");
    QTest::addColumn<QSize>("size");
    QTest::newRow("width") << "Width in sprites" << QSize(16, 2);
    QTest::newRow("height") << "Height in sprites" << QSize(3, 16);
}

void tst_SpriteEditorToolBar::aTypedSideIsWrittenWhenItIsComplete()
{
    QFETCH(QString, side);
    QFETCH(QSize, size);
    m_bar->setAnimation(m_walk);
    QSignalSpy sizes(m_walk, &Animation::sizeChanged);
    auto *field = DialogDriver::field<QSpinBox>(*m_bar, side);
    field->selectAll();

    QTest::keyClicks(field, "16");
    QCOMPARE(sizes.count(), 0); // a 1 would cut cells off
    QTest::keyClick(field, Qt::Key_Return);

    QCOMPARE(m_walk->size(), size);
    QCOMPARE(sizes.count(), 1);
}

void tst_SpriteEditorToolBar::showingChangesNothing()
{
    m_walk->setSize({20, 30}); // more than the fields take
    m_walk->setDelay(77);
    const Animation::State before = m_walk->state();
    QSignalSpy delayed(m_bar.get(), &ToolBar::delayChanged);

    m_bar->setAnimation(m_walk);

    QCOMPARE(spin("Width in sprites")->value(), 16);
    QCOMPARE(spin("Delay")->value(), 50);
    QCOMPARE(m_walk->state(), before);
    QCOMPARE(delayed.count(), 0);
}

void tst_SpriteEditorToolBar::followsTheAnimation()
{
    m_bar->setAnimation(m_walk);
    const Animation::State before = m_walk->state();

    m_walk->setName("Run");
    m_walk->setSize({5, 6});
    m_walk->setDelay(7);
    QCOMPARE(name()->text(), QString("Run"));
    QCOMPARE(spin("Width in sprites")->value(), 5);
    QCOMPARE(spin("Height in sprites")->value(), 6);
    QCOMPARE(spin("Delay")->value(), 7);
    m_walk->restore(before);
    QCOMPARE(spin("Width in sprites")->value(), 3);
    QCOMPARE(spin("Delay")->value(), 4); // of which no signal tells
}

void tst_SpriteEditorToolBar::leavesTheAnimationBeforeAlone()
{
    SpriteAnim *other = m_bank->createAnimation();
    m_bar->setAnimation(m_walk);
    m_bar->setAnimation(other);

    QTest::keyClicks(name(), "s");
    QTest::keyClick(spin("Width in sprites"), Qt::Key_Up);
    QTest::keyClick(spin("Height in sprites"), Qt::Key_Up);
    QTest::keyClick(spin("Delay"), Qt::Key_Up);
    m_walk->setName("Crawl");

    QCOMPARE(m_walk->size(), QSize(3, 2));
    QCOMPARE(m_walk->delay(), 4);
    QCOMPARE(other->name(), QString("New Sprites"));
    QCOMPARE(other->size(), QSize(2, 2));
    QCOMPARE(other->delay(), 1);
    QCOMPARE(name()->text(), QString("New Sprites"));
}

void tst_SpriteEditorToolBar::typingInsideTheNameKeepsTheCursor()
{
    m_bar->setAnimation(m_walk);
    name()->setCursorPosition(0);

    QTest::keyClicks(name(), "My ");

    QCOMPARE(m_walk->name(), QString("My Walk"));
    QCOMPARE(name()->cursorPosition(), 3);
}

void tst_SpriteEditorToolBar::aDyingAnimationDisables()
{
    m_bar->setAnimation(m_walk);

    m_bank.reset();

    QVERIFY(!m_bar->isEnabled());
    QCOMPARE(name()->text(), QString());
}

QTEST_MAIN(tst_SpriteEditorToolBar)
#include "tst_SpriteEditorToolBar.moc"
