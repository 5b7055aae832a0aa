#include "uikit/ThemedIcon.h"
#include "uikit/ThemedIconEngine.h"

#include <QFile>
#include <QGuiApplication>
#include <QListWidget>
#include <QPainter>
#include <QPixmapCache>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

#include <memory>

namespace {

constexpr QSize Small(24, 24);
const QColor Normal(0x11, 0x22, 0x33);
const QColor Disabled(0x99, 0x88, 0x77);
const QColor Selected(0xee, 0xdd, 0xcc);
const QColor Other(0x12, 0x99, 0x56);

/// A full square, so that every pixel shows the colour.
const QByteArray Square = R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 24 24">)"
                          R"(<rect width="24" height="24" fill="currentColor"/></svg>)";

QPalette palette(QColor normal)
{
    QPalette result;
    result.setColor(QPalette::Active, QPalette::ButtonText, normal);
    result.setColor(QPalette::Inactive, QPalette::ButtonText, Qt::cyan);
    result.setColor(QPalette::Disabled, QPalette::ButtonText, Disabled);
    result.setColor(QPalette::Active, QPalette::HighlightedText, Selected);
    result.setColor(QPalette::Inactive, QPalette::HighlightedText, Qt::magenta);
    return result;
}

QColor middle(const QPixmap &pixmap)
{
    return pixmap.toImage().pixelColor(pixmap.width() / 2, pixmap.height() / 2);
}

QString cacheKey(const QString &path, int width, int height, QColor colour)
{
    return QStringLiteral("themed:") + path + QLatin1Char(':') + QString::number(width) +
           QLatin1Char('x') + QString::number(height) + QLatin1Char(':') +
           QString::number(colour.rgba());
}

} // namespace

class tst_ThemedIconEngine : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void eachModeHasItsColour_data();
    void eachModeHasItsColour();
    void aDisabledButtonShowsTheDisabledColour();
    void aSelectedItemShowsTheHighlightedTextColour();
    void everyOccurrenceIsTinted();
    void theAlphaOfThePaletteIsLeftOut();
    void anSvgWithoutCurrentColorIsUnchanged();
    void aNewPaletteGivesTheNewColour();
    void aNewPaletteGivesANewCacheKey();
    void aCachedPixmapIsReturned();
    void pixmapIsScaleOne();
    void scaleTwoHasTwiceThePixelsAndItsOwnEntry();
    void scaledSizesAreRounded_data();
    void scaledSizesAreRounded();
    void sharedPixelsKeepTheRatioAskedFor();
    void actualSizeIsTheSizeAskedFor();
    void keyIsTheClassName();
    void aCloneHasPathAndSource();
    void theSourceIsReadOnce();
    void aMissingPathIsNull();
    void aMissingPathIsTriedAgain();
    void aMissingPathPaintsNothing();
    void paintFillsTheRectangleAndNoMore();
    void theHelperKeepsThePath();

private:
    QString write(const QString &name, const QByteArray &svg);

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_square;
};

void tst_ThemedIconEngine::init()
{
    QPixmapCache::clear();
    QGuiApplication::setPalette(palette(Normal));
    m_folder = std::make_unique<QTemporaryDir>();
    m_square = write(QStringLiteral("square.svg"), Square);
}

void tst_ThemedIconEngine::cleanup()
{
    QGuiApplication::setPalette(QPalette());
}

QString tst_ThemedIconEngine::write(const QString &name, const QByteArray &svg)
{
    const QString path = m_folder->filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(svg) != svg.size())
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

