#include "dialogs/PreferencesDialog.h"

#include "dialogs/GeneralPage.h"
#include "dialogs/MapEditorPage.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QJsonObject>
#include <QListWidget>
#include <QShowEvent>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace {

constexpr int Margin = 5;           // pixels
constexpr int Spacing = 5;          // pixels
constexpr int ListIconSide = 24;    // pixels
constexpr int PageStretch = 100000; // the page takes all that the list leaves

} // namespace

PreferencesDialog::PreferencesDialog(QWidget *parent)
    : QDialog(parent)
    , m_buttons(new QDialogButtonBox)
    , m_list(new QListWidget)
    , m_stack(new QStackedWidget)
    , m_general(new GeneralPage)
    , m_mapEditor(new MapEditorPage)
{
    setWindowTitle(tr("Preferences"));
    setModal(true);
    resize(800, 400);
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);
    m_list->setIconSize({ListIconSide, ListIconSide});
    m_list->setResizeMode(QListView::Adjust);
    m_list->setAccessibleName(tr("Pages"));
    connect(m_list, &QListWidget::itemSelectionChanged, this, &PreferencesDialog::changePage);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &PreferencesDialog::reject);

    auto *pages = new QHBoxLayout;
    pages->setSpacing(Spacing);
    pages->addWidget(m_list);
    pages->addWidget(m_stack, PageStretch);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(Margin, Margin, Margin, Margin);
    layout->setSpacing(Spacing);
    layout->addLayout(pages);
    layout->addWidget(m_buttons);

    addPage(QStringLiteral("general"), m_general);
    addPage(QStringLiteral("mapEditor"), m_mapEditor);
    fitListToItsItems();
}

void PreferencesDialog::addPage(const QString &key, BasePreferencesPage *page)
{
    m_list->addItem(new QListWidgetItem(page->icon(), page->title()));
    m_stack->addWidget(page);
    m_pages.insert(key, page);
    m_list->setCurrentRow(0);
}

void PreferencesDialog::fitListToItsItems()
{
    constexpr int Air = 16; // pixels beside the longest title
    m_list->setFixedWidth(m_list->sizeHintForColumn(0) + 2 * m_list->frameWidth() + Air);
}

void PreferencesDialog::changePage()
{
    const QList<QListWidgetItem *> selected = m_list->selectedItems();
    if (selected.isEmpty())
        return;

    for (const auto &page : std::as_const(m_pages)) {
        if (page && page->title() == selected.first()->text())
            m_stack->setCurrentWidget(page);
    }
}

QJsonDocument PreferencesDialog::snapshot() const
{
    QJsonObject all;
    for (auto page = m_pages.cbegin(); page != m_pages.cend(); ++page) {
        if (page.value())
            all.insert(page.key(), page.value()->toJson());
    }
    return QJsonDocument(all);
}

void PreferencesDialog::restore(const QJsonDocument &document)
{
    // Not QJsonDocument::isEmpty(), which is false for an object without members.
    const QJsonObject all = document.object();
    if (all.isEmpty())
        return;

    for (auto page = m_pages.cbegin(); page != m_pages.cend(); ++page) {
        if (page.value())
            page.value()->fromJson(all[page.key()].toObject());
    }
}

void PreferencesDialog::reject()
{
    restore(m_snapshot);
    m_snapshot = {};
    QDialog::reject();
}

void PreferencesDialog::setVisible(bool visible)
{
    // Not before the first show: the icons of the buttons would be a sixth of the program's start.
    // A main window that is shown also polishes the dialogs that it owns.
    if (visible && m_buttons->standardButtons() == QDialogButtonBox::NoButton)
        m_buttons->setStandardButtons(QDialogButtonBox::Save | QDialogButtonBox::Cancel);
    QDialog::setVisible(visible);
}

void PreferencesDialog::showEvent(QShowEvent *event)
{
    // Coming back from an icon is no new opening: Cancel still means what was there before.
    if (!event->spontaneous())
        m_snapshot = snapshot();
    QDialog::showEvent(event);
}
