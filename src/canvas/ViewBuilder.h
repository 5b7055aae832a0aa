#pragma once

namespace ImageEditor {

class View;

/// Lays a new image view out and connects its parts. Lives for the view's construction only.
class ViewBuilder
{
public:
    explicit ViewBuilder(View *view)
        : m_view(view)
    {
    }

    void build();

private:
    void layOut();
    void connectParts();

    View *m_view;
};

} // namespace ImageEditor
