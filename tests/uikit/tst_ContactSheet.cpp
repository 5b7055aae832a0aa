#include "tour/ContactSheet.h"

#include <QGuiApplication>
#include <QTemporaryDir>
#include <QTest>

class tst_ContactSheet : public QObject
{
    Q_OBJECT

private slots:
    void listsTheArtworkAndNothingElse();
    void showsTheIconsInTheColoursOfThePalette();
    void leavesThePaletteOfTheProgramAlone();
    void writesBothSheets();
    void failsWhereItCannotWrite();
};

void tst_ContactSheet::listsTheArtworkAndNothingElse()
{
    const QStringList paths = ContactSheet::iconPaths();

    QCOMPARE(paths.size(), 65);
    QVERIFY(paths.contains(QStringLiteral(":/Arrow/NW")));
    QVERIFY(paths.contains(QStringLiteral(":/tb-exit-application")));
    QVERIFY(!paths.contains(QStringLiteral(":/Logo")));
    QVERIFY(!paths.contains(QStringLiteral(":/Licences/Lucide")));
}

void tst_ContactSheet::showsTheIconsInTheColoursOfThePalette()
{
    QPalette palette = ContactSheet::lightPalette();
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(0x00c800));

    const QImage sheet = ContactSheet::draw(palette);

    QHash<QRgb, int> pixels;
    for (int y = 0; y < sheet.height(); ++y) {
        for (int x = 0; x < sheet.width(); ++x)
            ++pixels[sheet.pixel(x, y)];
    }
    QVERIFY(pixels.value(0xff00c800) > 65 * 10);
    QVERIFY(pixels.value(palette.color(QPalette::Window).rgb()) > pixels.value(0xff00c800));
    QVERIFY(pixels.value(palette.color(QPalette::Highlight).rgb()) > 65 * 100);
}

void tst_ContactSheet::leavesThePaletteOfTheProgramAlone()
{
    const QColor before = QGuiApplication::palette().color(QPalette::ButtonText);

    ContactSheet::draw(ContactSheet::darkPalette());

    QCOMPARE(QGuiApplication::palette().color(QPalette::ButtonText), before);
}

void tst_ContactSheet::writesBothSheets()
{
    const QTemporaryDir folder;
    const QString target = folder.filePath(QStringLiteral("new/tour"));

    QVERIFY(ContactSheet::write(target));

    const QImage light(target + QStringLiteral("/icons-light.png"));
    const QImage dark(target + QStringLiteral("/icons-dark.png"));
    QVERIFY(!light.isNull());
    QCOMPARE(light.size(), dark.size());
    QVERIFY(qGray(light.pixel(0, 0)) > 200);
    QVERIFY(qGray(dark.pixel(0, 0)) < 80);
}

void tst_ContactSheet::failsWhereItCannotWrite()
{
    QVERIFY(!ContactSheet::write(QStringLiteral("/dev/null/tour")));
}

QTEST_MAIN(tst_ContactSheet)
#include "tst_ContactSheet.moc"
