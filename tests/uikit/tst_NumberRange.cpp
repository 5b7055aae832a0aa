#include "uikit/NumberRange.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

class tst_NumberRange : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void showsOnlyAPlaceholder();
    void standsInTheMiddleInItsOrder();
    void theButtonsMoveInsideTheRange();
    void aButtonAtItsEndSendsNothing();
    void typingANumberMoves();
    void whatCannotBeTakenOnlyClearsTheEdit_data();
    void whatCannotBeTakenOnlyClearsTheEdit();
    void leavingTheEditTakesTheNumber();
    void settingTheSameValueSendsNothing();
    void settingAValueBringsItIntoTheRange();
    void aSmallerMaximumMovesTheValue();
    void aLargerMinimumMovesTheValue();
    void anEmptyRangeStandsAtItsMinimum();
    void everyPartHasAName();
    void theNumberIsSeenWithTheFocusToo();
    void oneThatGoesWithTheFocusSendsNothing();

private:
    QToolButton *button(const QString &text) const;
    QLineEdit *edit() const { return m_range->findChild<QLineEdit *>(); }
    void click(const QString &text) { QTest::mouseClick(button(text), Qt::LeftButton); }

    NumberRange *m_range = nullptr;
};

void tst_NumberRange::init()
{
    m_range = new NumberRange;
    m_range->setRange(1, 64);
    m_range->setValue(10);
}

void tst_NumberRange::cleanup()
{
    delete m_range;
}

QToolButton *tst_NumberRange::button(const QString &text) const
{
    for (QToolButton *one : m_range->findChildren<QToolButton *>()) {
        if (one->text() == text)
            return one;
    }
    return nullptr;
}

void tst_NumberRange::showsOnlyAPlaceholder()
{
    QCOMPARE(m_range->objectName(), QStringLiteral("NumberRange"));
    QCOMPARE(edit()->text(), QString());
    QCOMPARE(edit()->placeholderText(), QStringLiteral("10 / 64"));

    m_range->setMaximum(512);
    QCOMPARE(edit()->placeholderText(), QStringLiteral("10 / 512"));
}

void tst_NumberRange::standsInTheMiddleInItsOrder()
{
    const QList<const QWidget *> row{button("⇤"), button("←"), edit(), button("→"), button("⇥")};
    m_range->resize(600, 40);
    m_range->show();

    QCOMPARE(m_range->layout()->contentsMargins(), QMargins());
    for (int place = 1; place < row.size(); ++place)
        QCOMPARE(row.at(place)->x(), row.at(place - 1)->geometry().right() + 1 + 1);
    const int left = row.first()->x();
    const int right = m_range->width() - (row.last()->geometry().right() + 1);
    QVERIFY(left > 100);
    QVERIFY(qAbs(left - right) <= 1);
}

void tst_NumberRange::theButtonsMoveInsideTheRange()
{
    QSignalSpy changed(m_range, &NumberRange::currentValueChanged);

    click(QStringLiteral("→"));
    click(QStringLiteral("←"));
    click(QStringLiteral("←"));
    click(QStringLiteral("⇥"));
    click(QStringLiteral("⇤"));

    QList<int> values;
    for (const auto &arguments : changed)
        values.append(arguments.first().toInt());
    QCOMPARE(values, (QList<int>{11, 10, 9, 64, 1}));
    QCOMPARE(edit()->placeholderText(), QStringLiteral("1 / 64"));
}

void tst_NumberRange::aButtonAtItsEndSendsNothing()
{
    m_range->setValue(64);
    QSignalSpy changed(m_range, &NumberRange::currentValueChanged);

    click(QStringLiteral("→"));
    click(QStringLiteral("⇥"));
    QCOMPARE(m_range->value(), 64);
    m_range->firstButton();
    changed.clear();
    click(QStringLiteral("←"));
    click(QStringLiteral("⇤"));

    QCOMPARE(m_range->value(), 1);
    QCOMPARE(changed.count(), 0);
}

void tst_NumberRange::typingANumberMoves()
{
    QSignalSpy changed(m_range, &NumberRange::currentValueChanged);

    QTest::keyClicks(edit(), QStringLiteral("64"));
    QTest::keyClick(edit(), Qt::Key_Return);

    QCOMPARE(m_range->value(), 64);
    QCOMPARE(edit()->text(), QString());
    QCOMPARE(edit()->placeholderText(), QStringLiteral("64 / 64"));
    // Return is told by the edit both as a press and as the end of editing.
    QCOMPARE(changed, (QList<QVariantList>{{64}, {64}}));
}

