#include "control/ActionsDesk.h"
#include "model/Map.h"
#include "model/Palette.h"
#include "model/Project.h"
#include "model/TileMap.h"
#include "model/TileSet.h"
#include "support/TestFiles.h"

#include <QApplication>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

namespace {

/// Notes the progress dialogs that get a window while it lives.
class ProgressWatch : public QObject
{
public:
    ProgressWatch() { qApp->installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const auto *dialog = qobject_cast<QProgressDialog *>(watched);
        if (dialog && event->type() == QEvent::WinIdChange) {
            labels.append(dialog->labelText());
            maximum = dialog->maximum();
            hadButton = dialog->findChild<QPushButton *>() != nullptr;
        }
        return false;
    }

    QStringList labels;
    int maximum = 0;
    bool hadButton = true;
};

} // namespace

/// ProjectActions::importMap(): what it makes, and what it tells the user.
class tst_MapImport : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_desk.reset(); }

    void fourFilesMakeThreeDocuments_data();
    void fourFilesMakeThreeDocuments();
    void aMissingSiblingIsTold_data();
    void aMissingSiblingIsTold();
    void aDamagedPaletteKeepsThePalette();
    void aBlockPastTheBlockFileKeepsWhatWasMade();
    void aPictureMakesThreeDocuments();
    void aPictureThatCannotBeReadIsTold();
    void tooManyTilesAreRefused();
    void exactlyTheMostTilesPass();
    void aFullPaletteIsTold();
    void theBoxIsPlainAndBearsTheIcon();
    void aPictureHasProgressThatCannotBeCancelled();

private:
    Project *project() const { return m_desk->project(); }
    QString path(const QString &name) const { return m_folder->filePath(name); }
    void makeFourFiles(const QByteArray &blocks);
    /// A picture of @p count different tiles of two colours, side by side in rows of 32.
    static QImage differentTiles(int count);
    QMessageBox *box() const
    {
        return qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    }
    QString documents() const;

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<ActionsDesk> m_desk;
};

void tst_MapImport::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_desk = std::make_unique<ActionsDesk>("Rescue");
}

void tst_MapImport::makeFourFiles(const QByteArray &blocks)
{
    QVERIFY(TestFiles::make(path("level.nxp"), QByteArray(512, '\x81')));
    QVERIFY(TestFiles::make(path("level.nxt"), QByteArray(32, '\x21')));
    QVERIFY(TestFiles::make(path("level.nxb"), blocks));
    QVERIFY(TestFiles::make(path("level.nxm"), QByteArray("\x02\x02\x00\x00", 4)));
}

QImage tst_MapImport::differentTiles(int count)
{
    QImage picture(32 * 8, (count + 31) / 32 * 8, QImage::Format_RGB32);
    picture.fill(Qt::black);
    for (int tile = 0; tile < count; ++tile) {
        const QPoint corner(tile % 32 * 8, tile / 32 * 8);
        // A mark off all axes of symmetry, so that a turned tile is never another one.
        picture.setPixel(corner, 0xffffffff);
        picture.setPixel(corner + QPoint(1, 0), 0xffffffff);
        picture.setPixel(corner + QPoint(0, 3), 0xffffffff);
        for (int bit = 0; bit < 10; ++bit) {
            if (tile >> bit & 1)
                picture.setPixel(corner + QPoint(2 + bit % 4, 4 + bit / 4), 0xffffffff);
        }
    }
    return picture;
}

QString tst_MapImport::documents() const
{
    return QString("%1 %2 %3")
        .arg(project()->palettes().size())
        .arg(project()->tileSets().size())
        .arg(project()->maps().size());
}

void tst_MapImport::fourFilesMakeThreeDocuments_data()
{
    QTest::addColumn<QString>("chosen");

    for (const char *suffix : {"nxm", "nxt", "nxp", "nxb"})
        QTest::newRow(suffix) << QString("level.") + suffix;
}

void tst_MapImport::fourFilesMakeThreeDocuments()
{
    QFETCH(QString, chosen);
    makeFourFiles(QByteArray("\x01\x00\x02\x00\x03\x00\x04\x00", 8));

    m_desk->actions.importMap(path(chosen));

    QVERIFY(!box());
    QCOMPARE(documents(), QString("1 1 1"));
    const QPointer<Map> map = project()->maps().first();
    QCOMPARE(map->name(), QString("level"));
    QCOMPARE(map->tileLayer()->size(), QSize(2, 2));
    QCOMPARE(map->tileLayer()->cell({1, 1}).index, 4);
}

void tst_MapImport::aMissingSiblingIsTold_data()
{
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QString>("missing");

    QTest::newRow("blocks") << "level.nxm"
                            << "level.nxb";
    QTest::newRow("palette") << "level.nxb"
                             << "level.nxp";
    QTest::newRow("suffix in capitals") << "level.NXM"
                                        << "";
}

void tst_MapImport::aMissingSiblingIsTold()
{
    QFETCH(QString, chosen);
    QFETCH(QString, missing);
    makeFourFiles(QByteArray(8, '\0'));
    if (missing.isEmpty()) {
        QVERIFY(QFile::rename(path("level.nxm"), path("level.NXM")));
    } else {
        QVERIFY(QFile::remove(path(missing)));
    }

    m_desk->actions.importMap(path(chosen));

    QVERIFY(box());
    QCOMPARE(box()->text(), QString("Import Incomplete"));
    QCOMPARE(box()->informativeText(), QString("Some of the required files are missing"));
    QCOMPARE(documents(), QString("0 0 0"));
    QVERIFY(!m_desk->control.isDirty());
}

