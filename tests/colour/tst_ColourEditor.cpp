#include "colour/ColourEditor.h"

#include "colour/ChannelSlider.h"
#include "uikit/AreaFill.h"

#include <QCheckBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

class tst_ColourEditor : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void isLaidOutAsMeasured();
    void settingAColourTellsNothing();
    void theGivenColourIsShownOpaque();
    void okIsThereOnlyForADifference();
    void priorityAloneIsADifference();
    void aSliderMovedAndBackIsNoDifference();
    void theClickGivesTheColourBack();
    void cancelGoesBackToTheGivenColour();
    void returnConfirms();
    void returnWithoutADifferenceDoesNothing();
    void thePreviewFollowsTheSliders();
    void eachDarkenIsOneLevel();
    void eachLightenIsOneLevel();
    void darkenOnBlackDoesNothing();
    void lightenOnWhiteDoesNothing();
    void everythingIsReachedByTab();

private:
    QPushButton *button(const QString &text);
    QCheckBox *priorityBox() { return m_editor->findChild<QCheckBox *>(); }
    ChannelSlider *slider(int row) { return m_editor->findChildren<ChannelSlider *>().at(row); }
    QList<int> levels();

    std::unique_ptr<ColourEditor> m_editor;
};

void tst_ColourEditor::init()
{
    m_editor = std::make_unique<ColourEditor>();
    m_editor->setColour(QColor(110, 73, 0), false);
}

QPushButton *tst_ColourEditor::button(const QString &text)
{
    for (auto *found : m_editor->findChildren<QPushButton *>()) {
        if (found->text() == text)
            return found;
    }
    return nullptr;
}

QList<int> tst_ColourEditor::levels()
{
    return {slider(0)->value(), slider(1)->value(), slider(2)->value()};
}

void tst_ColourEditor::isLaidOutAsMeasured()
{
    m_editor->resize(m_editor->minimumSizeHint());
    m_editor->grab();

    QCOMPARE(button("✓")->size(), QSize(48, 32));
    QCOMPARE(button("⨉")->size(), QSize(48, 32));
    QVERIFY(m_editor->findChild<AreaFill *>()->width() >= 100);
    QCOMPARE(priorityBox()->text(), QStringLiteral("Priority"));
    QCOMPARE(priorityBox()->toolTip(), QStringLiteral("Layer 2 priority\nIf set, this colour will "
                                                      "always appear on top"));
    QVERIFY(m_editor->minimumSizeHint().width() <= 256);
}

void tst_ColourEditor::settingAColourTellsNothing()
{
    QSignalSpy changed(m_editor.get(), &ColourEditor::colourChanged);

    m_editor->setColour(Qt::red, true);

    QCOMPARE(changed.count(), 0);
    QCOMPARE(levels(), (QList<int>{7, 0, 0}));
    QVERIFY(priorityBox()->isChecked());
    QVERIFY(!button("✓")->isEnabled());
}

void tst_ColourEditor::theGivenColourIsShownOpaque()
{
    m_editor->setColour(QColor(255, 0, 0, 0), false);

    QCOMPARE(m_editor->colour(), QColor(255, 0, 0));
    QCOMPARE(m_editor->findChild<AreaFill *>()->colour(), QColor(255, 0, 0));
}

void tst_ColourEditor::okIsThereOnlyForADifference()
{
    m_editor = std::make_unique<ColourEditor>();
    QVERIFY(!button("✓")->isEnabled());

    slider(0)->setValue(4);
    QVERIFY(button("✓")->isEnabled());

    m_editor->setColour(m_editor->colour(), false);
    QVERIFY(!button("✓")->isEnabled());
}

void tst_ColourEditor::priorityAloneIsADifference()
{
    QTest::mouseClick(priorityBox(), Qt::LeftButton, {}, {8, priorityBox()->height() / 2});
    QVERIFY(m_editor->priority());
    QVERIFY(button("✓")->isEnabled());

    QTest::mouseClick(priorityBox(), Qt::LeftButton, {}, {8, priorityBox()->height() / 2});
    QVERIFY(!button("✓")->isEnabled());
}

void tst_ColourEditor::aSliderMovedAndBackIsNoDifference()
{
    slider(0)->setValue(4);
    slider(0)->setValue(3);

    QVERIFY(!button("✓")->isEnabled());
}

