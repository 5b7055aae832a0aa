#pragma once

#include "dialogs/DialogBase.h"

class FileField;
class QCheckBox;
class QSpinBox;

namespace TileEditor {

/// Asks for the file, the range and the orientation of a tile export.
class ExportDialog : public DialogBase
{
    Q_OBJECT

public:
    static constexpr int MaxBlock = 512;

    explicit ExportDialog(QWidget *parent = nullptr);

public slots:
    void accept() override;
    /// The end block begins where the start block is.
    void startBlockUpdated(int block);
    /// The start block ends where the end block is.
    void endBlockUpdated(int block);
    /// Takes over the file chosen in the file dialog.
    void fileAccepted();

signals:
    /// @p first and @p last count from 1.
    void accepted(QString name, int first, int last, bool rotate);

private:
    FileField *m_file;
    QSpinBox *m_first;
    QSpinBox *m_last;
    QCheckBox *m_rotate;
};

} // namespace TileEditor
