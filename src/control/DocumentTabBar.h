#pragma once

#include <QTabBar>

/// The bar of the document tabs. Where there is no room for all texts they are shortened, but not
/// beyond recognition: then the bar scrolls. The tool tip of a shortened text is the whole one.
class DocumentTabBar : public QTabBar
{
    Q_OBJECT

public:
    using QTabBar::QTabBar;

protected:
    QSize minimumTabSizeHint(int index) const override;
    bool event(QEvent *event) override;
};
