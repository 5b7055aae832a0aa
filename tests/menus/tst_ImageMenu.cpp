#include "MenuWindow.h"
#include "model/Image.h"
#include "model/Palette.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>

class tst_ImageMenu : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_window.reset(); }

    void thePaletteListBeginsWithTheTwoNewOnes();
    void theFirstEntryMakesABlankPaletteOfTheName();
    void theSecondEntryMakesADefaultPaletteOfTheName();
    void anExistingPaletteIsUsed();
    void cancellingMakesNothing();

private:
    QWidget *openDialog();
    QComboBox *paletteList(const QWidget *dialog) const;
    Project *project() const { return m_window->project(); }

    std::unique_ptr<MenuWindow> m_window;
};

void tst_ImageMenu::init()
{
    m_window = std::make_unique<MenuWindow>();
}

QWidget *tst_ImageMenu::openDialog()
{
    MenuWindow::item(m_window->bar()->imageMenu(), "New Image")->trigger();
    return QApplication::activeModalWidget();
}

QComboBox *tst_ImageMenu::paletteList(const QWidget *dialog) const
{
    const QList<QComboBox *> all = dialog->findChildren<QComboBox *>();
    for (QComboBox *list : all) {
        if (list->itemText(0).startsWith("* "))
            return list;
    }
    return nullptr;
}

void tst_ImageMenu::thePaletteListBeginsWithTheTwoNewOnes()
{
    project()->createPalette(CreateBlank, "Sky");

    const QComboBox *list = paletteList(openDialog());

    QVERIFY(list);
    QCOMPARE(list->count(), 3);
    QCOMPARE(list->itemText(0), QString("* Create a new empty palette"));
    QCOMPARE(list->itemText(1), QString("* Default Next colours"));
    QCOMPARE(list->itemText(2), QString("Sky"));
}

void tst_ImageMenu::theFirstEntryMakesABlankPaletteOfTheName()
{
    QWidget *dialog = openDialog();
    QTest::keyClicks(dialog->findChild<QLineEdit *>(), "Title");
    QTest::keyClick(dialog, Qt::Key_Return);

    QCOMPARE(project()->images().size(), 1);
    const QPointer<Image> image = project()->images().first();
    QCOMPARE(image->name(), QString("Title"));
    QCOMPARE(image->image().size(), QSize(256, 192));
    QCOMPARE(project()->paletteNames(), QStringList("Title"));
    QCOMPARE(image->palette(), project()->palettes().first());
    QCOMPARE(image->palette()->word(255), quint16(0));
}

void tst_ImageMenu::theSecondEntryMakesADefaultPaletteOfTheName()
{
    QWidget *dialog = openDialog();
    QTest::keyClicks(dialog->findChild<QLineEdit *>(), "Title");
    paletteList(dialog)->setCurrentIndex(1);
    QTest::keyClick(dialog, Qt::Key_Return);

    QCOMPARE(project()->paletteNames(), QStringList("Title"));
    QCOMPARE(project()->images().first()->palette()->word(255), quint16(0xff01));
}

void tst_ImageMenu::anExistingPaletteIsUsed()
{
    const QPointer<Palette> sky = project()->createPalette(CreateBlank, "Sky");

    QWidget *dialog = openDialog();
    QTest::keyClicks(dialog->findChild<QLineEdit *>(), "Title");
    paletteList(dialog)->setCurrentIndex(2);
    QTest::keyClick(dialog, Qt::Key_Return);

    QCOMPARE(project()->palettes().size(), 1);
    QCOMPARE(project()->images().first()->palette(), sky);
}

void tst_ImageMenu::cancellingMakesNothing()
{
    QWidget *dialog = openDialog();
    QTest::keyClicks(dialog->findChild<QLineEdit *>(), "Title");
    QTest::keyClick(dialog, Qt::Key_Escape);

    QVERIFY(project()->images().isEmpty());
    QVERIFY(project()->palettes().isEmpty());
}

QTEST_MAIN(tst_ImageMenu)
#include "tst_ImageMenu.moc"
