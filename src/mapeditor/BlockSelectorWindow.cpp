#include "mapeditor/BlockSelectorWindow.h"

#include "editors/AnimationListWidget.h"
#include "editors/TileLooks.h"
#include "model/MapObjects.h"
#include "model/TileSet.h"
#include "uikit/PlainText.h"

#include <QComboBox>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int ReadOnlyMode = 0; // of the animation list

} // namespace

BlockSelectorWindow::BlockSelectorWindow(QWidget *parent)
    : DockWidget(parent)
    , m_listCombo(new QComboBox)
    , m_animations(new AnimationEditor::AnimationListWidget(ReadOnlyMode))
{
    setObjectName(QStringLiteral("TileListWindow"));
    showTitle();
    setPlaceholderText(tr("No tile active tile set"));
    m_listCombo->setAccessibleName(tr("Block list"));

    auto *const content = new QWidget;
    auto *const layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_listCombo);
    layout->addWidget(m_animations, 1);
    setContentWidget(content);

    m_iconUpdate.setSingleShot(true);
    connect(&m_iconUpdate, &QTimer::timeout, m_animations,
            &AnimationEditor::AnimationListWidget::updateIcons);
    connect(m_listCombo, &QComboBox::currentIndexChanged, this, &BlockSelectorWindow::changeList);
    const auto choose = [this](Animation *animation) {
        if (auto *const block = qobject_cast<TileAnimation *>(animation))
            emit selectedItemChanged(block);
    };
    connect(m_animations, &AnimationEditor::AnimationListWidget::selectedItemChanged, this, choose);
    // Since a tile was picked the map has forgotten the block that is still marked here.
    connect(m_animations, &AnimationEditor::AnimationListWidget::currentItemPressed, this, choose);
}

void BlockSelectorWindow::setTileSet(const QPointer<TileSet> &tileSet)
{
    if (m_tileSet) {
        disconnect(m_tileSet, nullptr, this, nullptr);
        disconnect(m_tileSet, nullptr, &m_iconUpdate, nullptr);
    }
    m_tileSet = tileSet;
    if (m_tileSet) {
        TileLooks::follow(m_tileSet, &m_iconUpdate);
        connect(m_tileSet, &TileSet::nameChanged, this, &BlockSelectorWindow::showTitle);
        showContent();
    } else {
        showPlaceholder();
    }
    showTitle();
    listBlocks();
}

void BlockSelectorWindow::showTitle()
{
    setWindowTitle(m_tileSet ? tr("Map Objects: %1").arg(PlainText::shown(m_tileSet->name()))
                             : tr("Map Objects"));
}

void BlockSelectorWindow::listBlocks()
{
    const auto shown = m_blockLists.value(m_listCombo->currentIndex());
    for (const auto &blocks : std::as_const(m_blockLists)) {
        if (blocks)
            disconnect(blocks, nullptr, this, nullptr);
    }
    m_blockLists.clear();
    if (m_tileSet) {
        for (const auto &blocks : m_tileSet->blockLists()) {
            if (blocks)
                m_blockLists.append(blocks);
        }
    }
    std::sort(m_blockLists.begin(), m_blockLists.end(),
              [](const auto &a, const auto &b) { return a->name() < b->name(); });
    {
        const QSignalBlocker blocker(m_listCombo);
        m_listCombo->clear();
        for (const auto &blocks : std::as_const(m_blockLists)) {
            m_listCombo->addItem(PlainText::shown(blocks->name()));
            connect(blocks, &MapObjects::animationsChanged, this,
                    [this] { changeList(m_listCombo->currentIndex()); });
            connect(blocks, &MapObjects::nameChanged, this, &BlockSelectorWindow::listBlocks);
            connect(blocks, &QObject::destroyed, this, &BlockSelectorWindow::listBlocks);
        }
        const auto place = m_blockLists.indexOf(shown);
        if (shown && place >= 0)
            m_listCombo->setCurrentIndex(static_cast<int>(place));
    }
    changeList(m_listCombo->currentIndex());
}

void BlockSelectorWindow::changeList(int index)
{
    const QSignalBlocker blocker(m_animations);
    m_animations->clear();
    const auto blocks = m_blockLists.value(index);
    if (!blocks)
        return;
    for (const auto &animation : blocks->animations())
        m_animations->addAnimation(animation, false);
}
