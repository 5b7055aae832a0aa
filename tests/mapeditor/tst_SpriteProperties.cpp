#include "mapeditor/SpriteProperties.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

using MapEditor::SpriteProperties;

class tst_SpriteProperties : public QObject
{
    Q_OBJECT

private slots:
    void startsDisabledWithoutSprite();
    void theRowsStandInOrder();
    void theSpinsKeepTheirRanges_data();
    void theSpinsKeepTheirRanges();
    void aSpriteFillsTheFormAndSendsNothing();
    void everyEditorSendsTheEditedCopy();
    void anUnchangedValueSendsNothing();

private:
    static Map::PlacedSprite sample();
};

Map::PlacedSprite tst_SpriteProperties::sample()
{
    Map::PlacedSprite sprite;
    sprite.bank = QUuid::createUuid();
    sprite.sprite = 3;
    sprite.x = 40;
    sprite.y = 50;
    sprite.name = QStringLiteral("Bat");
    sprite.flip = true;
    sprite.startFrame = 2;
    sprite.initialDelay = 30;
    sprite.repeatDelay = 400;
    sprite.paletteOffset = 5;
    return sprite;
}

void tst_SpriteProperties::startsDisabledWithoutSprite()
{
    const SpriteProperties form;

    QVERIFY(!form.isEnabled());
    QCOMPARE(form.sprite().sprite, -1);
    QCOMPARE(form.layout()->contentsMargins(), QMargins());
}

void tst_SpriteProperties::theRowsStandInOrder()
{
    const SpriteProperties form;
    const auto *layout = qobject_cast<QFormLayout *>(form.layout());
    QVERIFY(layout);
    QStringList rows;

    for (int row = 0; row < layout->rowCount(); ++row) {
        auto *field = layout->itemAt(row, QFormLayout::FieldRole)->widget();
        const auto *label = qobject_cast<QLabel *>(layout->labelForField(field));
        const auto *box = qobject_cast<QCheckBox *>(field);
        const QString text = box ? box->text() : label ? label->text() : QString();
        rows.append(text + QLatin1Char('/') + field->objectName());
    }

    QCOMPARE(rows, QStringList({"Name/name", "Mirror/mirror", "Flip/flip", "Rotate/rotate",
                                "Start frame/startFrame", "Initial delay/initialDelay",
                                "Repeat delay/repeatDelay", "Palette offset/paletteOffset"}));
}

void tst_SpriteProperties::theSpinsKeepTheirRanges_data()
{
    QTest::addColumn<int>("maximum");
    QTest::newRow("startFrame") << 255;
    QTest::newRow("initialDelay") << 9999;
    QTest::newRow("repeatDelay") << 9999;
    QTest::newRow("paletteOffset") << 15;
}

void tst_SpriteProperties::theSpinsKeepTheirRanges()
{
    const SpriteProperties form;
    const auto *spin = form.findChild<QSpinBox *>(QLatin1String(QTest::currentDataTag()));
    QVERIFY(spin);

    QCOMPARE(spin->minimum(), 0);
    QTEST(spin->maximum(), "maximum");
}

void tst_SpriteProperties::aSpriteFillsTheFormAndSendsNothing()
{
    SpriteProperties form;
    QSignalSpy edited(&form, &SpriteProperties::spriteEdited);

    form.setSprite(sample());

    QVERIFY(form.isEnabled());
    QCOMPARE(form.findChild<QLineEdit *>("name")->text(), QStringLiteral("Bat"));
    QVERIFY(!form.findChild<QCheckBox *>("mirror")->isChecked());
    QVERIFY(form.findChild<QCheckBox *>("flip")->isChecked());
    QVERIFY(!form.findChild<QCheckBox *>("rotate")->isChecked());
    QCOMPARE(form.findChild<QSpinBox *>("startFrame")->value(), 2);
    QCOMPARE(form.findChild<QSpinBox *>("initialDelay")->value(), 30);
    QCOMPARE(form.findChild<QSpinBox *>("repeatDelay")->value(), 400);
    QCOMPARE(form.findChild<QSpinBox *>("paletteOffset")->value(), 5);
    QCOMPARE(edited.count(), 0);
}

void tst_SpriteProperties::everyEditorSendsTheEditedCopy()
{
    SpriteProperties form;
    Map::PlacedSprite expected = sample();
    form.setSprite(expected);
    QSignalSpy edited(&form, &SpriteProperties::spriteEdited);
    const auto last = [&edited] { return edited.takeFirst().at(0).value<Map::PlacedSprite>(); };

    form.findChild<QLineEdit *>("name")->clear();
    QTest::keyClicks(form.findChild<QLineEdit *>("name"), QStringLiteral("Owl"));
    QCOMPARE(edited.count(), 0);
    QTest::keyClick(form.findChild<QLineEdit *>("name"), Qt::Key_Return);
    expected.name = QStringLiteral("Owl");
    QVERIFY(last() == expected);
    form.findChild<QCheckBox *>("mirror")->click();
    expected.mirror = true;
    QVERIFY(last() == expected);
    form.findChild<QCheckBox *>("flip")->click();
    expected.flip = false;
    QVERIFY(last() == expected);
    form.findChild<QCheckBox *>("rotate")->click();
    expected.rotate = true;
    QVERIFY(last() == expected);
    QTest::keyClick(form.findChild<QSpinBox *>("startFrame"), Qt::Key_Up);
    expected.startFrame = 3;
    QVERIFY(last() == expected);
    QTest::keyClick(form.findChild<QSpinBox *>("initialDelay"), Qt::Key_Up);
    expected.initialDelay = 31;
    QVERIFY(last() == expected);
    QTest::keyClick(form.findChild<QSpinBox *>("repeatDelay"), Qt::Key_Down);
    expected.repeatDelay = 399;
    QVERIFY(last() == expected);
    QTest::keyClick(form.findChild<QSpinBox *>("paletteOffset"), Qt::Key_Up);
    expected.paletteOffset = 6;
    QVERIFY(last() == expected);
    QCOMPARE(edited.count(), 0);
}

void tst_SpriteProperties::anUnchangedValueSendsNothing()
{
    SpriteProperties form;
    form.setSprite(sample());
    QSignalSpy edited(&form, &SpriteProperties::spriteEdited);

    QTest::keyClick(form.findChild<QLineEdit *>("name"), Qt::Key_Return);

    QCOMPARE(edited.count(), 0);
}

QTEST_MAIN(tst_SpriteProperties)

#include "tst_SpriteProperties.moc"
