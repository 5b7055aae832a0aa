#include "uikit/PlainText.h"

#include <QTextDocument>

QString PlainText::label(const QString &text)
{
    QString escaped = text;
    return escaped.replace(QLatin1Char('&'), QLatin1String("&&"));
}

QString PlainText::toolTip(const QString &text)
{
    // Escapes in what is not taken for markup would be seen as such.
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal) : text;
}
