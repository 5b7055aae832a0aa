#pragma once

class QWidget;

namespace SpriteEditor {

class View;

/// Makes the children of a sprite editor's view, lays them out and connects them. Lives for the
/// view's constructor.
class ViewBuilder
{
public:
    explicit ViewBuilder(View *view);

    void build();

private:
    void makeChildren();
    QWidget *makeEditorPane();
    void connectChildren();

    View *m_view;
};

} // namespace SpriteEditor
