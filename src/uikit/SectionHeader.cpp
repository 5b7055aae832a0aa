#include "uikit/SectionHeader.h"

SectionHeader::SectionHeader(const QString &title, QWidget *parent)
    : QLabel(title, parent)
{
    constexpr int TopMargin = 10; // pixels
    setContentsMargins(0, TopMargin, 0, 0);
    setTextFormat(Qt::PlainText);
    QFont bold = font();
    bold.setBold(true);
    setFont(bold);
}
