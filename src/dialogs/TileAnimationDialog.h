#pragma once

#include "dialogs/DialogBase.h"
#include "model/TileSet.h"

#include <QList>
#include <QPointer>
#include <QUuid>

class DocumentCombo;
class QLineEdit;

/// Asks for the name and the tile set of a new block list.
class TileAnimationDialog : public DialogBase
{
    Q_OBJECT

public:
    explicit TileAnimationDialog(QWidget *parent = nullptr);

    /// Offers the tile set of @p id first, if it is one of the choice.
    void chooseTileSet(const QUuid &id);

public slots:
    /// Opens with an empty name and a choice of @p sets. With none of them there it tells so in a
    /// box, which blocks until it is closed, and does not open.
    void show(QList<QPointer<TileSet>> sets);
    void accept() override;

signals:
    void accepted(QString name, QUuid tileSetId);

private:
    QLineEdit *m_name;
    DocumentCombo *m_tileSets;
};
