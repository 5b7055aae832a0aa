#include "editors/FrameTools.h"

#include "editors/FrameEditorFixture.h"
#include "uikit/ToolPalette.h"

#include <QAction>
#include <QSignalSpy>
#include <QTest>

namespace FrameTools = AnimationEditor::FrameTools;
using Tool = Tessaril::Ui::ToolButton;

class tst_FrameTools : public QObject, private FrameEditorFixture
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { close(); }

    void addsZoomAndCheckableFlags();
    void eachToolWritesItsOwnFlag_data();
    void eachToolWritesItsOwnFlag();
    void zoomsTheFrame();
    void leavesOtherToolsToTheOwner();
    void showsTheFlagsOfTheSelectedCell();

private:
    std::unique_ptr<FrameEditorWidget> m_frame;
    std::unique_ptr<ToolPalette> m_tools;
};

void tst_FrameTools::init()
{
    open();
    m_frame = std::make_unique<FrameEditorWidget>();
    m_frame->setAnimation(m_walk);
    m_tools = std::make_unique<ToolPalette>();
    FrameTools::add(m_tools.get(), m_frame.get(), m_tools.get());
}

void tst_FrameTools::addsZoomAndCheckableFlags()
{
    for (const Tool zoom : {Tool::ZoomIn, Tool::ZoomOut})
        QVERIFY(!m_tools->action(zoom)->isCheckable());
    for (const Tool flag : {Tool::RotateCW, Tool::Flip, Tool::Mirror})
        QVERIFY(m_tools->action(flag)->isCheckable());
    QVERIFY(!m_tools->action(Tool::Draw));
}

void tst_FrameTools::eachToolWritesItsOwnFlag_data()
{
    QTest::addColumn<Tool>("tool");
    QTest::addColumn<QList<bool>>("flags"); // rotate, flip, mirror

    QTest::newRow("rotate") << Tool::RotateCW << QList<bool>({true, false, false});
    QTest::newRow("flip") << Tool::Flip << QList<bool>({false, true, false});
    QTest::newRow("mirror") << Tool::Mirror << QList<bool>({false, false, true});
}

void tst_FrameTools::eachToolWritesItsOwnFlag()
{
    QFETCH(Tool, tool);
    QFETCH(QList<bool>, flags);
    QTest::mouseClick(m_frame.get(), Qt::LeftButton, {}, middle(1, 0));

    QVERIFY(FrameTools::use(m_frame.get(), tool, true));
    QCOMPARE(QList<bool>({cell(1, 0).rotate, cell(1, 0).flip, cell(1, 0).mirror}), flags);
    QVERIFY(FrameTools::use(m_frame.get(), tool, false));
    QCOMPARE(cell(1, 0), Cell());
}

void tst_FrameTools::zoomsTheFrame()
{
    QVERIFY(FrameTools::use(m_frame.get(), Tool::ZoomIn, false));
    QCOMPARE(m_frame->scale(), 16);
    QVERIFY(FrameTools::use(m_frame.get(), Tool::ZoomOut, false));
    QCOMPARE(m_frame->scale(), 8);
}

void tst_FrameTools::leavesOtherToolsToTheOwner()
{
    QSignalSpy changed(m_walk, &Animation::frameChanged);
    QTest::mouseClick(m_frame.get(), Qt::LeftButton, {}, middle(1, 0));

    for (const Tool tool : {Tool::Draw, Tool::PaintPalette, Tool::RotateCCW, Tool::Grid})
        QVERIFY(!FrameTools::use(m_frame.get(), tool, true));

    QCOMPARE(changed.count(), 0);
    QCOMPARE(m_frame->scale(), 8);
}

void tst_FrameTools::showsTheFlagsOfTheSelectedCell()
{
    m_walk->frame(0)->setCell({1, 0}, {.flip = true, .rotate = true});
    const auto shown = [this] {
        FrameTools::showSelectedCell(*m_tools, *m_frame);
        return QList<bool>({m_tools->action(Tool::RotateCW)->isChecked(),
                            m_tools->action(Tool::Flip)->isChecked(),
                            m_tools->action(Tool::Mirror)->isChecked()});
    };

    QCOMPARE(shown(), QList<bool>({false, false, false}));
    QTest::mouseClick(m_frame.get(), Qt::LeftButton, {}, middle(1, 0));
    QCOMPARE(shown(), QList<bool>({true, true, false}));
    m_frame->selectNone();
    QCOMPARE(shown(), QList<bool>({false, false, false}));
}

QTEST_MAIN(tst_FrameTools)
#include "tst_FrameTools.moc"
