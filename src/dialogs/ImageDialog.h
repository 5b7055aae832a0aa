#pragma once

#include "dialogs/DialogBase.h"
#include "model/Enums.h"
#include "model/Palette.h"

#include <QList>
#include <QPointer>
#include <QUuid>

class DocumentCombo;

class QComboBox;
class QLineEdit;

/// Asks for the name, the screen mode and the palette of a new image.
class ImageDialog : public DialogBase
{
    Q_OBJECT

public:
    explicit ImageDialog(QWidget *parent = nullptr);

public slots:
    /// Opens with an empty name and a choice of @p palettes behind the two of PaletteChoice.
    void show(QList<QPointer<Palette>> palettes);
    void accept() override;

signals:
    /// @p palette is the id of a palette or one of PaletteChoice.
    void accepted(QString name, Tessaril::ImageMode mode, QUuid palette);

private:
    QLineEdit *m_name;
    QComboBox *m_mode; // its data are ImageMode values
    DocumentCombo *m_palettes;
};
