#include "uikit/SectionHeader.h"

#include <QTest>

class tst_SectionHeader : public QObject
{
    Q_OBJECT

private slots:
    void standsOffFromTheRowsAbove();
    void showsItsTitleAsPlainText();
};

void tst_SectionHeader::standsOffFromTheRowsAbove()
{
    const SectionHeader header(QStringLiteral("Updates"));

    QCOMPARE(header.contentsMargins(), QMargins(0, 10, 0, 0));
    QVERIFY(header.font().bold());
}

void tst_SectionHeader::showsItsTitleAsPlainText()
{
    const SectionHeader header(QStringLiteral("<i>Updates</i>"));

    QCOMPARE(header.text(), QStringLiteral("<i>Updates</i>"));
    QCOMPARE(header.textFormat(), Qt::PlainText);
}

QTEST_MAIN(tst_SectionHeader)
#include "tst_SectionHeader.moc"
