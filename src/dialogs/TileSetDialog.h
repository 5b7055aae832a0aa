#pragma once

#include "dialogs/DialogBase.h"
#include "model/Palette.h"

#include <QList>
#include <QPointer>
#include <QUuid>

class DocumentCombo;

class QButtonGroup;
class QCheckBox;
class QLineEdit;

/// Asks for the name, the number of tiles, the resolution and the palette of a new tile set.
class TileSetDialog : public DialogBase
{
    Q_OBJECT

public:
    explicit TileSetDialog(QWidget *parent = nullptr);

public slots:
    /// Opens with an empty name and a choice of @p palettes.
    void show(QList<QPointer<Palette>> palettes);
    void accept() override;

signals:
    /// @p paletteId is null for a new empty palette; @p tileCount is 256 or 512.
    void accepted(QString name, QUuid paletteId, int tileCount, bool hiRes);

private:
    QWidget *makeCountRow();

    QLineEdit *m_name;
    QButtonGroup *m_tileCount; // the ids are the counts
    QCheckBox *m_hiRes;
    QCheckBox *m_newPalette;
    DocumentCombo *m_palettes;
};
