#include "uikit/ThemedIcon.h"

#include "uikit/ThemedIconEngine.h"

QIcon themedIcon(const QString &path)
{
    return QIcon(new ThemedIconEngine(path));
}
