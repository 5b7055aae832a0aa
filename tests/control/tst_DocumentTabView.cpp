#include "canvas/Canvas.h"
#include "control/DocumentTabView.h"
#include "mapeditor/View.h"

#include <QApplication>
#include <QHelpEvent>
#include <QLineEdit>
#include <QPointer>
#include <QSignalSpy>
#include <QTabBar>
#include <QTest>
#include <QToolButton>
#include <QToolTip>

using Type = DocumentTabView::DocumentType;

class tst_DocumentTabView : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_tabs = std::make_unique<DocumentTabView>(); }
    void isSetUpForDocuments();
    void aSingleTabStillShowsItsBar();
    void aDocumentBearsItsIdAndType();
    void aNameIsShownWithItsAmpersands();
    void activationNamesTheDocument_data();
    void activationNamesTheDocument();
    void theFirstTabIsAnnouncedToo();
    void tabsWithoutATypeAreNotAnnounced();
    void findsAndClosesByDocument();
    void closingDeletesAllButTheScratchEditor();
    void theScratchEditorComesAndGoes();
    void whatComesHasTheFocus();
    void everyWayOfTheScratchTabIsTold();
    void documentsAreListedInTabOrder();
    void mapViewsAreFound();
    void manyTabsScrollBeforeTheirTextsAreLost();
    void aShortenedTextIsWholeInItsToolTip();
    void endsCleanlyWithTheScratchEditorOpen();

private:
    QWidget *add(Type type, const QUuid &id)
    {
        auto *const view = new QWidget;
        m_tabs->addDocument(view, type, id, "text");
        return view;
    }

    std::unique_ptr<DocumentTabView> m_tabs;
    const QUuid m_first = QUuid::createUuid();
    const QUuid m_second = QUuid::createUuid();
};

void tst_DocumentTabView::isSetUpForDocuments()
{
    QVERIFY(m_tabs->tabsClosable());
    QVERIFY(m_tabs->documentMode());
    QCOMPARE(m_tabs->elideMode(), Qt::ElideRight);
    QVERIFY(m_tabs->tabBar()->usesScrollButtons());
    QVERIFY(m_tabs->tabBar()->expanding());
    QVERIFY(m_tabs->tabBar()->isMovable());
    QCOMPARE(m_tabs->count(), 0);
    QVERIFY(m_tabs->scratchEditor()->isHidden());
}

void tst_DocumentTabView::aSingleTabStillShowsItsBar()
{
    add(Type::Map, m_first);
    m_tabs->resize(400, 300);
    m_tabs->show();

    QVERIFY(!m_tabs->tabBar()->autoHide());
    QVERIFY(m_tabs->tabBar()->isVisible());
}

void tst_DocumentTabView::aDocumentBearsItsIdAndType()
{
    QWidget *const view = add(Type::Sprites, m_first);

    QCOMPARE(view->property("document_id").toUuid(), m_first);
    QCOMPARE(view->property("document_type").toInt(), 3);
    QCOMPARE(m_tabs->tabText(0), QString("text"));
    QCOMPARE(m_tabs->scratchEditor()->property("document_type").toInt(), 1);
    QVERIFY(!m_tabs->scratchEditor()->property("document_id").isValid());
}

void tst_DocumentTabView::aNameIsShownWithItsAmpersands()
{
    auto *const plain = new QWidget;
    m_tabs->addDocument(plain, Type::Map, m_first, "Salt & Pepper");

    // Two of them show one, and none marks a key.
    QCOMPARE(m_tabs->tabText(0), QString("Salt && Pepper"));
    QVERIFY(QKeySequence::mnemonic(m_tabs->tabText(0)).isEmpty());
}

void tst_DocumentTabView::activationNamesTheDocument_data()
{
    QTest::addColumn<Type>("type");
    QTest::newRow("map") << Type::Map;
    QTest::newRow("scratch") << Type::Scratch;
    QTest::newRow("image") << Type::Image;
    QTest::newRow("sprites") << Type::Sprites;
    QTest::newRow("blocks") << Type::Blocks;
}

