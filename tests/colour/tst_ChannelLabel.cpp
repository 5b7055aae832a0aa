#include "colour/ChannelLabel.h"

#include <QTest>

class tst_ChannelLabel : public QObject
{
    Q_OBJECT

private slots:
    void showsTheWordWhereItFits();
    void showsTheFirstLetterWhereItDoesNot();
};

namespace {

// The column behind the last one that holds ink.
int inkWidth(ChannelLabel *label)
{
    const QImage image = label->grab().toImage();
    const QColor paper = image.pixelColor(image.width() - 1, 0);
    for (int x = image.width() - 1; x >= 0; --x) {
        for (int y = 0; y < image.height(); ++y) {
            if (image.pixelColor(x, y) != paper)
                return x + 1;
        }
    }
    return 0;
}

} // namespace

void tst_ChannelLabel::showsTheWordWhereItFits()
{
    ChannelLabel label(QStringLiteral("Green"));
    label.resize(200, 20);

    QVERIFY(inkWidth(&label) > label.fontMetrics().horizontalAdvance(QStringLiteral("Gre")));
}

void tst_ChannelLabel::showsTheFirstLetterWhereItDoesNot()
{
    ChannelLabel label(QStringLiteral("Green"));
    const int letter = label.fontMetrics().horizontalAdvance(QStringLiteral("G"));
    label.resize(label.fontMetrics().horizontalAdvance(QStringLiteral("Gree")), 20);

    QVERIFY(inkWidth(&label) > 0);
    QVERIFY(inkWidth(&label) <= letter + 1);
    QCOMPARE(label.text(), QStringLiteral("Green"));
    QCOMPARE(label.toolTip(), QStringLiteral("Green"));
}

QTEST_MAIN(tst_ChannelLabel)
#include "tst_ChannelLabel.moc"
