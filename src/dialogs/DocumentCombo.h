#pragma once

#include <QComboBox>
#include <QList>
#include <QPointer>
#include <QUuid>

#include <utility>

/// A combo box of documents: their names, in alphabetical order, with their ids as data.
///
/// In front of them may stand choices of its own, each with a reserved id.
class DocumentCombo : public QComboBox
{
    Q_OBJECT

public:
    explicit DocumentCombo(QWidget *parent = nullptr);

    /// Adds an entry behind those that are there.
    void addChoice(const QString &text, const QUuid &id);
    /// The id of the current entry, null if there is none.
    QUuid currentId() const;
    /// Makes the entry of @p id current; without one all stays.
    void setCurrentId(const QUuid &id);

    /// Replaces all documents from entry @p first on by @p documents; vanished ones are left out.
    /// The current id stays current if it is still there, else the first entry is.
    template <typename Document>
    void setDocuments(const QList<QPointer<Document>> &documents, int first = 0)
    {
        QList<Entry> entries;
        for (const QPointer<Document> &document : documents) {
            if (document)
                entries.append({document->name(), document->id()});
        }
        setEntries(std::move(entries), first);
    }

private:
    struct Entry
    {
        QString name;
        QUuid id;
    };

    void setEntries(QList<Entry> entries, int first);
};
