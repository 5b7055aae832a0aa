#pragma once

/// What the edit menu drives: the clipboard and selection commands of a view.
///
/// A view derives from it as a second base beside its widget; the menu finds it by a dynamic cast
/// of the widget in use.
class EditTarget
{
public:
    virtual ~EditTarget();

    virtual void cut() = 0;
    virtual void copy() = 0;
    virtual void paste() = 0;
    virtual void selectAll() = 0;
    virtual void selectNone() = 0;
};