void tst_DocumentTabView::activationNamesTheDocument()
{
    QFETCH(Type, type);
    add(type, m_first);
    add(Type::Map, m_second);
    QSignalSpy spies[] = {QSignalSpy(m_tabs.get(), &DocumentTabView::MapEditorActivated),
                          QSignalSpy(m_tabs.get(), &DocumentTabView::ScratchEditorActivated),
                          QSignalSpy(m_tabs.get(), &DocumentTabView::ImageEditorActivated),
                          QSignalSpy(m_tabs.get(), &DocumentTabView::SpriteEditorActivated),
                          QSignalSpy(m_tabs.get(), &DocumentTabView::BlockEditorActivated)};

    m_tabs->setCurrentIndex(0);

    for (int i = 0; i < 5; ++i) {
        QCOMPARE(spies[i].count(), i == static_cast<int>(type) ? 1 : 0);
        if (!spies[i].isEmpty() && type != Type::Scratch)
            QCOMPARE(spies[i].first().first().toUuid(), m_first);
    }
}

void tst_DocumentTabView::theFirstTabIsAnnouncedToo()
{
    QSignalSpy activated(m_tabs.get(), &DocumentTabView::MapEditorActivated);

    add(Type::Map, m_first);

    QCOMPARE(activated.count(), 1);
    QCOMPARE(activated.first().first().toUuid(), m_first);
}

void tst_DocumentTabView::tabsWithoutATypeAreNotAnnounced()
{
    QSignalSpy activated(m_tabs.get(), &DocumentTabView::MapEditorActivated);

    m_tabs->addTab(new QWidget, "plain");

    QCOMPARE(activated.count(), 0);
}

void tst_DocumentTabView::findsAndClosesByDocument()
{
    const QPointer<QWidget> first = add(Type::Map, m_first);
    const QPointer<QWidget> second = add(Type::Image, m_second);
    QCOMPARE(m_tabs->indexOfDocument(m_second), 1);
    QCOMPARE(m_tabs->documentWidget(m_second), second.data());
    QCOMPARE(m_tabs->indexOfDocument(QUuid::createUuid()), -1);

    m_tabs->closeDocument(m_first);
    m_tabs->closeDocument(QUuid::createUuid());

    QVERIFY(!first);
    QVERIFY(second);
    QCOMPARE(m_tabs->indexOfDocument(m_second), 0);
}

void tst_DocumentTabView::closingDeletesAllButTheScratchEditor()
{
    const QPointer<QWidget> view = add(Type::Map, m_first);
    m_tabs->setScratchEditorVisible(true);
    const QPointer<QWidget> scratch = m_tabs->scratchEditor();

    m_tabs->closeTab(m_tabs->indexOf(scratch));
    QVERIFY(scratch);
    QCOMPARE(m_tabs->count(), 1);
    emit m_tabs->tabCloseRequested(0);

    QVERIFY(!view);
    QCOMPARE(m_tabs->count(), 0);
}

void tst_DocumentTabView::theScratchEditorComesAndGoes()
{
    m_tabs->setScratchEditorVisible(false);
    QCOMPARE(m_tabs->count(), 0);

    m_tabs->setScratchEditorVisible(true);
    QCOMPARE(m_tabs->currentWidget(), m_tabs->scratchEditor());
    QCOMPARE(m_tabs->tabText(0), QString("Scratch Image Editor"));
    m_tabs->setScratchEditorVisible(false);

    QCOMPARE(m_tabs->count(), 0);
}

void tst_DocumentTabView::everyWayOfTheScratchTabIsTold()
{
    QSignalSpy shown(m_tabs.get(), &DocumentTabView::scratchEditorShown);
    add(Type::Map, m_first);
    m_tabs->setScratchEditorVisible(true);
    QCOMPARE(shown, QList<QVariantList>({{true}}));
    add(Type::Image, m_second);
    m_tabs->closeDocument(m_first);
    QCOMPARE(shown, QList<QVariantList>({{true}}));

    m_tabs->closeTab(m_tabs->indexOf(m_tabs->scratchEditor())); // not the one in front
    QCOMPARE(shown, QList<QVariantList>({{true}, {false}}));
    m_tabs->setScratchEditorVisible(true);
    m_tabs->closeAll();

    QCOMPARE(shown, QList<QVariantList>({{true}, {false}, {true}, {false}}));
}

