#include "dialogs/DocumentCombo.h"

#include "uikit/PlainText.h"

#include <algorithm>

DocumentCombo::DocumentCombo(QWidget *parent)
    : QComboBox(parent)
{
    // A name of any length must not widen the dialog.
    constexpr int VisibleLetters = 20;
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(VisibleLetters);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void DocumentCombo::addChoice(const QString &text, const QUuid &id)
{
    addItem(text, id);
}

QUuid DocumentCombo::currentId() const
{
    return currentData().toUuid();
}

void DocumentCombo::setCurrentId(const QUuid &id)
{
    const int index = findData(id);
    if (index >= 0)
        setCurrentIndex(index);
}

void DocumentCombo::setEntries(QList<Entry> entries, int first)
{
    std::sort(entries.begin(), entries.end(), [](const Entry &left, const Entry &right) {
        const int order = left.name.compare(right.name, Qt::CaseInsensitive);
        return order != 0 ? order < 0 : left.id < right.id;
    });
    const QVariant current = currentData();
    while (count() > first)
        removeItem(count() - 1);
    for (const Entry &entry : std::as_const(entries))
        addItem(PlainText::shown(entry.name), entry.id);
    const int kept = current.isValid() ? findData(current) : -1;
    setCurrentIndex(kept >= 0 || count() == 0 ? kept : 0);
}
