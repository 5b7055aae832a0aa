#include "golden/ProjectText.h"

#include "model/Project.h"
#include "store/ProjectStore.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QSignalSpy>
#include <QTest>

/// Projects saved by earlier versions of the program open with what was recorded of them.
///
/// A project that stops doing so is a fault of the reader, never of the record: records are added,
/// not changed.
class tst_GoldenProjects : public QObject
{
    Q_OBJECT

private slots:
    void opensWithItsRecordedContent_data();
    void opensWithItsRecordedContent();
    void keepsItsContentThroughASave_data();
    void keepsItsContentThroughASave();
    void thereIsOneOfEachKind();
};

namespace {

const QDir Golden(QStringLiteral(GOLDEN_FOLDER));

void addProjects()
{
    QTest::addColumn<QString>("name");
    for (const QFileInfo &file : Golden.entryInfoList({"*.tessaril"}, QDir::Files, QDir::Name))
        QTest::newRow(qPrintable(file.baseName())) << file.baseName();
}

QString pathOf(const QString &name)
{
    return Golden.filePath(name + ".tessaril");
}

QByteArray recordOf(const QString &name)
{
    return TestFiles::contents(Golden.filePath(name + ".txt"));
}

} // namespace

void tst_GoldenProjects::opensWithItsRecordedContent_data()
{
    addProjects();
}

void tst_GoldenProjects::opensWithItsRecordedContent()
{
    QFETCH(QString, name);
    ProjectStore store;

    QVERIFY(store.load(pathOf(name)));

    const QByteArray text = projectText(*store.project()).toUtf8();
    if (text != recordOf(name)) {
        QFile found(name + ".txt"); // to be looked at beside the record
        QVERIFY(found.open(QIODevice::WriteOnly) && found.write(text) == text.size());
    }
    QVERIFY2(text == recordOf(name), qPrintable(QDir::current().filePath(name + ".txt")));
}

void tst_GoldenProjects::keepsItsContentThroughASave_data()
{
    addProjects();
}

void tst_GoldenProjects::keepsItsContentThroughASave()
{
    QFETCH(QString, name);
    const QString copy = QDir::current().filePath("saved.tessaril");
    ProjectStore store;
    QVERIFY(store.load(pathOf(name)));
    store.setFileName(copy);
    QVERIFY(store.save(false));
    ProjectStore again;

    QVERIFY(again.load(copy));

    QCOMPARE(projectText(*again.project()).toUtf8(), recordOf(name));
}

void tst_GoldenProjects::thereIsOneOfEachKind()
{
    QSet<QByteArray> kinds;
    for (const QFileInfo &file : Golden.entryInfoList({"*.txt"}, QDir::Files)) {
        for (const QByteArray &line : TestFiles::contents(file.filePath()).split('\n')) {
            if (!line.startsWith(' '))
                kinds.insert(line.left(line.indexOf(" {")));
        }
    }
    for (const QByteArray kind :
         {"project", "palette", "tile set", "block list", "sprite bank", "map", "image"})
        QVERIFY2(kinds.contains(kind), kind.constData());
}

QTEST_GUILESS_MAIN(tst_GoldenProjects)
#include "tst_GoldenProjects.moc"
