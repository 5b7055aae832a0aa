#pragma once

#include "canvas/View.h"

#include <QList>
#include <QTabWidget>
#include <QUuid>

class DocumentTabBar;

namespace MapEditor {
class View;
}

/// The tabs of the open documents. Owns their widgets; the scratch editor is kept for the next
/// project.
///
/// A tab's widget bears the kind and the id of its document as the dynamic properties
/// "document_type" and "document_id".
class DocumentTabView : public QTabWidget
{
    Q_OBJECT

public:
    /// The values of "document_type".
    enum class DocumentType { Map = 0, Scratch = 1, Image = 2, Sprites = 3, Blocks = 4 };
    Q_ENUM(DocumentType)

    explicit DocumentTabView(QWidget *parent = nullptr);
    ~DocumentTabView() override;

    /// Adds a tab for a document, makes it current and enters it. It shows @p text as it is.
    void addDocument(QWidget *view, DocumentType type, const QUuid &id, const QString &text);

    /// Gives the focus to the tab in front, whose keys work then.
    void enterCurrent();

    /// Shows @p text as it is on the tab of a document, if it has one.
    void setDocumentText(const QUuid &id, const QString &text);
    /// The tab of a document, or -1.
    int indexOfDocument(const QUuid &id) const;
    /// The widget of a document's tab, or null.
    QWidget *documentWidget(const QUuid &id) const { return widget(indexOfDocument(id)); }
    /// Deletes the tab of a document, if it has one.
    void closeDocument(const QUuid &id);
    /// The documents of all tabs in their order; null for the scratch editor.
    QList<QUuid> documentIds() const;
    QList<MapEditor::View *> mapViews() const;
    /// Deletes every tab but the scratch editor, which is only taken out.
    void closeAll();

    ImageEditor::View *scratchEditor() { return &m_scratchEditor; }

signals:
    void MapEditorActivated(QUuid id);
    void ScratchEditorActivated();
    void ImageEditorActivated(QUuid id);
    void SpriteEditorActivated(QUuid id);
    void BlockEditorActivated(QUuid id);
    void showAnimPicker();
    /// The scratch editor's tab has come or gone.
    void scratchEditorShown(bool shown);

public slots:
    void closeTab(int index);
    /// Says which document came to the front.
    void currentIndexChanged(int index);
    void setScratchEditorVisible(bool visible);

protected:
    /// Names the button that closes the tab.
    void tabInserted(int index) override;
    void tabRemoved(int index) override;

private:
    void noteScratchEditor();

    DocumentTabBar *m_bar; // made before the scratch editor, also for the tab order
    ImageEditor::View m_scratchEditor;
    bool m_isScratchShown = false;
};
