#pragma once

#include "dialogs/DialogBase.h"
#include "model/Palette.h"

#include <QFlags>
#include <QList>
#include <QPointer>
#include <QUuid>

class DocumentCombo;
class QCheckBox;
class QLineEdit;
class QRadioButton;

/// Asks for the name, the depth and the palette of a new sprite bank.
class SpriteDialog : public DialogBase
{
    Q_OBJECT

public:
    enum CreateOption { EightBit = 1, CreateNewPalette = 2 };
    Q_DECLARE_FLAGS(CreateOptions, CreateOption)
    Q_FLAG(CreateOptions)

    explicit SpriteDialog(QWidget *parent = nullptr);

public slots:
    /// Opens with an empty name and a choice of @p palettes; with none there can only be a new one.
    void show(QList<QPointer<Palette>> palettes);
    void accept() override;

signals:
    /// @p paletteId is null for a new palette.
    void accepted(SpriteDialog::CreateOptions options, QString name, QUuid paletteId);

private:
    void updatePaletteControls();

    QLineEdit *m_name;
    QRadioButton *m_fourBit;
    QRadioButton *m_eightBit;
    QCheckBox *m_newPalette;
    DocumentCombo *m_palettes;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(SpriteDialog::CreateOptions)
