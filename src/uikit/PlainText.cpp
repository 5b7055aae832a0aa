#include "uikit/PlainText.h"

#include <QTextDocument>

namespace {

constexpr qsizetype MaxShown = 500; // letters

} // namespace

QString PlainText::shown(const QString &name)
{
    return name.size() > MaxShown ? name.left(MaxShown) + QChar(0x2026) : name;
}

QString PlainText::label(const QString &text)
{
    QString escaped = shown(text);
    return escaped.replace(QLatin1Char('&'), QLatin1String("&&"));
}

QString PlainText::toolTip(const QString &text)
{
    // Escapes in what is not taken for markup would be seen as such.
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal) : text;
}