void tst_ThemedIconEngine::eachModeHasItsColour_data()
{
    QTest::addColumn<QIcon::Mode>("mode");
    QTest::addColumn<QIcon::State>("state");
    QTest::addColumn<QColor>("colour");
    for (const QIcon::State state : {QIcon::Off, QIcon::On}) {
        const char *suffix = state == QIcon::On ? "on" : "off";
        QTest::addRow("normal %s", suffix) << QIcon::Normal << state << Normal;
        QTest::addRow("active %s", suffix) << QIcon::Active << state << Normal;
        QTest::addRow("disabled %s", suffix) << QIcon::Disabled << state << Disabled;
        QTest::addRow("selected %s", suffix) << QIcon::Selected << state << Selected;
    }
}

void tst_ThemedIconEngine::eachModeHasItsColour()
{
    QFETCH(QIcon::Mode, mode);
    QFETCH(QIcon::State, state);
    QFETCH(QColor, colour);
    ThemedIconEngine engine(m_square);

    QCOMPARE(middle(engine.pixmap(Small, mode, state)), colour);
}

void tst_ThemedIconEngine::aDisabledButtonShowsTheDisabledColour()
{
    QToolButton button;
    button.setIcon(themedIcon(m_square));
    button.setIconSize(Small);
    button.resize(48, 48);

    QCOMPARE(middle(button.grab()), Normal);
    button.setEnabled(false);
    QCOMPARE(middle(button.grab()), Disabled);
}

void tst_ThemedIconEngine::aSelectedItemShowsTheHighlightedTextColour()
{
    QListWidget list;
    list.setIconSize(Small);
    auto *item = new QListWidgetItem(themedIcon(m_square), QString(), &list);
    list.resize(100, 60);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    const auto iconColour = [&list, item] {
        const QRect row = list.visualItemRect(item);
        return list.viewport()->grab().toImage().pixelColor(row.left() + 14, row.center().y());
    };

    QCOMPARE(iconColour(), Normal);
    item->setSelected(true);
    QCOMPARE(iconColour(), Selected);
}

void tst_ThemedIconEngine::everyOccurrenceIsTinted()
{
    const QString path =
        write(QStringLiteral("two.svg"),
              R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 24 24">)"
              R"(<rect width="12" height="24" fill="currentColor"/>)"
              R"(<rect x="12" width="12" height="24" fill="currentColor"/></svg>)");
    ThemedIconEngine engine(path);

    const QImage image = engine.pixmap(Small, QIcon::Normal, QIcon::Off).toImage();

    QCOMPARE(image.pixelColor(4, 12), Normal);
    QCOMPARE(image.pixelColor(20, 12), Normal);
}

void tst_ThemedIconEngine::theAlphaOfThePaletteIsLeftOut()
{
    QGuiApplication::setPalette(palette(QColor(0x11, 0x22, 0x33, 0x40)));
    ThemedIconEngine engine(m_square);

    QCOMPARE(middle(engine.pixmap(Small, QIcon::Normal, QIcon::Off)), Normal);
}

void tst_ThemedIconEngine::anSvgWithoutCurrentColorIsUnchanged()
{
    QByteArray svg = Square;
    svg.replace("currentColor", "#ff8000");
    ThemedIconEngine engine(write(QStringLiteral("orange.svg"), svg));

    for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Disabled, QIcon::Selected})
        QCOMPARE(middle(engine.pixmap(Small, mode, QIcon::Off)), QColor(0xff, 0x80, 0x00));
}

void tst_ThemedIconEngine::aNewPaletteGivesTheNewColour()
{
    const QIcon icon = themedIcon(m_square);
    QCOMPARE(middle(icon.pixmap(Small)), Normal);

    QGuiApplication::setPalette(palette(Other));

    QCOMPARE(middle(icon.pixmap(Small)), Other);
    QPixmap canvas(Small);
    QPainter painter(&canvas);
    icon.paint(&painter, canvas.rect());
    painter.end();
    QCOMPARE(middle(canvas), Other);
}