void tst_ColourEditor::theClickGivesTheColourBack()
{
    QSignalSpy changed(m_editor.get(), &ColourEditor::colourChanged);
    QSignalSpy cancelled(m_editor.get(), &ColourEditor::cancelled);
    slider(0)->setValue(4);
    priorityBox()->setChecked(true);

    QTest::mouseClick(button("✓"), Qt::LeftButton);

    QCOMPARE(changed, (QList<QVariantList>{{QColor(146, 73, 0), true}}));
    QCOMPARE(cancelled.count(), 0);
}

void tst_ColourEditor::cancelGoesBackToTheGivenColour()
{
    QSignalSpy changed(m_editor.get(), &ColourEditor::colourChanged);
    QSignalSpy cancelled(m_editor.get(), &ColourEditor::cancelled);
    slider(0)->setValue(4);
    priorityBox()->setChecked(true);

    QTest::mouseClick(button("⨉"), Qt::LeftButton);

    QCOMPARE(cancelled.count(), 1);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(m_editor->colour(), QColor(110, 73, 0));
    QCOMPARE(levels(), (QList<int>{3, 2, 0}));
    QVERIFY(!priorityBox()->isChecked());
    QVERIFY(!button("✓")->isEnabled());
}

void tst_ColourEditor::returnConfirms()
{
    QSignalSpy changed(m_editor.get(), &ColourEditor::colourChanged);
    QTest::keyClick(slider(0), Qt::Key_Right);

    QTest::keyClick(slider(0), Qt::Key_Return);

    QCOMPARE(changed, (QList<QVariantList>{{QColor(146, 73, 0), false}}));
}

void tst_ColourEditor::returnWithoutADifferenceDoesNothing()
{
    QSignalSpy changed(m_editor.get(), &ColourEditor::colourChanged);

    QTest::keyClick(slider(0), Qt::Key_Return);

    QCOMPARE(changed.count(), 0);
}

void tst_ColourEditor::thePreviewFollowsTheSliders()
{
    m_editor->resize(260, 150);
    m_editor->grab();
    slider(2)->setValue(7);

    const auto *preview = m_editor->findChild<AreaFill *>();
    const QImage image = m_editor->grab(preview->geometry()).toImage();

    QCOMPARE(image.pixelColor(image.rect().center()), QColor(109, 73, 255));
}

void tst_ColourEditor::eachDarkenIsOneLevel()
{
    m_editor->setColour(Qt::white, false);
    for (int level = 6; level >= 0; --level) {
        m_editor->darken();
        QCOMPARE(levels(), (QList<int>{level, level, level}));
    }
    m_editor->darken();
    QCOMPARE(levels(), (QList<int>{0, 0, 0}));
}

void tst_ColourEditor::eachLightenIsOneLevel()
{
    m_editor->setColour(QColor(73, 73, 73), false);
    for (int level = 3; level <= 7; ++level) {
        m_editor->lighten();
        QCOMPARE(levels(), (QList<int>{level, level, level}));
    }
}

void tst_ColourEditor::darkenOnBlackDoesNothing()
{
    m_editor->setColour(Qt::black, false);

    m_editor->darken();
    m_editor->lighten();

    QCOMPARE(m_editor->colour(), QColor(Qt::black));
    QVERIFY(!button("✓")->isEnabled());
}

void tst_ColourEditor::lightenOnWhiteDoesNothing()
{
    m_editor->setColour(Qt::white, false);

    m_editor->lighten();

    QCOMPARE(m_editor->colour(), QColor(Qt::white));
    QVERIFY(!button("✓")->isEnabled());
}

void tst_ColourEditor::everythingIsReachedByTab()
{
    slider(0)->setValue(4);
    m_editor->show();
    QVERIFY(QTest::qWaitForWindowActive(m_editor.get()));
    m_editor->setFocus();
    QSet<QWidget *> reached;
    for (int count = 0; count < 20; ++count) {
        reached.insert(QApplication::focusWidget());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }

    QVERIFY(reached.contains(slider(0)) && reached.contains(slider(2)));
    QVERIFY(reached.contains(priorityBox()));
    QVERIFY(reached.contains(button("✓")) && reached.contains(button("⨉")));
}

QTEST_MAIN(tst_ColourEditor)
#include "tst_ColourEditor.moc"
