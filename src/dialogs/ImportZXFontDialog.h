#pragma once

#include "dialogs/DialogBase.h"
#include "model/Palette.h"

#include <QPointer>

class ColourSelector;
class QFileDialog;
class QLineEdit;
class QSpinBox;

/// Asks for a file of raw 8 by 8 characters and for the tiles and colours that they become.
class ImportZXFontDialog : public DialogBase
{
    Q_OBJECT

public:
    explicit ImportZXFontDialog(QWidget *parent = nullptr);

public slots:
    /// Opens with the colours of @p palette to choose from. All fields keep what they held.
    void show(QPointer<Palette> palette);
    void accept() override;
    /// Shows the 16 colours of a palette offset, 0 to 15.
    void updateOffset(int offset);
    void showOpenDialog();
    /// Puts the file selected in the file dialog into the line edit.
    void setFileName();

signals:
    /// @p index is the first tile; the colours are those of the selector.
    void accepted(int index, int foreIndex, int backIndex, int offset, QString file);

private:
    QWidget *makeFileRow();
    QWidget *makeColourRow();

    QLineEdit *m_file;
    QSpinBox *m_startTile;
    ColourSelector *m_colours;
    QSpinBox *m_offset;
    QFileDialog *m_fileDialog;
};
