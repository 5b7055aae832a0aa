#pragma once

#include <QLayout>
#include <QList>

/// Lays its items out from left to right in rows, each row centred, with height for width.
///
/// Items get the size of their hints. Empty items (hidden widgets) take no room. The layout owns
/// its items, as every QLayout does.
class FlowLayout : public QLayout
{
public:
    explicit FlowLayout(QWidget *parent = nullptr);
    ~FlowLayout() override;

    /// Pixels between items and between rows; a negative value lays out as 0.
    int spacing() const override { return m_spacing; }
    void setSpacing(int spacing) override;

    void addItem(QLayoutItem *item) override;
    int count() const override;
    QLayoutItem *itemAt(int index) const override;
    QLayoutItem *takeAt(int index) override;

    Qt::Orientations expandingDirections() const override;
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;
    void setGeometry(const QRect &rect) override;
    QSize sizeHint() const override;
    /// The largest minimum of an item plus the margins.
    QSize minimumSize() const override;

protected:
    using Row = QList<QLayoutItem *>;

    /// Places the items of a row in @p line, which is as wide as the layout within its margins and
    /// as high as the row.
    virtual void place(const Row &row, const QRect &line) const;
    int rowWidth(const Row &row) const;
    int gap() const;

private:
    enum class Run { Test, Place };

    QList<Row> rowsFor(int availableWidth) const;
    /// The height that the rows take in @p rect, margins included.
    int layOut(const QRect &rect, Run run) const;

    QList<QLayoutItem *> m_items;
    int m_spacing = 0;
};