void tst_MapImport::aDamagedPaletteKeepsThePalette()
{
    makeFourFiles(QByteArray(8, '\0'));
    QVERIFY(TestFiles::make(path("level.nxp"), QByteArray(511, '\0')));

    m_desk->actions.importMap(path("level.nxm"));

    QVERIFY(box());
    QCOMPARE(box()->informativeText(), QString("Could not import the palette data"));
    QCOMPARE(documents(), QString("1 0 0"));
    QVERIFY(m_desk->control.isDirty());
}

void tst_MapImport::aBlockPastTheBlockFileKeepsWhatWasMade()
{
    makeFourFiles(QByteArray(7, '\0'));

    m_desk->actions.importMap(path("level.nxm"));

    QVERIFY(box());
    QCOMPARE(box()->text(), QString("Import Incomplete"));
    QCOMPARE(box()->informativeText(), QString("Could not import the map data"));
    QCOMPARE(documents(), QString("1 1 1"));
    QCOMPARE(project()->maps().first()->tileLayer()->size(), QSize(2, 2));
    QVERIFY(m_desk->control.isDirty());
}

void tst_MapImport::aPictureMakesThreeDocuments()
{
    QVERIFY(differentTiles(3).save(path("scene.png")));

    m_desk->actions.importMap(path("scene.png"));

    QVERIFY(!box());
    QCOMPARE(documents(), QString("1 1 1"));
    QCOMPARE(project()->maps().first()->name(), QString("scene"));
    QCOMPARE(project()->maps().first()->tileLayer()->size(), QSize(32, 1));
}

void tst_MapImport::aPictureThatCannotBeReadIsTold()
{
    QVERIFY(TestFiles::make(path("scene.png"), "no picture"));

    m_desk->actions.importMap(path("scene.png"));

    QVERIFY(box());
    QCOMPARE(box()->text(), QString("Import Incomplete"));
    QCOMPARE(box()->informativeText(), QString("Could not read the image file"));
    QCOMPARE(documents(), QString("0 0 0"));
    QVERIFY(!m_desk->control.isDirty());
}

void tst_MapImport::tooManyTilesAreRefused()
{
    // A row of empty squares below is one tile more.
    QVERIFY(differentTiles(512).copy(0, 0, 256, 17 * 8).save(path("scene.png")));

    m_desk->actions.importMap(path("scene.png"));

    QVERIFY(box());
    QCOMPARE(box()->text(), QString("Import Incomplete"));
    QCOMPARE(box()->informativeText(),
             QString("Cannot import the image as it would need more than 512 tiles\n"
                     "513 required"));
    QCOMPARE(documents(), QString("0 0 0"));
    QVERIFY(!m_desk->control.isDirty());
}

void tst_MapImport::exactlyTheMostTilesPass()
{
    QVERIFY(differentTiles(512).save(path("scene.png")));

    m_desk->actions.importMap(path("scene.png"));

    QVERIFY(!box());
    QCOMPARE(documents(), QString("1 1 1"));
}

void tst_MapImport::aFullPaletteIsTold()
{
    QImage picture(8, 8, QImage::Format_RGB32);
    for (int pixel = 0; pixel < 64; ++pixel)
        picture.setPixel(pixel % 8, pixel / 8, qRgb(pixel % 16 * 16, pixel / 16 * 64, 0));
    QVERIFY(picture.save(path("scene.png")));
    QTest::ignoreMessage(QtWarningMsg, "Palette full!");

    m_desk->actions.importMap(path("scene.png"));

    QVERIFY(box());
    QCOMPARE(box()->text(), QString("Import Incomplete"));
    QCOMPARE(box()->informativeText(),
             QString("The palette is full, so some tiles have wrong colours"));
    QCOMPARE(documents(), QString("1 1 1"));
}

void tst_MapImport::theBoxIsPlainAndBearsTheIcon()
{
    m_desk->actions.importMap(path("missing.png"));

    QCOMPARE(box()->windowTitle(), QString("Map Editor"));
    QCOMPARE(box()->windowModality(), Qt::WindowModal);
    QCOMPARE(box()->parentWidget(), &m_desk->window);
    QCOMPARE(box()->textFormat(), Qt::PlainText);
    QCOMPARE(box()->iconPixmap().deviceIndependentSize(), QSizeF(64, 64));
    QTest::keyClick(box(), Qt::Key_Return);
    QVERIFY(!box());
}

void tst_MapImport::aPictureHasProgressThatCannotBeCancelled()
{
    QVERIFY(differentTiles(64).save(path("scene.png")));
    ProgressWatch watch;

    m_desk->actions.importMap(path("scene.png"));

    QCOMPARE(watch.labels, QStringList("Processing image"));
    QCOMPARE(watch.maximum, 64);
    QVERIFY(!watch.hadButton);
    QVERIFY(!box());
    const QWidgetList left = QApplication::topLevelWidgets();
    for (const QWidget *widget : left)
        QVERIFY(!qobject_cast<const QProgressDialog *>(widget));
}

QTEST_MAIN(tst_MapImport)
#include "tst_MapImport.moc"
