#include "control/DocumentTabView.h"

#include "control/DocumentTabBar.h"
#include "mapeditor/View.h"
#include "uikit/FocusEntry.h"
#include "uikit/PlainText.h"

#include <utility>

namespace {

constexpr auto TypeProperty = "document_type";
constexpr auto IdProperty = "document_id";

} // namespace

DocumentTabView::DocumentTabView(QWidget *parent)
    : QTabWidget(parent)
    , m_bar(new DocumentTabBar(this))
    , m_scratchEditor(this)
{
    setTabBar(m_bar);
    setTabsClosable(true);
    setDocumentMode(true);
    setElideMode(Qt::ElideRight);
    setTabBarAutoHide(true);
    tabBar()->setAutoHide(false); // wins over the line above: a single tab shows, too
    tabBar()->setUsesScrollButtons(true);
    tabBar()->setExpanding(true);
    tabBar()->setMovable(true);

    m_scratchEditor.hide();
    m_scratchEditor.setProperty(TypeProperty, static_cast<int>(DocumentType::Scratch));
    connect(this, &QTabWidget::tabCloseRequested, this, &DocumentTabView::closeTab);
    connect(this, &QTabWidget::currentChanged, this, &DocumentTabView::currentIndexChanged);
}

DocumentTabView::~DocumentTabView()
{
    disconnect(this, nullptr, this, nullptr);
    const int scratch = indexOf(&m_scratchEditor);
    if (scratch >= 0)
        removeTab(scratch);
    m_scratchEditor.setParent(nullptr); // a member, not one of the pages to delete
}

void DocumentTabView::addDocument(QWidget *view, DocumentType type, const QUuid &id,
                                  const QString &text)
{
    // Before the tab exists: the first one is current at once, and says so.
    view->setProperty(IdProperty, id);
    view->setProperty(TypeProperty, static_cast<int>(type));
    setCurrentIndex(addTab(view, PlainText::label(text)));
    enterCurrent();
}

void DocumentTabView::enterCurrent()
{
    QWidget *const view = currentWidget();
    if (QWidget *const entry = view ? FocusEntry::of(view) : nullptr)
        entry->setFocus(Qt::OtherFocusReason);
}

void DocumentTabView::setDocumentText(const QUuid &id, const QString &text)
{
    setTabText(indexOfDocument(id), PlainText::label(text));
}

int DocumentTabView::indexOfDocument(const QUuid &id) const
{
    for (int i = 0; i < count(); ++i) {
        const QVariant document = widget(i)->property(IdProperty);
        if (document.isValid() && document.toUuid() == id)
            return i;
    }
    return -1;
}

void DocumentTabView::closeDocument(const QUuid &id)
{
    const int index = indexOfDocument(id);
    if (index >= 0)
        delete widget(index);
}

QList<QUuid> DocumentTabView::documentIds() const
{
    QList<QUuid> ids;
    for (int i = 0; i < count(); ++i)
        ids.append(widget(i)->property(IdProperty).toUuid());
    return ids;
}

QList<MapEditor::View *> DocumentTabView::mapViews() const
{
    QList<MapEditor::View *> views;
    for (int i = 0; i < count(); ++i) {
        if (auto *const view = qobject_cast<MapEditor::View *>(widget(i)))
            views.append(view);
    }
    return views;
}

void DocumentTabView::closeAll()
{
    while (count() > 0)
        closeTab(0);
}

void DocumentTabView::closeTab(int index)
{
    QWidget *const view = widget(index);
    if (view == &m_scratchEditor)
        removeTab(index);
    else
        delete view;
}

void DocumentTabView::currentIndexChanged(int index)
{
    const QWidget *const view = widget(index);
    if (!view)
        return;
    bool isNumber = false;
    const int type = view->property(TypeProperty).toInt(&isNumber);
    if (!isNumber)
        return;

    const QUuid id = QUuid::fromString(view->property(IdProperty).toString());
    switch (static_cast<DocumentType>(type)) {
    case DocumentType::Map:
        emit MapEditorActivated(id);
        break;
    case DocumentType::Scratch:
        emit ScratchEditorActivated();
        break;
    case DocumentType::Image:
        emit ImageEditorActivated(id);
        break;
    case DocumentType::Sprites:
        emit SpriteEditorActivated(id);
        break;
    case DocumentType::Blocks:
        emit BlockEditorActivated(id);
        break;
    }
}

void DocumentTabView::setScratchEditorVisible(bool visible)
{
    const int index = indexOf(&m_scratchEditor);
    if (index >= 0 || !visible) {
        removeTab(index);
        return;
    }
    setCurrentIndex(addTab(&m_scratchEditor, tr("Scratch Image Editor")));
    enterCurrent();
}

void DocumentTabView::tabInserted(int index)
{
    QTabWidget::tabInserted(index);
    for (const auto side : {QTabBar::LeftSide, QTabBar::RightSide}) {
        if (QWidget *const button = tabBar()->tabButton(index, side))
            button->setAccessibleName(tr("Close Tab"));
    }
    noteScratchEditor();
}

void DocumentTabView::tabRemoved(int index)
{
    QTabWidget::tabRemoved(index);
    noteScratchEditor();
}

void DocumentTabView::noteScratchEditor()
{
    const bool shown = indexOf(&m_scratchEditor) >= 0;
    if (std::exchange(m_isScratchShown, shown) != shown)
        emit scratchEditorShown(shown);
}
