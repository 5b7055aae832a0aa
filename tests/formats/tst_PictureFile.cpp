#include "formats/PictureFile.h"

#include "support/TestFiles.h"

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

class tst_PictureFile : public QObject
{
    Q_OBJECT

private slots:
    void readsAPictureOfAnyFormat_data();
    void readsAPictureOfAnyFormat();
    void readsAPictureUnderAnotherFormatsName();
    void refusesWhatIsNoPicture_data();
    void refusesWhatIsNoPicture();
    void refusesMorePixelsThanAConversionCanHold();

private:
    QString path(const QString &name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
};

void tst_PictureFile::readsAPictureOfAnyFormat_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"a.png", "a.bmp", "a.ppm", "a.xpm"})
        QTest::newRow(name) << name;
}

void tst_PictureFile::readsAPictureOfAnyFormat()
{
    QFETCH(QString, name);
    QImage image(5, 4, QImage::Format_RGB32);
    image.fill(qRgb(10, 20, 30));
    QVERIFY(image.save(path(name)));

    const QImage read = PictureFile::read(path(name));

    QCOMPARE(read.size(), QSize(5, 4));
    QCOMPARE(read.pixel(4, 3), qRgb(10, 20, 30));
}

void tst_PictureFile::readsAPictureUnderAnotherFormatsName()
{
    QVERIFY(QImage(5, 4, QImage::Format_RGB32).save(path("b.bmp"), "png"));

    QCOMPARE(PictureFile::read(path("b.bmp")).size(), QSize(5, 4));
}

void tst_PictureFile::refusesWhatIsNoPicture_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("missing") << "missing.png";
    QTest::newRow("folder") << ".";
    QTest::newRow("empty") << "empty.png";
    QTest::newRow("pipe") << "pipe.png";
}

void tst_PictureFile::refusesWhatIsNoPicture()
{
    QFETCH(QString, name);
    QVERIFY(TestFiles::make(path("empty.png"), QByteArray()));
    mkfifo(QFile::encodeName(path("pipe.png")).constData(), 0600);

    QVERIFY(PictureFile::read(path(name)).isNull());
}

void tst_PictureFile::refusesMorePixelsThanAConversionCanHold()
{
    // One bit a pixel: 4 MiB that a conversion to 32 bits would turn into 128 MiB and a line.
    QImage image(8192, 4097, QImage::Format_Mono);
    image.fill(0);
    QVERIFY(image.save(path("large.png")));
    QVERIFY(image.copy(0, 0, 8192, 4096).save(path("fits.png")));
    const QRegularExpression refusal("exceeds the current allocation limit of 128 megabytes");
    QTest::ignoreMessage(QtWarningMsg, refusal);

    QVERIFY(PictureFile::read(path("large.png")).isNull());
    QCOMPARE(PictureFile::read(path("fits.png")).size(), QSize(8192, 4096));
}

QTEST_GUILESS_MAIN(tst_PictureFile)
#include "tst_PictureFile.moc"
