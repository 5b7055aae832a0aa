#pragma once

#include "model/Enums.h"

#include <QHash>
#include <QList>
#include <QWidget>

class QAction;
class QActionGroup;
class QGridLayout;
class QToolButton;

namespace MapEditor {

/// The column of tool buttons beside a map: five exclusive modes, then toggles and actions.
class MapToolPalette : public QWidget
{
    Q_OBJECT

public:
    using ToolButton = Tessaril::Ui::ToolButton;

    explicit MapToolPalette(QWidget *parent = nullptr);

    QAction *action(ToolButton button) const { return m_actions.value(button); }

signals:
    void actionActivated(Tessaril::Ui::ToolButton action, bool checked);

public slots:
    void setShowGridChecked(bool checked);
    /// Checks the button of a mode; sends nothing.
    void setMode(Tessaril::Ui::ToolButton mode);
    /// Triggers a button as a click would.
    void toggleAction(Tessaril::Ui::ToolButton button);
    /// Checks a checkable button and sends actionActivated(), also if it was so already.
    void setActionChecked(Tessaril::Ui::ToolButton button, bool checked);
    void setToolEnabled(Tessaril::Ui::ToolButton button, bool enabled);

private:
    struct Entry;

    static const QList<Entry> &entries();
    void addEntry(const Entry &entry, QGridLayout *layout);

    QActionGroup *m_modes;
    QHash<ToolButton, QAction *> m_actions;
    QHash<ToolButton, QToolButton *> m_buttons;
};

} // namespace MapEditor
