#include "uikit/CheckList.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QStandardItemModel>
#include <QStylePainter>
#include <QWheelEvent>

CheckList::CheckList(QWidget *parent)
    : QComboBox(parent)
    , m_model(new QStandardItemModel(this))
    , m_allText(tr("All"))
    , m_noneText(tr("Empty"))
    , m_otherText(QStringLiteral("Oook!"))
{
    setModel(m_model);
    connect(m_model, &QStandardItemModel::dataChanged, this, &CheckList::modelDataChanged);
    view()->setItemDelegate(new QCheckListStyledItemDelegate(this));
    view()->installEventFilter(this);
    view()->viewport()->installEventFilter(this);
    connect(view(), &QAbstractItemView::pressed, this, &CheckList::itemPressed);
}

void CheckList::addCheckItem(const QString &text, const QVariant &userData, Qt::CheckState state)
{
    auto *item = new QStandardItem(text);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setData(userData, Qt::UserRole);
    item->setCheckState(state);
    m_model->appendRow(item);
    setAccessibleDescription(summary());
}

Qt::CheckState CheckList::checkState(int row) const
{
    const QStandardItem *item = m_model->item(row);
    return item ? item->checkState() : Qt::Unchecked;
}

void CheckList::setCheckState(int row, Qt::CheckState state)
{
    if (QStandardItem *item = m_model->item(row))
        item->setCheckState(state);
}

Qt::CheckState CheckList::overallState() const
{
    const auto checked = checkedTexts().size();
    if (checked == 0)
        return Qt::Unchecked;
    return checked == count() ? Qt::Checked : Qt::PartiallyChecked;
}

void CheckList::setSummaryTexts(const QString &all, const QString &none, const QString &other)
{
    m_allText = all;
    m_noneText = none;
    m_otherText = other;
    setAccessibleDescription(summary());
    update();
}

QString CheckList::summary() const
{
    if (count() == 0)
        return m_otherText;
    switch (overallState()) {
    case Qt::Checked:
        return m_allText;
    case Qt::Unchecked:
        return m_noneText;
    case Qt::PartiallyChecked:
        return checkedTexts().join(QStringLiteral(", "));
    }
    return m_otherText;
}

QStringList CheckList::checkedTexts() const
{
    QStringList texts;
    for (int row = 0; row < count(); ++row) {
        if (checkState(row) == Qt::Checked)
            texts.append(itemText(row));
    }
    return texts;
}

bool CheckList::eventFilter(QObject *watched, QEvent *event)
{
    // A release over a row would pick it and close the popup.
    if (watched == view()->viewport() && event->type() == QEvent::MouseButtonRelease)
        return true;
    if (watched == view() && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent *>(event)->key() == Qt::Key_Space) {
        itemPressed(view()->currentIndex());
        return true;
    }
    return QComboBox::eventFilter(watched, event);
}

void CheckList::modelDataChanged()
{
    setAccessibleDescription(summary());
    update();
    emit checkStateChanged(overallState());
}

void CheckList::itemPressed(QModelIndex index)
{
    if (QStandardItem *item = m_model->itemFromIndex(index))
        item->setCheckState(item->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
}

void CheckList::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QRect field =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    option.currentText = fontMetrics().elidedText(summary(), Qt::ElideRight, field.width());
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

void CheckList::wheelEvent(QWheelEvent *event)
{
    // The current row means nothing here, so the wheel scrolls what is around the box.
    event->ignore();
}

void CheckList::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down)
        showPopup();
    else
        QComboBox::keyPressEvent(event);
}

bool CheckList::QCheckListStyledItemDelegate::editorEvent(QEvent *, QAbstractItemModel *,
                                                          const QStyleOptionViewItem &,
                                                          const QModelIndex &)
{
    return false;
}