void tst_DocumentTabView::whatComesHasTheFocus()
{
    m_tabs->show();
    m_tabs->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_tabs.get()));

    auto *const first = new QWidget;
    first->setFocusPolicy(Qt::StrongFocus);
    m_tabs->addDocument(first, Type::Map, m_first, "text");
    QVERIFY(first->hasFocus());
    auto *const second = new QWidget;
    auto *const field = new QLineEdit(second);
    m_tabs->addDocument(second, Type::Sprites, m_second, "text");
    QVERIFY(field->hasFocus());
    m_tabs->setScratchEditorVisible(true);
    QVERIFY(m_tabs->scratchEditor()->canvas()->hasFocus());

    // The keys of the bar go from tab to tab.
    m_tabs->tabBar()->setFocus();
    QTest::keyClick(m_tabs->tabBar(), Qt::Key_Left);
    QCOMPARE(m_tabs->currentWidget(), second);
    QVERIFY(m_tabs->tabBar()->hasFocus());
}

void tst_DocumentTabView::documentsAreListedInTabOrder()
{
    add(Type::Map, m_first);
    m_tabs->setScratchEditorVisible(true);
    add(Type::Image, m_second);
    m_tabs->tabBar()->moveTab(2, 0);

    QCOMPARE(m_tabs->documentIds(), QList<QUuid>({m_second, m_first, QUuid()}));
}

void tst_DocumentTabView::mapViewsAreFound()
{
    auto *const map = new MapEditor::View;
    m_tabs->addDocument(map, Type::Map, m_first, "map");
    add(Type::Image, m_second);

    QCOMPARE(m_tabs->mapViews(), QList<MapEditor::View *>({map}));
}

void tst_DocumentTabView::manyTabsScrollBeforeTheirTextsAreLost()
{
    for (int i = 0; i < 6; ++i) {
        add(Type::Map, QUuid::createUuid());
        m_tabs->setTabText(i,
                           i % 2 ? QStringLiteral("A Rather Long Level") : QStringLiteral("Moor"));
    }
    m_tabs->resize(400, 300);
    m_tabs->show();

    const QTabBar *const bar = m_tabs->tabBar();
    const QFontMetrics letters = bar->fontMetrics();
    const int closeButton = bar->tabButton(0, QTabBar::RightSide)->width();
    for (int i = 0; i < 6; ++i) {
        const int room = bar->tabRect(i).width() - closeButton;
        QVERIFY(room > letters.horizontalAdvance(i % 2 ? "A Rather…" : "Moor"));
    }
    QVERIFY(bar->tabRect(1).width() < 2 * letters.horizontalAdvance("A Rather Long Level"));
    QVERIFY(bar->findChild<QToolButton *>()->isVisible());
}

void tst_DocumentTabView::aShortenedTextIsWholeInItsToolTip()
{
    const auto hover = [this](int index) {
        QTabBar *const bar = m_tabs->tabBar();
        const QPoint place = bar->tabRect(index).center();
        QHelpEvent help(QEvent::ToolTip, place, bar->mapToGlobal(place));
        QApplication::sendEvent(bar, &help);
        return QToolTip::text();
    };
    add(Type::Map, m_first);
    add(Type::Map, m_second);
    m_tabs->setTabText(0, "<i>The First Level</i> of a Rather Long Name");
    m_tabs->setTabText(1, "Moor");
    m_tabs->resize(900, 300);
    m_tabs->show();
    QCOMPARE(hover(0), QString());

    m_tabs->resize(200, 300);

    QCOMPARE(hover(1), QString());
    QCOMPARE(hover(0), QStringLiteral("&lt;i&gt;The First Level&lt;/i&gt; of a Rather Long Name"));
}

void tst_DocumentTabView::endsCleanlyWithTheScratchEditorOpen()
{
    add(Type::Map, m_first);
    m_tabs->setScratchEditorVisible(true);

    m_tabs.reset();

    QVERIFY(!m_tabs);
}

QTEST_MAIN(tst_DocumentTabView)
#include "tst_DocumentTabView.moc"
