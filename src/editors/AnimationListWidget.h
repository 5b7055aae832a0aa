#pragma once

#include "model/Animation.h"

#include <QHash>
#include <QImage>
#include <QPointer>
#include <QSize>
#include <QUuid>
#include <QWidget>

#include <functional>

class QListWidget;
class QListWidgetItem;
class QMenu;
class QPushButton;
class QVBoxLayout;

namespace AnimationEditor {

/// The animations of a bank or of a block list, one of which is current.
///
/// The list reads its animations and owns none of them: one that dies leaves the list. It asks its
/// owner to add, remove and clone by its signals, and the owner puts the result into the list.
class AnimationListWidget : public QWidget
{
    Q_OBJECT

public:
    /// The bits of the mode.
    enum ModeBit {
        WithButtons = 1, ///< a row of buttons that add and delete
        WithMenu = 2,    ///< a context menu that deletes and clones
        WithText = 4,    ///< name, frame count and size beside the icon
        Narrow = 8       ///< a slim column of icons
    };

    /// Draws an animation for a square of @p size device pixels; may come out smaller.
    using IconRenderer = std::function<QImage(const Animation *animation, QSize size)>;

    static constexpr int IdRole = Qt::UserRole; // of an item: the animation's id
    static constexpr int IconSide = 48;         // pixels
    static constexpr int NarrowWidth = 72;      // pixels

    /// @p mode is a word of ModeBit; 0 is a plain list to choose from.
    explicit AnimationListWidget(int mode, QWidget *parent = nullptr);

    /// Adds an item in the order of the shown texts, equal ones by name, and makes it current with
    /// @p select. One that is listed already is only selected.
    void addAnimation(Animation *animation, bool select);
    /// Takes an item out; if it was current, another one becomes it and selectedItemChanged()
    /// follows. Nothing if it is not listed.
    void removeAnimation(QUuid id);
    /// Takes all items out. Emits selectedItemChanged() with null if one was current.
    void clear();
    /// Leaves no item current. Emits nothing.
    void clearSelection();

    /// Null if there is none.
    Animation *currentAnimation() const;
    int count() const;

    /// Who draws the icons; without one it is Animation::thumbnail(). Redraws all.
    void setIconRenderer(IconRenderer renderer);

public slots:
    /// Draws all icons anew, for changes that the animations do not tell of.
    void updateIcons();

signals:
    void addRequested();
    /// The current animation is to go.
    void removeRequested();
    void cloneRequested(Animation *animation);
    /// @p animation is null if none is current.
    void selectedItemChanged(Animation *animation);
    /// The one that is current already is pressed; for owners to whom that is a choice as well.
    void currentItemPressed(Animation *animation);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// An animation and the item that shows it, which the list widget owns.
    struct Entry
    {
        QPointer<Animation> animation;
        QListWidgetItem *item = nullptr;
    };

    void setUpList();
    void keepUnselected();
    void addButtons(QVBoxLayout *layout);
    void addContextMenu();
    void connectAnimation(Animation *animation);
    void updateItem(const QUuid &id);
    void updateIcon(const Entry &entry);
    void updateActions();
    void currentItemChanged();
    void requestClone();
    void showContextMenu(QPoint position);

    int m_mode;
    QListWidget *m_list;
    QPushButton *m_deleteButton = nullptr; // null without the row of buttons
    QMenu *m_contextMenu = nullptr;        // null without one
    QHash<QUuid, Entry> m_entries;         // by animation
    IconRenderer m_renderIcon;
};

} // namespace AnimationEditor
