#pragma once

#include <QObject>
#include <QPointer>

class QAction;
class QKeySequence;
class QToolButton;

namespace MapEditor {

class View;

/// Lays a new map view out and connects its parts. Lives for the view's construction only.
class ViewBuilder : public QObject
{
    Q_OBJECT

public:
    explicit ViewBuilder(View *view);

    void build();

private:
    void layOut();
    QToolButton *makeCorner();
    void connectActions();
    void connectGrid();
    void connectScrollBars();
    void connectSprites();
    QAction *addAction(const QString &text, const QList<QKeySequence> &keys);

    QPointer<View> m_view;
};

} // namespace MapEditor
