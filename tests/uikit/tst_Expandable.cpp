#include "uikit/Expandable.h"

#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

class tst_Expandable : public QObject
{
    Q_OBJECT

private slots:
    void startsCollapsed();
    void theHeaderShowsAndHidesTheContent();
    void expandAndCollapseMoveTheHeader();
    void aCollapsedSectionHidesItsNewContent();
    void anExpandedSectionShowsItsNewContent();
    void theOldContentIsDeleted();
    void theContentStandsBelowTheHeader();
    void survivesAContentThatDied();
};

void tst_Expandable::startsCollapsed()
{
    const Expandable section(QStringLiteral("Attributes"));

    const auto *header = section.findChild<QToolButton *>(QStringLiteral("expandableHeader"));
    QCOMPARE(header, section.header());
    QCOMPARE(header->text(), QStringLiteral("Attributes"));
    QCOMPARE(header->arrowType(), Qt::RightArrow);
    QCOMPARE(header->toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
    QCOMPARE(header->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QVERIFY(header->isCheckable());
    QVERIFY(header->autoRaise());
    QVERIFY(!section.isExpanded());
    QCOMPARE(section.layout()->spacing(), 2);
    QCOMPARE(section.layout()->contentsMargins(), QMargins());
}

void tst_Expandable::theHeaderShowsAndHidesTheContent()
{
    Expandable section;
    auto *content = new QWidget;
    section.setContent(content);
    section.show();

    QTest::mouseClick(section.header(), Qt::LeftButton);
    QVERIFY(section.isExpanded());
    QVERIFY(content->isVisible());
    QCOMPARE(section.header()->arrowType(), Qt::DownArrow);

    QTest::mouseClick(section.header(), Qt::LeftButton);
    QVERIFY(!content->isVisible());
    QCOMPARE(section.header()->arrowType(), Qt::RightArrow);
}

void tst_Expandable::expandAndCollapseMoveTheHeader()
{
    Expandable section;
    auto *content = new QWidget;
    section.setContent(content);
    section.show();

    section.expand();
    QVERIFY(section.header()->isChecked());
    QVERIFY(content->isVisible());

    section.collapse();
    QVERIFY(!section.header()->isChecked());
    QVERIFY(!content->isVisible());
}

void tst_Expandable::aCollapsedSectionHidesItsNewContent()
{
    Expandable section;
    section.setContent(new QWidget);
    section.show();
    auto *content = new QWidget;

    section.setContent(content);

    QCOMPARE(section.content(), content);
    QVERIFY(content->isHidden());
    QCOMPARE(section.header()->arrowType(), Qt::RightArrow);
}

void tst_Expandable::anExpandedSectionShowsItsNewContent()
{
    Expandable section;
    section.expand();
    section.show();
    auto *content = new QWidget;

    section.setContent(content);

    QVERIFY(content->isVisible());
    QCOMPARE(section.header()->arrowType(), Qt::DownArrow);
}

void tst_Expandable::theOldContentIsDeleted()
{
    Expandable section;
    const QPointer<QWidget> old = new QWidget;
    section.setContent(old);
    section.setContent(old);
    QVERIFY(old);

    section.setContent(new QWidget);

    QVERIFY(!old);
    QCOMPARE(section.layout()->count(), 2);
}

void tst_Expandable::theContentStandsBelowTheHeader()
{
    Expandable section;
    auto *content = new QWidget;
    content->setMinimumHeight(50);
    section.setContent(content);
    section.expand();
    section.show();

    QCOMPARE(content->y(), section.header()->geometry().bottom() + 1 + 2);
    QCOMPARE(section.header()->width(), section.width());
}

void tst_Expandable::survivesAContentThatDied()
{
    Expandable section;
    auto *content = new QWidget;
    section.setContent(content);
    delete content;

    section.expand();

    QVERIFY(!section.content());
    QVERIFY(section.isExpanded());
}

QTEST_MAIN(tst_Expandable)
#include "tst_Expandable.moc"
