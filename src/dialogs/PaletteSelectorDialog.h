#pragma once

#include "dialogs/DialogBase.h"
#include "model/Palette.h"

#include <QList>
#include <QPointer>
#include <QUuid>

class DocumentCombo;

/// Lets the user pick one of the project's palettes.
class PaletteSelectorDialog : public DialogBase
{
    Q_OBJECT

public:
    explicit PaletteSelectorDialog(QWidget *parent = nullptr);

public slots:
    /// Opens with a choice of @p palettes, at first the one of id @p current, if it is there.
    void show(QList<QPointer<Palette>> palettes, QUuid current = {});
    void accept() override;

signals:
    /// @p paletteId is null if there was none to choose from.
    void accepted(QUuid paletteId);

private:
    DocumentCombo *m_palettes;
};
