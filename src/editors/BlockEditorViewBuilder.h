#pragma once

#include <QObject>

namespace BlockEditor {

class View;

/// Makes the children of a block editor's view, lays them out and connects them. Lives for the
/// view's constructor.
class ViewBuilder : public QObject
{
    Q_OBJECT

public:
    explicit ViewBuilder(View *view);

    void build();

private:
    void makeChildren();
    void connectChildren();

    View *m_view;
};

} // namespace BlockEditor
