#include "uikit/ThemedIcon.h"

#include <QFile>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>
#include <QTest>

namespace {

const char *const Icons[] = {
    ":/AddDoc",
    ":/AnimPlay",
    ":/AnimStop",
    ":/Arrow/Centre",
    ":/Arrow/E",
    ":/Arrow/N",
    ":/Arrow/NE",
    ":/Arrow/NW",
    ":/Arrow/S",
    ":/Arrow/SE",
    ":/Arrow/SW",
    ":/Arrow/W",
    ":/Circle",
    ":/Copy",
    ":/Crop",
    ":/Cut",
    ":/Darken",
    ":/Draw",
    ":/Erase",
    ":/ExpandToFit",
    ":/Fill",
    ":/FillCursor",
    ":/Flip",
    ":/Gradient",
    ":/Grid",
    ":/LayerObjects",
    ":/LayerSprites",
    ":/LayerTiles",
    ":/Lighten",
    ":/Line",
    ":/Media/End",
    ":/Media/Loop",
    ":/Media/Pause",
    ":/Media/PingPong",
    ":/Media/Play",
    ":/Media/Start",
    ":/Media/Stop",
    ":/Mirror",
    ":/NewIcon",
    ":/OpenIcon",
    ":/Paint",
    ":/Palette",
    ":/Paste",
    ":/Picker",
    ":/PickerCursor",
    ":/PlaceAnim",
    ":/PlaceSprite",
    ":/Rectangle",
    ":/RectangleFill",
    ":/Resize",
    ":/RotateCCW",
    ":/RotateCW",
    ":/SaveIcon",
    ":/Select",
    ":/Settings",
    ":/ToggleViewport",
    ":/Trashcan",
    ":/ZoomIn",
    ":/ZoomOut",
    ":/tb-close-document",
    ":/tb-exit-application",
    ":/tb-new-file",
    ":/tb-open-file",
    ":/tb-save-file",
    ":/tb-save-file-as",
};

const char *const Shared[][2] = {
    {":/AnimPlay", ":/Media/Play"},    {":/AnimStop", ":/Rectangle"},
    {":/LayerObjects", ":/PlaceAnim"}, {":/LayerSprites", ":/PlaceSprite"},
    {":/Media/Stop", ":/Rectangle"},   {":/NewIcon", ":/tb-new-file"},
    {":/OpenIcon", ":/tb-open-file"},  {":/SaveIcon", ":/tb-save-file"},
};

QByteArray content(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The part of a picture that is not transparent, from 0 to 1.
double coverage(const QImage &image)
{
    double sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            sum += image.pixelColor(x, y).alphaF();
    }
    return sum / (image.width() * image.height());
}

bool shares(const QString &one, const QString &other)
{
    const auto base = [](QString path) {
        for (const auto &pair : Shared)
            path = path == QLatin1String(pair[0]) ? QString::fromLatin1(pair[1]) : path;
        return path;
    };
    return base(one) == base(other);
}

} // namespace

/// The names and kinds of the compiled-in resources, which the whole program relies on.
class tst_Resources : public QObject
{
    Q_OBJECT

private slots:
    void eachIconIsTintableSvgThatDraws_data();
    void eachIconIsTintableSvgThatDraws();
    void iconsKeepClearOfTheirEdges_data();
    void iconsKeepClearOfTheirEdges();
    void iconsAreIdenticalExactlyWhereShared();
    void picturesHaveTheirSizes_data();
    void picturesHaveTheirSizes();
    void pathsWorkWithoutTheSlash();
    void theLicenceOfTheArtworkIsText();
    void cursorsHaveTheirTipAtTheHotSpot_data();
    void cursorsHaveTheirTipAtTheHotSpot();
};

void tst_Resources::eachIconIsTintableSvgThatDraws_data()
{
    QTest::addColumn<QString>("path");
    for (const char *path : Icons)
        QTest::newRow(path) << QString::fromLatin1(path);
}

