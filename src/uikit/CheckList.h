#pragma once

#include <QComboBox>
#include <QStyledItemDelegate>

class QStandardItemModel;

/// A combo box whose popup rows carry check boxes; the closed box shows a summary of the checked
/// rows.
///
/// The popup stays open while rows are pressed; Space toggles the current row.
class CheckList : public QComboBox
{
    Q_OBJECT

public:
    class QCheckListStyledItemDelegate;

    explicit CheckList(QWidget *parent = nullptr);

    /// Appends a row.
    void addCheckItem(const QString &text, const QVariant &userData = {},
                      Qt::CheckState state = Qt::Unchecked);
    Qt::CheckState checkState(int row) const;
    /// Emits checkStateChanged() if the state differs.
    void setCheckState(int row, Qt::CheckState state);

    /// The state of the whole list: Checked if all rows are, Unchecked if none is.
    Qt::CheckState overallState() const;

    /// What the summary says of a list with all rows checked, with none, and of a list without
    /// rows.
    void setSummaryTexts(const QString &all, const QString &none, const QString &other);
    /// One of those texts, else the checked rows' texts joined by commas.
    QString summary() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

public slots:
    /// Shows the new summary and emits checkStateChanged().
    void modelDataChanged();
    /// Toggles a row.
    void itemPressed(QModelIndex index);

signals:
    /// A row's check state has changed; @p state is overallState().
    void checkStateChanged(int state);

protected:
    void paintEvent(QPaintEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QStringList checkedTexts() const;

    QStandardItemModel *m_model;
    QString m_allText;
    QString m_noneText;
    QString m_otherText;
};

/// Draws the rows with their check boxes and leaves toggling to the list, which does it on a press.
class CheckList::QCheckListStyledItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    bool editorEvent(QEvent *event, QAbstractItemModel *model, const QStyleOptionViewItem &option,
                     const QModelIndex &index) override;
};
