#include "dialogs/SpriteDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>

class tst_SpriteDialog : public QObject
{
    Q_OBJECT

private slots:
    void theFieldsHaveTheirTextsAndDefaults();
    void everyFieldHasItsRow();
    void withoutPalettesThereCanOnlyBeANewOne();
    void anExistingPaletteCanBeChosen();
    void aNameIsRequired();
    void depthAndNewPaletteAreSentAsFlags();
    void cancellingSendsNothing();
    void openingAgainStartsWithAnEmptyName();

private:
    template <typename Button>
    static Button *button(const SpriteDialog &dialog, const QString &text)
    {
        const QList<Button *> all = dialog.findChildren<Button *>();
        for (Button *candidate : all) {
            if (candidate->text() == text)
                return candidate;
        }
        return nullptr;
    }
};

void tst_SpriteDialog::theFieldsHaveTheirTextsAndDefaults()
{
    const SpriteDialog dialog;

    QCOMPARE(dialog.heading(), QString("Create a new Sprite Bank"));
    QCOMPARE(dialog.findChild<QLineEdit *>()->placeholderText(), QString("Name..."));
    QVERIFY(!button<QRadioButton>(dialog, "16 Colour Sprites")->isChecked());
    QVERIFY(button<QRadioButton>(dialog, "256 Colour Sprites")->isChecked());
    const auto *newPalette = button<QCheckBox>(dialog, "Create a new empty palette");
    QVERIFY(newPalette->isChecked());
    QVERIFY(!newPalette->isEnabled());
    QVERIFY(!dialog.findChild<QComboBox *>()->isEnabled());
}

void tst_SpriteDialog::everyFieldHasItsRow()
{
    const SpriteDialog dialog;
    const auto *form = dialog.findChild<QFormLayout *>();
    const auto rowOf = [form](QWidget *field) {
        int row = -1;
        QFormLayout::ItemRole role = QFormLayout::LabelRole;
        form->getWidgetPosition(field, &row, &role);
        return row;
    };

    QCOMPARE(rowOf(dialog.findChild<QLineEdit *>()), 0);
    QCOMPARE(rowOf(button<QRadioButton>(dialog, "16 Colour Sprites")), 1);
    QCOMPARE(rowOf(button<QRadioButton>(dialog, "256 Colour Sprites")), 2);
    QCOMPARE(rowOf(button<QCheckBox>(dialog, "Create a new empty palette")), 3);
    QCOMPARE(rowOf(dialog.findChild<QComboBox *>()), 4);
}

void tst_SpriteDialog::withoutPalettesThereCanOnlyBeANewOne()
{
    SpriteDialog dialog;

    dialog.show({});

    QVERIFY(!button<QCheckBox>(dialog, "Create a new empty palette")->isEnabled());
    QVERIFY(!dialog.findChild<QComboBox *>()->isEnabled());
}

void tst_SpriteDialog::anExistingPaletteCanBeChosen()
{
    Palette first;
    first.setName("Cave");
    Palette second;
    second.setName("Sky");
    SpriteDialog dialog;
    QSignalSpy accepted(&dialog, &SpriteDialog::accepted);

    dialog.show({&second, &first});
    QTest::mouseClick(button<QCheckBox>(dialog, "Create a new empty palette"), Qt::LeftButton,
                      Qt::NoModifier, QPoint(8, 8));
    auto *combo = dialog.findChild<QComboBox *>();
    QVERIFY(combo->isEnabled());
    combo->setCurrentText("Sky");
    QTest::keyClicks(dialog.findChild<QLineEdit *>(), "Heroes");
    QTest::keyClick(&dialog, Qt::Key_Return);

    QCOMPARE(accepted.count(), 1);
    QCOMPARE(accepted.at(0).at(0).value<SpriteDialog::CreateOptions>(),
             SpriteDialog::CreateOptions(SpriteDialog::EightBit));
    QCOMPARE(accepted.at(0).at(1).toString(), QString("Heroes"));
    QCOMPARE(accepted.at(0).at(2).toUuid(), second.id());
    QVERIFY(!dialog.isVisible());
}

void tst_SpriteDialog::aNameIsRequired()
{
    SpriteDialog dialog;
    QSignalSpy accepted(&dialog, &SpriteDialog::accepted);

    dialog.show({});
    QTest::keyClick(&dialog, Qt::Key_Return);

    QCOMPARE(dialog.error(), QString("Name is required"));
    QVERIFY(dialog.isVisible());
    QCOMPARE(accepted.count(), 0);
}

void tst_SpriteDialog::depthAndNewPaletteAreSentAsFlags()
{
    SpriteDialog dialog;
    QSignalSpy accepted(&dialog, &SpriteDialog::accepted);

    dialog.show({});
    button<QRadioButton>(dialog, "16 Colour Sprites")->click();
    QTest::keyClicks(dialog.findChild<QLineEdit *>(), "A");
    QTest::keyClick(&dialog, Qt::Key_Return);

    QCOMPARE(accepted.at(0).at(0).value<SpriteDialog::CreateOptions>(),
             SpriteDialog::CreateOptions(SpriteDialog::CreateNewPalette));
    QVERIFY(accepted.at(0).at(2).toUuid().isNull());
}

void tst_SpriteDialog::cancellingSendsNothing()
{
    SpriteDialog dialog;
    QSignalSpy accepted(&dialog, &SpriteDialog::accepted);

    dialog.show({});
    QTest::keyClicks(dialog.findChild<QLineEdit *>(), "A");
    QTest::keyClick(&dialog, Qt::Key_Escape);

    QVERIFY(!dialog.isVisible());
    QCOMPARE(accepted.count(), 0);
}

void tst_SpriteDialog::openingAgainStartsWithAnEmptyName()
{
    Palette palette;
    SpriteDialog dialog;
    dialog.show({&palette});
    QTest::keyClicks(dialog.findChild<QLineEdit *>(), "A");
    button<QCheckBox>(dialog, "Create a new empty palette")->click();
    dialog.reject();

    dialog.show({&palette});

    QVERIFY(dialog.findChild<QLineEdit *>()->text().isEmpty());
    QVERIFY(button<QCheckBox>(dialog, "Create a new empty palette")->isChecked());
    QVERIFY(!dialog.findChild<QComboBox *>()->isEnabled());
}

QTEST_MAIN(tst_SpriteDialog)
#include "tst_SpriteDialog.moc"
