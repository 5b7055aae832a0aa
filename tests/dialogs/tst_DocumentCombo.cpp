#include "dialogs/DocumentCombo.h"

#include "model/Palette.h"

#include <QTest>

class tst_DocumentCombo : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void listsNamesInOrderWithTheirIds();
    void leavesOutWhatHasVanished();
    void keepsTheCurrentDocument();
    void startsOnTheFirstEntry();
    void takesADocumentThatItHolds();
    void anEmptyListHasNoId();
    void keepsTheChoicesInFront();

private:
    QPointer<Palette> palette(const QString &name);

    QObject m_owner;
};

void tst_DocumentCombo::init()
{
    qDeleteAll(m_owner.children());
}

QPointer<Palette> tst_DocumentCombo::palette(const QString &name)
{
    auto *made = new Palette(&m_owner);
    made->setName(name);
    return made;
}

void tst_DocumentCombo::listsNamesInOrderWithTheirIds()
{
    DocumentCombo combo;
    const auto zebra = palette(QStringLiteral("Zebra"));
    const auto ant = palette(QStringLiteral("ant"));
    const auto bee = palette(QStringLiteral("Bee"));

    combo.setDocuments(QList<QPointer<Palette>>{zebra, ant, bee});

    QCOMPARE(combo.count(), 3);
    QCOMPARE(combo.itemText(0), QStringLiteral("ant"));
    QCOMPARE(combo.itemText(1), QStringLiteral("Bee"));
    QCOMPARE(combo.itemText(2), QStringLiteral("Zebra"));
    QCOMPARE(combo.itemData(2).toUuid(), zebra->id());
    QCOMPARE(combo.currentId(), ant->id());
}

void tst_DocumentCombo::leavesOutWhatHasVanished()
{
    DocumentCombo combo;
    auto gone = palette(QStringLiteral("Gone"));
    const QList<QPointer<Palette>> list{gone, palette(QStringLiteral("Here"))};
    delete gone;

    combo.setDocuments(list);

    QCOMPARE(combo.count(), 1);
    QCOMPARE(combo.itemText(0), QStringLiteral("Here"));
}

void tst_DocumentCombo::keepsTheCurrentDocument()
{
    DocumentCombo combo;
    const auto one = palette(QStringLiteral("One"));
    const auto two = palette(QStringLiteral("Two"));
    combo.setDocuments(QList<QPointer<Palette>>{one, two});
    combo.setCurrentIndex(1);

    for (const auto &name : {QStringLiteral("A new name"), QStringLiteral("Zero")}) {
        two->setName(name);
        combo.setDocuments(QList<QPointer<Palette>>{one, two});

        QCOMPARE(combo.currentId(), two->id());
        QCOMPARE(combo.currentText(), name);
    }
}

void tst_DocumentCombo::startsOnTheFirstEntry()
{
    DocumentCombo combo;
    const auto old = palette(QStringLiteral("Old"));
    const auto fresh = palette(QStringLiteral("Fresh"));
    combo.setDocuments(QList<QPointer<Palette>>{old});

    combo.setDocuments(QList<QPointer<Palette>>{fresh});

    QCOMPARE(combo.currentId(), fresh->id());
}

void tst_DocumentCombo::anEmptyListHasNoId()
{
    DocumentCombo combo;
    combo.setDocuments(QList<QPointer<Palette>>{palette(QStringLiteral("One"))});

    combo.setDocuments(QList<QPointer<Palette>>{});

    QCOMPARE(combo.count(), 0);
    QCOMPARE(combo.currentText(), QString());
    QVERIFY(combo.currentId().isNull());
}

void tst_DocumentCombo::keepsTheChoicesInFront()
{
    DocumentCombo combo;
    combo.addChoice(QStringLiteral("* New"), {});
    const auto one = palette(QStringLiteral("!"));
    combo.setDocuments(QList<QPointer<Palette>>{one}, 1);

    combo.setDocuments(QList<QPointer<Palette>>{one}, 1);

    QCOMPARE(combo.count(), 2);
    QCOMPARE(combo.itemText(0), QStringLiteral("* New"));
    QCOMPARE(combo.itemText(1), QStringLiteral("!"));
    QCOMPARE(combo.currentIndex(), 0);
}

void tst_DocumentCombo::takesADocumentThatItHolds()
{
    DocumentCombo combo;
    const auto ant = palette(QStringLiteral("ant"));
    const auto bee = palette(QStringLiteral("bee"));
    combo.setDocuments(QList<QPointer<Palette>>{ant, bee});

    combo.setCurrentId(bee->id());
    QCOMPARE(combo.currentId(), bee->id());
    combo.setCurrentId(QUuid::createUuid());

    QCOMPARE(combo.currentId(), bee->id());
}

QTEST_MAIN(tst_DocumentCombo)
#include "tst_DocumentCombo.moc"