void tst_ThemedIconEngine::aNewPaletteGivesANewCacheKey()
{
    ThemedIconEngine engine(m_square);
    engine.pixmap(Small, QIcon::Normal, QIcon::Off);
    QPixmap found;
    QVERIFY(QPixmapCache::find(cacheKey(m_square, 24, 24, Normal), &found));
    QVERIFY(!QPixmapCache::find(cacheKey(m_square, 24, 24, Other), &found));

    QGuiApplication::setPalette(palette(Other));
    engine.pixmap(Small, QIcon::Normal, QIcon::Off);

    QVERIFY(QPixmapCache::find(cacheKey(m_square, 24, 24, Normal), &found));
    QVERIFY(QPixmapCache::find(cacheKey(m_square, 24, 24, Other), &found));
}

void tst_ThemedIconEngine::aCachedPixmapIsReturned()
{
    QPixmap planted(Small);
    planted.fill(Qt::yellow);
    QPixmapCache::insert(cacheKey(m_square, 24, 24, Normal), planted);
    ThemedIconEngine engine(m_square);

    const QPixmap pixmap = engine.pixmap(Small, QIcon::Normal, QIcon::On);

    QCOMPARE(pixmap.cacheKey(), planted.cacheKey());
    QCOMPARE(middle(pixmap), QColor(Qt::yellow));
}

void tst_ThemedIconEngine::pixmapIsScaleOne()
{
    ThemedIconEngine engine(m_square);

    const QPixmap pixmap = engine.pixmap(QSize(20, 30), QIcon::Normal, QIcon::Off);

    QCOMPARE(pixmap.size(), QSize(20, 30));
    QCOMPARE(pixmap.devicePixelRatio(), 1.0);
    const QPixmap again = engine.scaledPixmap(QSize(20, 30), QIcon::Normal, QIcon::Off, 1.0);
    QCOMPARE(again.cacheKey(), pixmap.cacheKey());
}

void tst_ThemedIconEngine::scaleTwoHasTwiceThePixelsAndItsOwnEntry()
{
    ThemedIconEngine engine(m_square);
    const QPixmap one = engine.scaledPixmap(Small, QIcon::Normal, QIcon::Off, 1.0);

    const QPixmap two = engine.scaledPixmap(Small, QIcon::Normal, QIcon::Off, 2.0);

    QCOMPARE(two.size(), QSize(48, 48));
    QCOMPARE(two.devicePixelRatio(), 2.0);
    QPixmap found;
    QVERIFY(QPixmapCache::find(cacheKey(m_square, 24, 24, Normal), &found));
    QCOMPARE(found.cacheKey(), one.cacheKey());
    QVERIFY(QPixmapCache::find(cacheKey(m_square, 48, 48, Normal), &found));
    QCOMPARE(found.cacheKey(), two.cacheKey());
}

void tst_ThemedIconEngine::scaledSizesAreRounded_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<qreal>("scale");
    QTest::addColumn<QSize>("pixels");
    QTest::newRow("down") << QSize(17, 15) << 1.25 << QSize(21, 19);
    QTest::newRow("up") << QSize(15, 17) << 1.5 << QSize(23, 26);
}

void tst_ThemedIconEngine::scaledSizesAreRounded()
{
    QFETCH(QSize, size);
    QFETCH(qreal, scale);
    QFETCH(QSize, pixels);
    ThemedIconEngine engine(m_square);

    const QPixmap pixmap = engine.scaledPixmap(size, QIcon::Normal, QIcon::Off, scale);

    QCOMPARE(pixmap.size(), pixels);
    QCOMPARE(pixmap.devicePixelRatio(), scale);
}

void tst_ThemedIconEngine::sharedPixelsKeepTheRatioAskedFor()
{
    ThemedIconEngine engine(m_square);
    const QPixmap large = engine.scaledPixmap(QSize(48, 48), QIcon::Normal, QIcon::Off, 1.0);

    const QPixmap sharp = engine.scaledPixmap(Small, QIcon::Normal, QIcon::Off, 2.0);

    QCOMPARE(large.devicePixelRatio(), 1.0);
    QCOMPARE(sharp.size(), QSize(48, 48));
    QCOMPARE(sharp.devicePixelRatio(), 2.0);
}

