#pragma once

#include <QDialog>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QTest>

/// Uses a dialog as its user does: by the names of its fields and by its buttons.
namespace DialogDriver {

/// The field of a form's row, by the label that names it; null if there is none.
template <typename Field>
Field *field(const QWidget &dialog, const QString &name)
{
    for (Field *one : dialog.findChildren<Field *>()) {
        if (one->accessibleName() == name)
            return one;
    }
    return nullptr;
}

/// The button that shows @p text; null if there is none.
template <typename Button>
Button *button(const QWidget &dialog, const QString &text)
{
    for (Button *one : dialog.findChildren<Button *>()) {
        if (one->text() == text)
            return one;
    }
    return nullptr;
}

inline void press(const QDialog &dialog, QDialogButtonBox::StandardButton which)
{
    const auto *box = dialog.findChild<QDialogButtonBox *>();
    QTest::mouseClick(box->button(which), Qt::LeftButton);
}

inline void pressOk(const QDialog &dialog)
{
    press(dialog, QDialogButtonBox::Ok);
}

inline void pressCancel(const QDialog &dialog)
{
    press(dialog, QDialogButtonBox::Cancel);
}

} // namespace DialogDriver
