#pragma once

#include "model/Map.h"
#include "uikit/Popover.h"

#include <QPoint>
#include <QRect>

#include <functional>

namespace MapEditor {

class SpriteProperties;

/// The form of a placed sprite in a floating window beside it. Closes at a press outside and with
/// Escape.
class SpritePropertiesPopover : public Popover
{
    Q_OBJECT

public:
    using KeepOpen = std::function<bool(QPoint)>;

    explicit SpritePropertiesPopover(QWidget *parent = nullptr);

    /// As the form shows it.
    const Map::PlacedSprite &sprite() const;

    /// Lets a press at a global point pass without closing.
    void setKeepOpen(KeepOpen keepOpen) { m_keepOpen = std::move(keepOpen); }

    /// Shows @p sprite beside @p area, its rectangle in global coordinates: at the right, or at the
    /// left where that would leave the screen.
    void showFor(const Map::PlacedSprite &sprite, const QRect &area);

signals:
    void spriteEdited(Map::PlacedSprite sprite);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void place(const QRect &area);

    SpriteProperties *m_form;
    KeepOpen m_keepOpen;
};

} // namespace MapEditor
