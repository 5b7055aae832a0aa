#pragma once

#include "dialogs/DialogBase.h"

class QCheckBox;

/// Asks which data of a map to export; at least one kind is chosen after accepted().
class ExportMapDialog : public DialogBase
{
    Q_OBJECT

public:
    explicit ExportMapDialog(QWidget *parent = nullptr);

    bool exportsMap() const;
    bool exportsTiles() const;
    bool exportsPalette() const;

public slots:
    void accept() override;

private:
    QCheckBox *addBox(const QString &text);

    QCheckBox *m_map;
    QCheckBox *m_tiles;
    QCheckBox *m_palette;
};
