#include "uikit/PlainText.h"

#include <QTest>
#include <QTextDocument>

class tst_PlainText : public QObject
{
    Q_OBJECT

private slots:
    void aLabelShowsItsAmpersands_data();
    void aLabelShowsItsAmpersands();
    void aLongNameIsShownByItsBeginning();
    void aToolTipShowsItsText_data();
    void aToolTipShowsItsText();
};

void tst_PlainText::aLabelShowsItsAmpersands_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("label");

    QTest::newRow("none") << "cave"
                          << "cave";
    QTest::newRow("one") << "salt & pepper"
                         << "salt && pepper";
    QTest::newRow("two") << "&&"
                         << "&&&&";
}

void tst_PlainText::aLabelShowsItsAmpersands()
{
    QFETCH(QString, text);

    QTEST(PlainText::label(text), "label");
}

void tst_PlainText::aLongNameIsShownByItsBeginning()
{
    const QString longest(500, u'n');

    QCOMPARE(PlainText::shown(longest), longest);
    QCOMPARE(PlainText::shown(longest + "n"), longest + QChar(0x2026));
    QCOMPARE(PlainText::label(longest + "&"), longest + QChar(0x2026));
}

void tst_PlainText::aToolTipShowsItsText_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("plain") << "cave";
    QTest::newRow("an ampersand") << "/R&D/salt & pepper.tessaril";
    QTest::newRow("markup") << "<b>bold</b>";
    QTest::newRow("both") << "R&D <i>x</i> &amp;";
    QTest::newRow("an escape") << "&lt;b&gt;";
    QTest::newRow("less than") << "a < b";
}

void tst_PlainText::aToolTipShowsItsText()
{
    QFETCH(QString, text);

    // As a tool tip reads what it is given.
    const QString tip = PlainText::toolTip(text);
    QTextDocument document;
    if (Qt::mightBeRichText(tip))
        document.setHtml(tip);
    else
        document.setPlainText(tip);

    QCOMPARE(document.toPlainText(), text);
}

QTEST_GUILESS_MAIN(tst_PlainText)
#include "tst_PlainText.moc"