void tst_ThemedIconEngine::actualSizeIsTheSizeAskedFor()
{
    ThemedIconEngine engine(m_square);

    QCOMPARE(engine.actualSize(QSize(7, 300), QIcon::Disabled, QIcon::On), QSize(7, 300));
}

void tst_ThemedIconEngine::keyIsTheClassName()
{
    QCOMPARE(ThemedIconEngine(m_square).key(), QStringLiteral("ThemedIconEngine"));
}

void tst_ThemedIconEngine::aCloneHasPathAndSource()
{
    ThemedIconEngine engine(m_square);
    QVERIFY(!engine.isNull());
    const std::unique_ptr<QIconEngine> clone(engine.clone());
    QVERIFY(QFile::remove(m_square));

    QVERIFY(dynamic_cast<ThemedIconEngine *>(clone.get()) != nullptr);
    QCOMPARE(middle(clone->pixmap(Small, QIcon::Normal, QIcon::Off)), Normal);
    QPixmap found;
    QVERIFY(QPixmapCache::find(cacheKey(m_square, 24, 24, Normal), &found));
}

void tst_ThemedIconEngine::theSourceIsReadOnce()
{
    ThemedIconEngine engine(m_square);
    engine.pixmap(Small, QIcon::Normal, QIcon::Off);
    QVERIFY(QFile::remove(m_square));

    QCOMPARE(middle(engine.pixmap(QSize(32, 32), QIcon::Normal, QIcon::Off)), Normal);
}

void tst_ThemedIconEngine::aMissingPathIsNull()
{
    QVERIFY(themedIcon(QStringLiteral(":/NoSuchIcon")).isNull());
    QVERIFY(!themedIcon(m_square).isNull());
}

void tst_ThemedIconEngine::aMissingPathIsTriedAgain()
{
    const QString path = m_folder->filePath(QStringLiteral("late.svg"));
    ThemedIconEngine engine(path);
    QVERIFY(engine.isNull());

    write(QStringLiteral("late.svg"), Square);

    QVERIFY(!engine.isNull());
}

void tst_ThemedIconEngine::aMissingPathPaintsNothing()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    ThemedIconEngine engine(QStringLiteral(":/NoSuchIcon"));

    const QPixmap pixmap = engine.pixmap(Small, QIcon::Normal, QIcon::Off);

    QCOMPARE(pixmap.size(), Small);
    QCOMPARE(middle(pixmap).alpha(), 0);
}

void tst_ThemedIconEngine::paintFillsTheRectangleAndNoMore()
{
    QImage canvas(40, 40, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::white);
    QPainter painter(&canvas);
    ThemedIconEngine(m_square).paint(&painter, QRect(10, 5, 20, 30), QIcon::Normal, QIcon::Off);
    painter.end();

    QCOMPARE(canvas.pixelColor(10, 5), Normal);
    QCOMPARE(canvas.pixelColor(29, 34), Normal);
    QCOMPARE(canvas.pixelColor(9, 20), QColor(Qt::white));
    QCOMPARE(canvas.pixelColor(30, 20), QColor(Qt::white));
    QCOMPARE(canvas.pixelColor(20, 4), QColor(Qt::white));
    QCOMPARE(canvas.pixelColor(20, 35), QColor(Qt::white));
}

void tst_ThemedIconEngine::theHelperKeepsThePath()
{
    const QIcon icon = themedIcon(QStringLiteral(":/Paint"));
    QVERIFY(!icon.isNull());

    icon.pixmap(Small);

    QPixmap found;
    QVERIFY(QPixmapCache::find(cacheKey(QStringLiteral(":/Paint"), 24, 24, Normal), &found));
}

QTEST_MAIN(tst_ThemedIconEngine)
#include "tst_ThemedIconEngine.moc"