void tst_NumberRange::whatCannotBeTakenOnlyClearsTheEdit_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("no number") << QStringLiteral("abc");
    QTest::newRow("number and text") << QStringLiteral("12x");
    QTest::newRow("hexadecimal") << QStringLiteral("0x10");
    QTest::newRow("fraction") << QStringLiteral("3.5");
    QTest::newRow("below") << QStringLiteral("0");
    QTest::newRow("negative") << QStringLiteral("-5");
    QTest::newRow("beyond") << QStringLiteral("65");
    QTest::newRow("overflow") << QStringLiteral("99999999999");
    QTest::newRow("empty") << QString();
}

void tst_NumberRange::whatCannotBeTakenOnlyClearsTheEdit()
{
    QFETCH(QString, text);
    QSignalSpy changed(m_range, &NumberRange::currentValueChanged);
    QTest::keyClicks(edit(), text);

    m_range->enterPressed();

    QCOMPARE(m_range->value(), 10);
    QCOMPARE(edit()->text(), QString());
    QCOMPARE(edit()->placeholderText(), QStringLiteral("10 / 64"));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().toInt(), 10);
}

void tst_NumberRange::leavingTheEditTakesTheNumber()
{
    m_range->show();
    m_range->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_range));
    edit()->setFocus();
    QTest::keyClicks(edit(), QStringLiteral("33"));

    button(QStringLiteral("→"))->setFocus();

    QCOMPARE(m_range->value(), 33);
    QCOMPARE(edit()->text(), QString());
}

void tst_NumberRange::settingTheSameValueSendsNothing()
{
    QSignalSpy changed(m_range, &NumberRange::currentValueChanged);

    m_range->setValue(10);
    m_range->setRange(1, 64);
    QCOMPARE(changed.count(), 0);

    m_range->setValue(11);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().toInt(), 11);
}

void tst_NumberRange::settingAValueBringsItIntoTheRange()
{
    m_range->setValue(1000);
    QCOMPARE(m_range->value(), 64);

    m_range->setValue(-3);
    QCOMPARE(m_range->value(), 1);
}

void tst_NumberRange::aSmallerMaximumMovesTheValue()
{
    QSignalSpy changed(m_range, &NumberRange::currentValueChanged);

    m_range->setMaximum(9);

    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().toInt(), 9);
    QCOMPARE(edit()->placeholderText(), QStringLiteral("9 / 9"));
}

void tst_NumberRange::aLargerMinimumMovesTheValue()
{
    QSignalSpy changed(m_range, &NumberRange::currentValueChanged);

    m_range->setMinimum(20);

    QCOMPARE(changed.count(), 1);
    QCOMPARE(m_range->value(), 20);
}

void tst_NumberRange::anEmptyRangeStandsAtItsMinimum()
{
    m_range->setRange(1, 0);

    QCOMPARE(m_range->value(), 1);
    m_range->nextButton();
    m_range->lastButton();
    QCOMPARE(m_range->value(), 1);
}

void tst_NumberRange::everyPartHasAName()
{
    QCOMPARE(button(QStringLiteral("⇤"))->accessibleName(), QStringLiteral("First"));
    QCOMPARE(button(QStringLiteral("←"))->accessibleName(), QStringLiteral("Previous"));
    QCOMPARE(button(QStringLiteral("→"))->accessibleName(), QStringLiteral("Next"));
    QCOMPARE(button(QStringLiteral("⇥"))->accessibleName(), QStringLiteral("Last"));
    QCOMPARE(edit()->accessibleName(), QStringLiteral("Number"));
    QCOMPARE(edit()->alignment() & Qt::AlignHorizontal_Mask, Qt::AlignHCenter);
}

void tst_NumberRange::theNumberIsSeenWithTheFocusToo()
{
    QApplication::setCursorFlashTime(0); // a blink would be a difference
    const auto seen = [this] { return edit()->grab().toImage(); };
    m_range->show();
    m_range->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_range));
    edit()->setFocus();
    QVERIFY(edit()->hasFocus());

    const QImage tenth = seen();
    m_range->setValue(57);
    QVERIFY(seen() != tenth);
    QTest::keyClick(edit(), Qt::Key_1);
    m_range->setMaximum(99);
    const QImage typed = seen();
    m_range->setMaximum(88);

    QCOMPARE(seen(), typed);
}

void tst_NumberRange::oneThatGoesWithTheFocusSendsNothing()
{
    m_range->show();
    m_range->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_range));
    edit()->setFocus();
    QTest::keyClick(edit(), Qt::Key_5);
    QCOMPARE(edit()->text(), QStringLiteral("5"));
    const QSignalSpy changed(m_range, &NumberRange::currentValueChanged);

    delete m_range;
    m_range = nullptr;

    QCOMPARE(changed.count(), 0);
}

QTEST_MAIN(tst_NumberRange)
#include "tst_NumberRange.moc"
