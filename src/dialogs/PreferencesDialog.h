#pragma once

#include <QDialog>
#include <QHash>
#include <QJsonDocument>
#include <QPointer>

class BasePreferencesPage;
class GeneralPage;
class MapEditorPage;
class QDialogButtonBox;
class QListWidget;
class QStackedWidget;

/// The preferences: a list of pages and the page selected.
///
/// The widgets of the pages are the values, and a change counts at once. Cancel brings back what
/// was there when the dialog was shown.
class PreferencesDialog : public QDialog
{
    Q_OBJECT

public:
    explicit PreferencesDialog(QWidget *parent = nullptr);

    GeneralPage *generalPage() const { return m_general; }
    MapEditorPage *mapEditorPage() const { return m_mapEditor; }

    /// One member for each page, by the key it is registered with.
    QJsonDocument snapshot() const;
    /// Hands each page its member of @p document; a page that has none gets an empty object.
    /// Nothing happens if the document is null or empty.
    void restore(const QJsonDocument &document);

    void setVisible(bool visible) override;

public slots:
    void reject() override;

protected:
    void showEvent(QShowEvent *event) override;

private slots:
    void changePage();

private:
    void addPage(const QString &key, BasePreferencesPage *page);
    void fitListToItsItems();

    QDialogButtonBox *m_buttons;
    QListWidget *m_list;
    QStackedWidget *m_stack;
    GeneralPage *m_general;
    MapEditorPage *m_mapEditor;
    QHash<QString, QPointer<BasePreferencesPage>> m_pages;
    QJsonDocument m_snapshot;
};
