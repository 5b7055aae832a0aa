#pragma once

#include "uikit/FlowLayout.h"

class QHBoxLayout;

/// A flow of fields whose rows are as wide as the layout.
///
/// What a row leaves goes to its items that expand, in equal parts; without one the row begins at
/// the left. An item that is alone in its row and wider than the layout is narrowed.
class FillingFlowLayout : public FlowLayout
{
public:
    using FlowLayout::FlowLayout;

    /// A new item for fields that stay together in one row; its widget belongs to that of the
    /// layout.
    QHBoxLayout *addGroup();

    /// All items in one row.
    QSize sizeHint() const override;

protected:
    void place(const Row &row, const QRect &line) const override;
};
