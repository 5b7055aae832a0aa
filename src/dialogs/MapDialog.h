#pragma once

#include "dialogs/DialogBase.h"
#include "model/TileSet.h"

#include <QList>
#include <QPointer>
#include <QUuid>

class DocumentCombo;
class QLineEdit;
class QSpinBox;

/// Asks for the name, the size in cells and the tile set of a new map.
class MapDialog : public DialogBase
{
    Q_OBJECT

public:
    explicit MapDialog(QWidget *parent = nullptr);

    /// Offers the tile set of @p id first, if it is one of the choice.
    void chooseTileSet(const QUuid &id);

public slots:
    /// Opens with an empty name and a choice of @p sets.
    void show(QList<QPointer<TileSet>> sets);
    void accept() override;

signals:
    /// @p size in cells, 40 by 32 at least; it is the dialog's own and lives as long as the call.
    void accepted(QString name, QUuid tileSetId, QSize &size);

private:
    QString validationError() const;
    QSize mapSize() const;

    QLineEdit *m_name;
    QSpinBox *m_width;
    QSpinBox *m_height;
    DocumentCombo *m_tileSets;
};
