#pragma once

#include <QAccessible>
#include <QStringList>

class QWidget;

/// A widget that paints its content itself and can say in words what its pointer or selection
/// stands on, for those who do not see it.
///
/// The words are the value and the description that a screen reader asks for. A widget derives
/// from this beside QWidget and calls tellChange() when the words differ.
class Spoken
{
public:
    virtual ~Spoken();

    /// One line, such as "tile 17, offset 3"; empty if there is nothing to say.
    virtual QString spokenValue() const = 0;

protected:
    Spoken();

    /// The words for how a tile or sprite is turned; none if it is not.
    static QStringList orientation(bool rotated, bool flipped, bool mirrored);

    /// Tells a listening screen reader that the words of @p widget, which is this, are others now.
    static void tellChange(QWidget *widget);
};