void tst_Resources::eachIconIsTintableSvgThatDraws()
{
    QFETCH(QString, path);

    const QByteArray svg = content(path);
    QVERIFY(svg.startsWith("<svg"));
    QVERIFY(svg.contains("currentColor"));
    QSvgRenderer renderer(svg);
    QVERIFY(renderer.isValid());
    QCOMPARE(renderer.viewBox(), QRect(0, 0, 24, 24));

    for (const int side : {16, 24, 32}) {
        const QImage image = themedIcon(path).pixmap(QSize(side, side), 1.0).toImage();
        QCOMPARE(image.size(), QSize(side, side));
        const double inked = coverage(image);
        QVERIFY2(inked > 0.08 && inked < 0.9, qPrintable(QString::number(inked)));
    }
}

void tst_Resources::iconsKeepClearOfTheirEdges_data()
{
    eachIconIsTintableSvgThatDraws_data();
}

void tst_Resources::iconsKeepClearOfTheirEdges()
{
    QFETCH(QString, path);
    QImage image = themedIcon(path).pixmap(QSize(48, 48), 1.0).toImage();

    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.fillRect(image.rect().adjusted(1, 1, -1, -1), Qt::black);
    painter.end();

    QCOMPARE(coverage(image), 0.0);
}

void tst_Resources::iconsAreIdenticalExactlyWhereShared()
{
    for (const char *one : Icons) {
        for (const char *other : Icons) {
            const QString first = QString::fromLatin1(one);
            const QString second = QString::fromLatin1(other);
            const bool same = content(first) == content(second);
            QVERIFY2(same == shares(first, second), qPrintable(first + QLatin1Char(' ') + second));
        }
    }
}

void tst_Resources::picturesHaveTheirSizes_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QSize>("size");
    QTest::newRow("application") << QStringLiteral(":/Application") << QSize(168, 168);
    QTest::newRow("logo") << QStringLiteral(":/Logo") << QSize(707, 132);
}

void tst_Resources::picturesHaveTheirSizes()
{
    QFETCH(QString, path);
    QFETCH(QSize, size);

    const QByteArray bytes = content(path);
    QVERIFY(bytes.startsWith("\x89PNG\r\n\x1a\n"));
    const QImage image = QImage::fromData(bytes, "PNG");
    QCOMPARE(image.size(), size);
    QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
    QVERIFY(coverage(image) > 0.5);
}

void tst_Resources::pathsWorkWithoutTheSlash()
{
    QVERIFY(!QIcon(QStringLiteral(":Application")).isNull());
    QCOMPARE(QPixmap(QStringLiteral(":Application")).size(), QSize(168, 168));
    QVERIFY(!themedIcon(QStringLiteral(":Arrow/Centre")).isNull());
}

void tst_Resources::theLicenceOfTheArtworkIsText()
{
    const QString text = QString::fromUtf8(content(QStringLiteral(":/Licences/Lucide")));

    QVERIFY(text.contains(QStringLiteral("MIT License")));
    QVERIFY(text.contains(QStringLiteral("The Tessaril developers")));
}

void tst_Resources::cursorsHaveTheirTipAtTheHotSpot_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QPoint>("hotSpot");
    QTest::addColumn<QPoint>("outwards");
    QTest::newRow("fill") << QStringLiteral(":/FillCursor") << QPoint(29, 26) << QPoint(0, 1);
    QTest::newRow("pick") << QStringLiteral(":/PickerCursor") << QPoint(5, 28) << QPoint(-1, 1);
}

void tst_Resources::cursorsHaveTheirTipAtTheHotSpot()
{
    QFETCH(QString, path);
    QFETCH(QPoint, hotSpot);
    QFETCH(QPoint, outwards);

    const QImage plain = QPixmap(path).toImage();
    const QImage themed = themedIcon(path).pixmap(QSize(32, 32), 1.0).toImage();

    for (const QImage &image : {plain, themed}) {
        QCOMPARE(image.size(), QSize(32, 32));
        QVERIFY(image.pixelColor(hotSpot).alpha() > 200);
        const QPoint beyond = hotSpot + 4 * outwards;
        QVERIFY(!image.rect().contains(beyond) || image.pixelColor(beyond).alpha() < 50);
    }
}

QTEST_MAIN(tst_Resources)
#include "tst_Resources.moc"
